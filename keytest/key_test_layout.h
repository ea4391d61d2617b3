// Where the controls of the key tester stand (`ResizeStuff`), as arithmetic on rectangles. The
// window only applies it. Everything is in pixels of the client area; no width or height is ever
// negative.
#pragma once

#include <array>

#include "documents/layout.h"

namespace deck {

// Round the boxes, in twips: at the sides, below and between them, and above them.
inline constexpr int kKeyBoxMargin = 60;
inline constexpr int kKeyBoxTop = 630;

inline constexpr int kKeyLamps = 4;

struct KeyTestSizes {
  int clientWidth = 0;
  int clientHeight = 0;
  int lineHeight = 0;  // of the labels' font
  // Of the labels' texts.
  std::array<int, kKeyLamps> lampWidths{};
  int menusWidth = 0;
  int headingWidth = 0;
  int warningWidth = 0;
  bool viewAll = true;
  int dpi = 96;
};

struct KeyTestLayout {
  std::array<Rectangle, kKeyLamps> lamps;  // Shift, Ctrl, Alt, Num Lock
  Rectangle menus;                         // `Label1`
  Rectangle heading;                       // `Label3`
  Rectangle warning;                       // `LBL_ModeWarning`
  Rectangle events;                        // `RTFKeysText`; empty when it is hidden
  Rectangle names;                         // `RTFKeysDownText`

  friend bool operator==(const KeyTestLayout&, const KeyTestLayout&) = default;
};

// Two rows of labels above the boxes: lamps and menu switch, heading and warning. With large fonts
// the boxes begin lower than the margin says, so that the rows have room.
KeyTestLayout ResizeStuff(const KeyTestSizes& sizes);

}  // namespace deck
