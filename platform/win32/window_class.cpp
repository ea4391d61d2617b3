#include "platform/win32/window_class.h"

namespace deck {

void RegisterWindowClass(const WindowClass& description) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = description.procedure;
  kind.cbWndExtra = description.extraBytes;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = description.background;
  kind.lpszClassName = description.name;
  RegisterClassExW(&kind);  // fails harmlessly when it was done before
}

HBRUSH WindowGround() {
  return GetSysColorBrush(COLOR_3DFACE);
}

}  // namespace deck
