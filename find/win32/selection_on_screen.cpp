#include "find/win32/selection_on_screen.h"

#include <richedit.h>

#include <algorithm>

#include "platform/control_ids.h"

namespace deck {
namespace {

POINTL PlaceOf(HWND box, LONG position) {
  POINTL place{};
  SendMessageW(box, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), position);
  return place;
}

// The caret is as high as a line.
LONG LineHeight() {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  constexpr LONG kAtLeast = 10;
  if (!GetGUIThreadInfo(GetCurrentThreadId(), &thread)) return kAtLeast;
  return std::max(kAtLeast, thread.rcCaret.bottom - thread.rcCaret.top);
}

}  // namespace

std::optional<Rectangle> SelectionOnScreen() {
  const HWND box = GetFocus();
  if (box == nullptr || GetDlgCtrlID(box) != static_cast<int>(ControlId::kText1)) {
    return std::nullopt;
  }
  CHARRANGE selection{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const POINTL start = PlaceOf(box, selection.cpMin);
  const POINTL end = PlaceOf(box, selection.cpMax);
  RECT client{};
  GetClientRect(box, &client);
  RECT seen = {start.x, start.y, end.x, end.y + LineHeight()};
  if (start.y != end.y) {
    seen.left = client.left;
    seen.right = client.right;
  }
  if (!IntersectRect(&seen, &seen, &client)) return std::nullopt;
  MapWindowPoints(box, nullptr, reinterpret_cast<POINT*>(&seen), 2);
  return Rectangle{seen.left, seen.top, seen.right - seen.left, seen.bottom - seen.top};
}

}  // namespace deck
