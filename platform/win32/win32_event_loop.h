// Timers of a window, whose WM_TIMER carries the TimerId as its number, and the pump. Owned by the
// program's entry.
#pragma once

#include <windows.h>

#include "platform/event_loop.h"
#include "platform/win32/message_loop.h"

namespace deck {

class Win32EventLoop : public EventLoop {
 public:
  // Both have to outlive this object.
  Win32EventLoop(HWND window, MessageLoop& loop) : window_(window), loop_(loop) {}

  void StartTimer(TimerId timer, int milliseconds) override;
  void StopTimer(TimerId timer) override;
  void PumpEvents() override { loop_.Pump(); }

 private:
  HWND window_;
  MessageLoop& loop_;
};

}  // namespace deck
