#include "find/win32/tab_background.h"

namespace deck {
namespace {

BrushHandle SurfaceOf(HWND tabs) {
  RECT client{};
  GetClientRect(tabs, &client);
  const HDC window = GetDC(tabs);
  const DeviceContextHandle memory(CreateCompatibleDC(window));
  const BitmapHandle bitmap(CreateCompatibleBitmap(window, client.right, client.bottom));
  ReleaseDC(tabs, window);
  const HGDIOBJ previous = SelectObject(memory.Get(), bitmap.Get());
  FillRect(memory.Get(), &client, GetSysColorBrush(COLOR_BTNFACE));
  SendMessageW(tabs, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory.Get()), PRF_CLIENT);
  SelectObject(memory.Get(), previous);
  return BrushHandle(CreatePatternBrush(bitmap.Get()));
}

}  // namespace

HBRUSH TabBackground::BrushFor(HWND tabs, HWND control, HDC context) {
  if (!brush_) brush_ = SurfaceOf(tabs);
  POINT corner{};
  MapWindowPoints(tabs, control, &corner, 1);
  SetBrushOrgEx(context, corner.x, corner.y, nullptr);
  SetBkMode(context, TRANSPARENT);
  // Who gives the ground gives the colour on it, which would be black in every scheme.
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  return brush_.Get();
}

}  // namespace deck
