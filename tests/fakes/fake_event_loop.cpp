#include "tests/fakes/fake_event_loop.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace deck {
namespace {

// An interval may be as long as 32 bits allow.
int After(int now, int interval) {
  return now + std::min(interval, std::numeric_limits<int>::max() - now);
}

}  // namespace

void FakeEventLoop::StartTimer(TimerId timer, int milliseconds) {
  timers_.erase(timer);
  if (milliseconds > 0) timers_[timer] = {milliseconds, After(now, milliseconds)};
}

void FakeEventLoop::StopTimer(TimerId timer) {
  timers_.erase(timer);
}

void FakeEventLoop::PumpEvents() {
  if (++pumps > maxPumps) throw std::runtime_error("events were pumped without an end");
  now += pumpStep;
  RunDueTimers();
  if (actions.empty()) return;
  const std::function<void()> action = std::move(actions.front());
  actions.pop_front();
  action();
}

void FakeEventLoop::Advance(int milliseconds) {
  for (int i = 0; i < milliseconds; ++i) {
    ++now;
    RunDueTimers();
  }
}

int FakeEventLoop::Interval(TimerId timer) const {
  const auto found = timers_.find(timer);
  return found == timers_.end() ? 0 : found->second.interval;
}

void FakeEventLoop::RunDueTimers() {
  std::vector<TimerId> ids;
  for (const auto& [id, timer] : timers_) ids.push_back(id);
  for (const TimerId id : ids) {
    // A tick may have stopped or restarted any timer, or pumped events itself.
    const auto found = timers_.find(id);
    if (found == timers_.end() || found->second.due > now) continue;
    found->second.due = After(now, found->second.interval);
    if (onTimer) onTimer(id);
  }
}

}  // namespace deck
