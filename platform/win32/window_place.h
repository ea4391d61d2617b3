// Where top-level windows stand, in pixels of the screen.
#pragma once

#include <windows.h>

namespace deck {

// The window's place when it is neither minimised nor maximised, whatever it is now.
RECT NormalPlaceOf(HWND window);

// The part of a monitor that task bars leave free: of the monitor that holds most of the rectangle,
// or of the nearest one.
RECT WorkAreaNear(const RECT& place);

// Whether any part of the rectangle lies on a monitor.
bool IsOnAMonitor(const RECT& place);

}  // namespace deck
