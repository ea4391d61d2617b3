#include "platform/win32/owned_window.h"

#include "platform/win32/wine.h"

namespace deck {
namespace {

// Wine hands minimising over to the window manager of the desktop around it, and many of those take
// a window and its owner for one thing: the program would be gone from the screen.
bool MinimisesWithOwner() {
  return RunsUnderWine();
}

}  // namespace

void MinimiseOwned(HWND window) {
  if (IsIconic(window)) return;
  // Not every system looks for the next window itself: the keys would go to the minimised one.
  if (GetActiveWindow() == window) SetActiveWindow(GetWindow(window, GW_OWNER));
  if (!MinimisesWithOwner()) {
    ShowWindow(window, SW_SHOWMINNOACTIVE);
    return;
  }
  // The place to come back to is noted when it is asked for.
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  ShowWindow(window, SW_HIDE);
  SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | WS_MINIMIZE);
}

}  // namespace deck
