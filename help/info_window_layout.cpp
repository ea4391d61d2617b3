#include "help/info_window_layout.h"

#include <algorithm>

#include "platform/twips.h"

namespace deck {
namespace {

// Pixels at 96 dpi.
constexpr int kMargin = 8;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;

}  // namespace

InfoWindowLayout LayOutInfoWindow(int width, int height, int dpi) {
  const int margin = ScaleToDpi(kMargin, dpi);
  const int buttonWidth = std::min(ScaleToDpi(kButtonWidth, dpi), width);
  const int buttonHeight = std::min(ScaleToDpi(kButtonHeight, dpi), height);
  const Rectangle ok{(width - buttonWidth) / 2, std::max(height - margin - buttonHeight, 0),
                     buttonWidth, buttonHeight};
  return {.text = {0, 0, width, std::max(ok.top - margin, 0)}, .ok = ok};
}

}  // namespace deck
