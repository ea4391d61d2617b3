// Where top-level windows stand, in pixels of the screen.
#pragma once

#include <windows.h>

#include "platform/main_window_view.h"
#include "platform/rectangle.h"

namespace deck {

Rectangle FromRect(const RECT& rect);
RECT ToRect(const Rectangle& rectangle);

Rectangle PlaceOf(HWND window);

// Moves and sizes the window; neither in front of others nor active. A control's place counts from
// its parent's corner.
void MoveTo(HWND window, const Rectangle& place);

// The window's place when it is neither minimised nor maximised, whatever it is now.
Rectangle NormalPlaceOf(HWND window);

// Monitors: the one that holds most of the window or rectangle, or else the nearest one.

// All of the monitor.
Rectangle MonitorAt(HWND window);
// What task bars leave of it.
Rectangle WorkAreaAt(const Rectangle& place);

// A place for a window that is to be shown there: of a place in twips, each the size it has on the
// monitor that it goes to. Where there is no monitor it is moved onto the nearest one. `dpi` is
// that of the window now.
Rectangle PlaceOnAMonitor(const WindowPlacement& twips, int dpi);

}  // namespace deck
