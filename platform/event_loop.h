// The timers of the main window and the pump that keeps it alive while a command waits.
#pragma once

namespace deck {

enum class TimerId { kDownloadTimer = 1, kStatusModeTimer = 2, kTimer1 = 3, kRecoveryTimer = 4 };

class EventLoop {
 public:
  virtual ~EventLoop() = default;
  // Restarts the timer when it runs. An interval of 0 or less never ticks.
  virtual void StartTimer(TimerId timer, int milliseconds) = 0;
  virtual void StopTimer(TimerId timer) = 0;
  // Dispatches everything that is pending, shortcuts and dialog keys included, and returns. With
  // nothing pending it waits some milliseconds for more, so it may be called in a loop.
  virtual void PumpEvents() = 0;
};

}  // namespace deck
