// The kinds of windows that the program makes itself.
#pragma once

#include <windows.h>

namespace deck {

struct WindowClass {
  const wchar_t* name = nullptr;
  WNDPROC procedure = nullptr;
  HBRUSH background = nullptr;  // null: the window erases itself
  int extraBytes = 0;
};

// With the usual pointer. A second time changes nothing.
void RegisterWindowClass(const WindowClass& description);

// The usual ground of windows and dialogs.
HBRUSH WindowGround();

}  // namespace deck
