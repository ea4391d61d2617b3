#include "platform/win32/window_front.h"

#include "platform/win32/wine.h"

namespace deck {
namespace {

// Wine's windows are put on top by the window manager of the desktop around it, and many of those
// do it for no window that is there already: it would have the keyboard unseen.
bool HasToComeUpAnew(HWND window) {
  return RunsUnderWine() && IsWindowVisible(window) && !IsIconic(window) &&
         GetForegroundWindow() != window;
}

}  // namespace

void ShowInFront(HWND window) {
  if (HasToComeUpAnew(window)) ShowWindow(window, SW_HIDE);
  ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window);
}

}  // namespace deck
