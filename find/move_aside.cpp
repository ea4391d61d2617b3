#include "find/move_aside.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace deck {
namespace {

std::int64_t SharedArea(const Rectangle& left, const Rectangle& right) {
  const std::int64_t width =
      std::min(left.right(), right.right()) - std::max(left.left, right.left);
  const std::int64_t height =
      std::min(left.bottom(), right.bottom()) - std::max(left.top, right.top);
  return width > 0 && height > 0 ? width * height : 0;
}

bool Inside(const Rectangle& inner, const Rectangle& outer) {
  return inner.left >= outer.left && inner.right() <= outer.right() && inner.top >= outer.top &&
         inner.bottom() <= outer.bottom();
}

int Distance(const Rectangle& from, const Rectangle& to) {
  return std::abs(from.left - to.left) + std::abs(from.top - to.top);
}

Rectangle MovedTo(const Rectangle& window, int left, int top) {
  return {left, top, window.width, window.height};
}

Rectangle CornerThatHidesLeast(const Rectangle& window, const Rectangle& match,
                               const Rectangle& workArea) {
  const int right = std::max(workArea.left, workArea.right() - window.width);
  const int bottom = std::max(workArea.top, workArea.bottom() - window.height);
  const std::array<Rectangle, 4> corners = {
      MovedTo(window, right, bottom), MovedTo(window, right, workArea.top),
      MovedTo(window, workArea.left, bottom), MovedTo(window, workArea.left, workArea.top)};
  return *std::min_element(corners.begin(), corners.end(),
                           [&match](const Rectangle& a, const Rectangle& b) {
                             return SharedArea(a, match) < SharedArea(b, match);
                           });
}

}  // namespace

bool Overlap(const Rectangle& left, const Rectangle& right) {
  return SharedArea(left, right) > 0;
}

Rectangle MoveAside(const Rectangle& window, const Rectangle& match, const Rectangle& workArea) {
  if (!Overlap(window, match)) return window;
  const Rectangle start = MovedInto(window, workArea);
  if (!Overlap(start, match)) return start;
  std::array<Rectangle, 4> places = {
      MovedTo(start, start.left, match.bottom()),
      MovedTo(start, start.left, match.top - start.height),
      MovedTo(start, match.right(), start.top),
      MovedTo(start, match.left - start.width, start.top),
  };
  std::stable_sort(places.begin(), places.end(), [&](const Rectangle& a, const Rectangle& b) {
    return Distance(start, a) < Distance(start, b);
  });
  for (const Rectangle& place : places) {
    if (Inside(place, workArea)) return place;
  }
  return CornerThatHidesLeast(start, match, workArea);
}

}  // namespace deck
