// Keeps a window and what is in it from painting while the object lives; then it is painted with
// the next messages.
#pragma once

#include <windows.h>

#include <optional>

namespace deck {

class PaintPause {
 public:
  explicit PaintPause(HWND window);
  // When no more than the area will look different. In client coordinates.
  PaintPause(HWND window, const RECT& area);
  ~PaintPause();
  PaintPause(const PaintPause&) = delete;
  PaintPause& operator=(const PaintPause&) = delete;

 private:
  HWND window_;
  std::optional<RECT> area_;
};

}  // namespace deck
