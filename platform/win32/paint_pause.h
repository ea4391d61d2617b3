// Keeps a window and what is in it from painting while the object lives; then it is painted with
// the next messages.
#pragma once

#include <windows.h>

#include <optional>

namespace deck {

class PaintPause {
 public:
  // `area`, in client coordinates, when no more than that will look different.
  explicit PaintPause(HWND window, std::optional<RECT> area = std::nullopt);
  ~PaintPause();
  PaintPause(const PaintPause&) = delete;
  PaintPause& operator=(const PaintPause&) = delete;

 private:
  HWND window_;
  std::optional<RECT> area_;
};

}  // namespace deck
