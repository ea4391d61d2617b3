// A place on the screen or in a window, in pixels.
#pragma once

namespace deck {

struct Rectangle {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int right() const { return left + width; }
  int bottom() const { return top + height; }
  friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

// The window moved, not resized, so that as much as possible of it lies in the area. What is larger
// than the area keeps its upper left corner inside.
Rectangle MovedInto(const Rectangle& window, const Rectangle& area);

}  // namespace deck
