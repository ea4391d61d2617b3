#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

constexpr int kLongEnough = 20'000;  // milliseconds until a wait is given up

class EventLoopContract : public testing::Test {
 protected:
  EventLoopContract() {
    world_->OnTimer([this](TimerId timer) {
      ticks_.push_back(timer);
      if (onTick_) onTick_(timer);
    });
  }

  // False when the condition never came true.
  bool PumpUntil(const std::function<bool()>& condition) {
    const int start = world_->Now();
    while (!condition()) {
      if (world_->Now() - start > kLongEnough) return false;
      events_.PumpEvents();
    }
    return true;
  }

  void PumpFor(int milliseconds) {
    const int start = world_->Now();
    while (world_->Now() - start < milliseconds) events_.PumpEvents();
  }

  int CountOf(TimerId timer) const {
    return static_cast<int>(std::count(ticks_.begin(), ticks_.end(), timer));
  }

  std::vector<TimerId> ticks_;
  std::function<void(TimerId)> onTick_;
  const std::unique_ptr<EventLoopWorld> world_ = MakeEventLoopWorld();
  EventLoop& events_ = world_->Port();
};

TEST_F(EventLoopContract, TicksAgainAndAgainUntilStopped) {
  events_.StartTimer(TimerId::kTimer1, 20);
  ASSERT_TRUE(PumpUntil([this] { return ticks_.size() >= 3; }));
  events_.StopTimer(TimerId::kTimer1);
  const std::size_t before = ticks_.size();
  PumpFor(100);
  EXPECT_EQ(ticks_.size(), before);
}

TEST_F(EventLoopContract, DoesNotTickBeforeTheInterval) {
  const int start = world_->Now();
  events_.StartTimer(TimerId::kTimer1, 200);
  ASSERT_TRUE(PumpUntil([this] { return !ticks_.empty(); }));
  // The clocks of timers are coarse.
  EXPECT_GE(world_->Now() - start, 180);
}

TEST_F(EventLoopContract, RunsTimersBesideEachOther) {
  events_.StartTimer(TimerId::kDownloadTimer, 20);
  events_.StartTimer(TimerId::kStatusModeTimer, 30);
  ASSERT_TRUE(PumpUntil([this] {
    return CountOf(TimerId::kDownloadTimer) >= 2 && CountOf(TimerId::kStatusModeTimer) >= 2;
  }));
  EXPECT_EQ(CountOf(TimerId::kTimer1), 0);
}

TEST_F(EventLoopContract, StartsARunningTimerAgain) {
  events_.StartTimer(TimerId::kTimer1, 20);
  events_.StartTimer(TimerId::kTimer1, 5'000);
  PumpFor(150);
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(EventLoopContract, NeverTicksWithoutAnInterval) {
  events_.StartTimer(TimerId::kTimer1, 0);
  events_.StartTimer(TimerId::kDownloadTimer, -5);
  PumpFor(100);
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(EventLoopContract, StopsARunningTimerThatIsStartedWithoutAnInterval) {
  events_.StartTimer(TimerId::kTimer1, 20);
  events_.StartTimer(TimerId::kTimer1, 0);
  PumpFor(100);
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(EventLoopContract, DoesNotTickForATimerThatWasStoppedWhenItWasDue) {
  events_.StartTimer(TimerId::kTimer1, 10);
  world_->Wait(60);
  events_.StopTimer(TimerId::kTimer1);
  PumpFor(60);
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(EventLoopContract, TicksOnceForTimeThatPassedWithoutAPump) {
  events_.StartTimer(TimerId::kTimer1, 100);
  world_->Wait(450);
  events_.PumpEvents();
  EXPECT_EQ(ticks_.size(), 1U);
}

TEST_F(EventLoopContract, StopsATimerThatWasNeverStarted) {
  events_.StopTimer(TimerId::kTimer1);
  events_.PumpEvents();
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(EventLoopContract, LetsATickStopItsOwnTimer) {
  onTick_ = [this](TimerId timer) { events_.StopTimer(timer); };
  events_.StartTimer(TimerId::kTimer1, 10);
  ASSERT_TRUE(PumpUntil([this] { return !ticks_.empty(); }));
  PumpFor(60);
  EXPECT_EQ(ticks_.size(), 1U);
}

TEST_F(EventLoopContract, LetsATickPumpEventsItself) {
  bool ran = false;
  onTick_ = [this, &ran](TimerId timer) {
    events_.StopTimer(timer);
    world_->Post([&ran] { ran = true; });
    EXPECT_TRUE(PumpUntil([&ran] { return ran; }));
  };
  events_.StartTimer(TimerId::kTimer1, 10);
  EXPECT_TRUE(PumpUntil([&ran] { return ran; }));
}

TEST_F(EventLoopContract, RunsWhatTheUserDoesDuringAPump) {
  std::vector<int> order;
  world_->Post([&order] { order.push_back(1); });
  world_->Post([&order] { order.push_back(2); });
  EXPECT_TRUE(order.empty());
  ASSERT_TRUE(PumpUntil([&order] { return order.size() == 2; }));
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(EventLoopContract, ComesBackFromAPumpWithNothingToDo) {
  const int start = world_->Now();
  events_.PumpEvents();
  EXPECT_LT(world_->Now() - start, 1'000);
}

}  // namespace
}  // namespace deck
