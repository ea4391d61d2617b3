#include "platform/rectangle.h"

#include <algorithm>

namespace deck {

Rectangle MovedInto(const Rectangle& window, const Rectangle& area) {
  Rectangle moved = window;
  moved.left = std::max(std::min(window.left, area.right() - window.width), area.left);
  moved.top = std::max(std::min(window.top, area.bottom() - window.height), area.top);
  return moved;
}

}  // namespace deck
