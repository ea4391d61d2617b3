#include "platform/win32/pointer_motion.h"

#include <windowsx.h>

namespace deck {
namespace {

// In screen coordinates.
POINT lastSeen{-1, -1};
POINT atLastTick{-1, -1};

bool IsSame(POINT left, POINT right) {
  return left.x == right.x && left.y == right.y;
}

}  // namespace

bool HasPointerMoved(HWND window, LPARAM point) {
  POINT now{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  ClientToScreen(window, &now);
  const bool moved = !IsSame(now, lastSeen);
  lastSeen = now;
  return moved;
}

void NotePointer() {
  if (POINT now{}; GetCursorPos(&now)) lastSeen = now;
}

void NoteRestingPointer() {
  POINT now{};
  if (!GetCursorPos(&now)) return;
  if (IsSame(now, atLastTick)) lastSeen = now;
  atLastTick = now;
}

}  // namespace deck
