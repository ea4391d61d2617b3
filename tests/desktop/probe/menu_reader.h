// Reads menus of other processes.
#pragma once

#include <windows.h>

#include <string>

namespace deck::probe {

// JSON of the window's menu bar, or of an open popup menu when `window` is the popup's own window
// (class "#32768"): items with caption, id (-1 for one that opens a submenu), separator, enabled,
// checked, rect (on the screen; without meaning while closed) and their own items. Throws
// std::runtime_error.
std::string ReadMenuOf(HWND window);

}  // namespace deck::probe
