#include <atomic>
#include <vector>

#include <gtest/gtest.h>

#include "platform/background_thread.h"
#include "tests/fakes/fake_background_work.h"

namespace deck {
namespace {

template <class Work>
class BackgroundWorkContract : public testing::Test {
 protected:
  Work work_;
};
using Kinds = testing::Types<FakeBackgroundWork, BackgroundThread>;
TYPED_TEST_SUITE(BackgroundWorkContract, Kinds);

TYPED_TEST(BackgroundWorkContract, DoesEverythingInTheOrderGiven) {
  std::vector<int> done;
  for (int i = 0; i < 1000; ++i) this->work_.Start([&done, i] { done.push_back(i); });
  this->work_.Finish();
  ASSERT_EQ(done.size(), 1000u);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(done[static_cast<std::size_t>(i)], i);
}

TYPED_TEST(BackgroundWorkContract, FinishWithoutWorkReturns) {
  int done = 0;
  this->work_.Finish();
  EXPECT_EQ(done, 0);
  this->work_.Start([&done] { ++done; });
  this->work_.Finish();
  this->work_.Finish();
  EXPECT_EQ(done, 1);
}

TYPED_TEST(BackgroundWorkContract, TakesWorkAgainAfterFinish) {
  int done = 0;
  this->work_.Start([&done] { ++done; });
  this->work_.Finish();
  this->work_.Start([&done] { ++done; });
  this->work_.Finish();
  EXPECT_EQ(done, 2);
}

TEST(BackgroundThread, DoesNotHoldUpTheOneWhoGivesTheWork) {
  std::atomic<bool> may = false;
  std::atomic<bool> done = false;
  BackgroundThread thread;
  thread.Start([&] {
    while (!may) std::this_thread::yield();
    done = true;
  });
  EXPECT_FALSE(done);
  may = true;
  thread.Finish();
  EXPECT_TRUE(done);
}

TEST(BackgroundThread, EndsAfterTheWorkThatStillWaits) {
  int done = 0;
  {
    BackgroundThread thread;
    for (int i = 0; i < 100; ++i) thread.Start([&done] { ++done; });
  }
  EXPECT_EQ(done, 100);
}

}  // namespace
}  // namespace deck
