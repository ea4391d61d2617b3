#include "platform/rectangle.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(MovedInto, WindowOutsideTheAreaTouchesTheNearestEdgeFromInside) {
  const Rectangle area{0, 0, 1280, 1000};
  const struct {
    Rectangle window;
    Rectangle moved;
  } cases[] = {
      {{-5000, 100, 800, 600}, {0, 100, 800, 600}}, {{5000, 100, 800, 600}, {480, 100, 800, 600}},
      {{100, -700, 800, 600}, {100, 0, 800, 600}},  {{100, 3000, 800, 600}, {100, 400, 800, 600}},
      {{-32000, -32000, 160, 30}, {0, 0, 160, 30}},
  };
  for (const auto& [window, moved] : cases) EXPECT_EQ(MovedInto(window, area), moved);
}

TEST(MovedInto, AreaNeedNotBeginAtZero) {
  EXPECT_EQ(MovedInto({0, 0, 800, 600}, {-1920, 40, 1920, 1040}), (Rectangle{-800, 40, 800, 600}));
}

TEST(MovedInto, WindowLargerThanTheAreaShowsItsUpperLeftCorner) {
  EXPECT_EQ(MovedInto({9000, 9000, 3000, 2000}, {0, 0, 1280, 1000}), (Rectangle{0, 0, 3000, 2000}));
}

TEST(MovedInto, WindowInsideTheAreaStays) {
  EXPECT_EQ(MovedInto({10, 20, 800, 600}, {0, 0, 1280, 1000}), (Rectangle{10, 20, 800, 600}));
}

}  // namespace
}  // namespace deck
