#include "platform/win32/win32_event_loop.h"

namespace deck {

void Win32EventLoop::StartTimer(TimerId timer, int milliseconds) {
  StopTimer(timer);
  if (milliseconds > 0) {
    SetTimer(window_, static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds), nullptr);
  }
}

void Win32EventLoop::StopTimer(TimerId timer) {
  KillTimer(window_, static_cast<UINT_PTR>(timer));
}

}  // namespace deck
