// Timers on a clock that only this fake moves.
#pragma once

#include <deque>
#include <functional>
#include <map>

#include "platform/event_loop.h"

namespace deck {

class FakeEventLoop : public EventLoop {
 public:
  void StartTimer(TimerId timer, int milliseconds) override;
  void StopTimer(TimerId timer) override;
  // Moves the clock by `pumpStep`, runs the timers that are due, once each, and then one of
  // `actions`. Throws after `maxPumps` calls: a wait that nothing ends would hang the test.
  void PumpEvents() override;

  // Moves the clock in steps of a millisecond, running the timers that are due.
  void Advance(int milliseconds);
  bool IsRunning(TimerId timer) const { return timers_.contains(timer); }
  // Of a running timer, 0 for others.
  int Interval(TimerId timer) const;

  std::function<void(TimerId)> onTimer;
  // What the user does while a command waits: menu commands, closing windows.
  std::deque<std::function<void()>> actions;
  int now = 0;        // milliseconds
  int pumpStep = 10;  // milliseconds
  int pumps = 0;
  int maxPumps = 1'000'000;

 private:
  struct Timer {
    int interval = 0;
    int due = 0;
  };

  void RunDueTimers();

  std::map<TimerId, Timer> timers_;
};

}  // namespace deck
