// A window of the program's in front of all others. Shared by windows that stand beside the main
// window.
#pragma once

#include <windows.h>

namespace deck {

// Shows the window, restored when it was minimised, in front and with the keyboard.
void ShowInFront(HWND window);

}  // namespace deck
