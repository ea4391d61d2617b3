// Resolution of windows and what depends on it. Functions that only newer systems have are looked
// up at run time, so that the program starts on Windows 7, where all windows share one resolution.
#pragma once

#include <windows.h>

namespace deck {

// Dots per inch at which the window draws; never 0.
int DpiOf(HWND window);

// Of the monitor that holds most of the rectangle, or the nearest one; in screen coordinates.
int DpiAt(const RECT& place);

// Fonts of the system for dialogs and lists, and for status bars, as large as the user wants them.
LOGFONTW MessageFont(int dpi);
LOGFONTW StatusFont(int dpi);

// GetSystemMetrics for the sizes that follow the resolution.
int SystemMetric(int metric, int dpi);

// In WM_NCCREATE: lets the window's frame and menu follow the monitor on systems where that has to
// be asked for.
void ScaleFrameWithDpi(HWND window);

}  // namespace deck
