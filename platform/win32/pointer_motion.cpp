#include "platform/win32/pointer_motion.h"

#include <windowsx.h>

namespace deck {
namespace {

POINT lastSeen{-1, -1};  // in screen coordinates

}  // namespace

bool HasPointerMoved(HWND window, LPARAM point) {
  POINT now{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  ClientToScreen(window, &now);
  const bool moved = now.x != lastSeen.x || now.y != lastSeen.y;
  lastSeen = now;
  return moved;
}

void NotePointer() {
  if (POINT now{}; GetCursorPos(&now)) lastSeen = now;
}

}  // namespace deck
