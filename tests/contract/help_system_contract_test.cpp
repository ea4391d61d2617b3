#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class HelpSystemContract : public testing::Test {
 protected:
  ~HelpSystemContract() override { help_.CloseAll(); }

  const std::unique_ptr<HelpSystemWorld> world_ = MakeHelpSystemWorld();
  HelpSystem& help_ = world_->Port();
};

TEST_F(HelpSystemContract, ShowsNothingBeforeATopicIsAskedFor) {
  help_.Prepare();
  EXPECT_EQ(world_->HelpWindows(), 0);
}

TEST_F(HelpSystemContract, AMissingFileShowsNoWindow) {
  help_.Prepare();
  help_.ShowTopic(u"C:\\missing folder\\Wren.chm", 1);
  help_.OpenWithShell(u"C:\\missing folder\\Wren.hlp", u"C:\\missing folder");
  EXPECT_EQ(world_->HelpWindows(), 0);
}

TEST_F(HelpSystemContract, ClosesWithoutHavingBeenUsed) {
  help_.CloseAll();
  EXPECT_EQ(world_->HelpWindows(), 0);
}

TEST_F(HelpSystemContract, CanBeUsedAgainAfterClosing) {
  for (int round = 0; round < 2; ++round) {
    help_.Prepare();
    help_.ShowTopic(u"C:\\missing folder\\Wren.chm", 1);
    help_.CloseAll();
    EXPECT_EQ(world_->HelpWindows(), 0);
  }
}

}  // namespace
}  // namespace deck
