#include "keytest/key_test_layout.h"

#include <algorithm>

#include "platform/twips.h"

namespace deck {
namespace {

// Pixels at 96 dpi.
constexpr int kRowGap = 2;
constexpr int kLabelPadding = 8;  // on either side of a text with a colour behind it
constexpr int kLabelGap = 4;
constexpr int kHeadingGap = 12;

int NotNegative(int length) {
  return std::max(length, 0);
}

// Some fonts are drawn a little wider than they measure; under Wine at 120 dpi it is a letter in
// twenty.
int DrawnWidth(int measured) {
  return measured + measured / 20;
}

}  // namespace

KeyTestLayout ResizeStuff(const KeyTestSizes& sizes) {
  const auto scaled = [&](int pixels) { return ScaleToDpi(pixels, sizes.dpi); };
  const int margin = PixelsFromTwips(kKeyBoxMargin, sizes.dpi);
  const int rowGap = scaled(kRowGap);
  const int wantedTop = PixelsFromTwips(kKeyBoxTop, sizes.dpi);
  const int rowHeight = std::max((wantedTop - margin - 2 * rowGap) / 2, sizes.lineHeight);
  const int secondRow = margin + rowHeight + rowGap;
  const int top = std::max(wantedTop, secondRow + rowHeight + rowGap);
  const int right = NotNegative(sizes.clientWidth - margin);
  const int width = NotNegative(right - margin);
  const int height = NotNegative(sizes.clientHeight - margin - top);

  KeyTestLayout layout;
  int left = margin;
  for (std::size_t lamp = 0; lamp < layout.lamps.size(); ++lamp) {
    const int lampWidth = sizes.lampWidths[lamp] + 2 * scaled(kLabelPadding);
    layout.lamps[lamp] = {left, margin, lampWidth, rowHeight};
    left += lampWidth + scaled(kLabelGap);
  }
  // Right of the lamps, however narrow the window is.
  const int menusWidth = sizes.menusWidth + 2 * scaled(kLabelPadding);
  layout.menus = {std::max(right - menusWidth, left), margin, menusWidth, rowHeight};

  layout.heading = {margin, secondRow, std::min(DrawnWidth(sizes.headingWidth), width), rowHeight};
  const int room = NotNegative(right - layout.heading.right() - scaled(kHeadingGap));
  const int warningWidth =
      std::min(DrawnWidth(sizes.warningWidth) + 2 * scaled(kLabelPadding), room);
  layout.warning = {right - warningWidth, secondRow, warningWidth, rowHeight};

  if (!sizes.viewAll) {
    layout.names = {margin, top, width, height};
    return layout;
  }
  const int eventsWidth = NotNegative(width - margin) / 2;
  layout.events = {margin, top, eventsWidth, height};
  layout.names = {layout.events.right() + margin, top, NotNegative(width - margin - eventsWidth),
                  height};
  return layout;
}

}  // namespace deck
