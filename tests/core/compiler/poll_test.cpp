#include "compiler/poll.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace deck {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

// Ticks without a report until the wait is given up.
int TicksUntilTimeOut(const WaitSettings& settings) {
  PollState state;
  int ticks = 0;
  while (state.outcome == PollOutcome::kWaiting && ticks < 1000) {
    state = AfterTick(state, u"", settings);
    ++ticks;
  }
  EXPECT_EQ(state, (PollState{.outcome = PollOutcome::kTimedOut, .elapsed = 0}));
  return ticks;
}

TEST(AfterTick, GivesUpWhenTheSumIsGreaterThanTheLimit) {
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = 45000, .PollInterval = 1000}), 46);
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = 1000, .PollInterval = 1000}), 2);
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = 999, .PollInterval = 1000}), 1);
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = 0, .PollInterval = 1000}), 1);
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = -5, .PollInterval = 1}), 1);
}

TEST(AfterTick, TheSumOfTheLargestIntervalsPassesTheLargestLimit) {
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = kMost, .PollInterval = kMost}), 2);
  EXPECT_EQ(TicksUntilTimeOut({.WaitLimit = kMost, .PollInterval = kMost - 1}), 2);
}

TEST(AfterTick, AddsTheIntervalWhileThereIsNoReport) {
  const WaitSettings settings{.WaitLimit = 500, .PollInterval = 200};
  EXPECT_EQ(AfterTick({}, u"", settings), (PollState{.elapsed = 200}));
  EXPECT_EQ(AfterTick({.elapsed = 200}, u"", settings), (PollState{.elapsed = 400}));
}

TEST(AfterTick, AReportEndsTheWaitAndTouchesNothingElse) {
  const WaitSettings settings{.WaitLimit = 0, .PollInterval = 1000};
  EXPECT_EQ(AfterTick({.elapsed = 300}, u"x", settings),
            (PollState{.outcome = PollOutcome::kReported, .elapsed = 300}));
}

}  // namespace
}  // namespace deck
