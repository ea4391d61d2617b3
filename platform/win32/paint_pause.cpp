#include "platform/win32/paint_pause.h"

namespace deck {

// An invisible window must not be told to paint again: that would make it visible.
PaintPause::PaintPause(HWND window, std::optional<RECT> area)
    : window_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0 ? window : nullptr),
      area_(area) {
  if (window_ != nullptr) SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

PaintPause::~PaintPause() {
  if (window_ == nullptr) return;
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  if (area_) {
    InvalidateRect(window_, &*area_, TRUE);
    return;
  }
  RedrawWindow(window_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

}  // namespace deck
