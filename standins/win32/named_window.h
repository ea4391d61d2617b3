#pragma once

// The small window behind which the stand-ins for Wren, Starter and the control panel stand: a
// title and one line of text.

#include <windows.h>

#include <string>

namespace deck {

// Shows the window and runs the program's message loop until it is closed; gives the exit code: 0,
// or 1 when the window could not be made. `show` is the style the program was started with.
int ShowNamedWindow(HINSTANCE instance, const std::wstring& title, const std::wstring& line,
                    int show);

}  // namespace deck
