#include "help/info_window_layout.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(InfoWindowLayout, FillsTheWindowAboveTheButton) {
  const InfoWindowLayout layout = LayOutInfoWindow(600, 500, 96);
  EXPECT_EQ(layout.text, (Rectangle{0, 0, 600, 458}));
  EXPECT_EQ(layout.ok, (Rectangle{256, 466, 88, 26}));
}

TEST(InfoWindowLayout, ScalesWithTheResolution) {
  const InfoWindowLayout layout = LayOutInfoWindow(1200, 1000, 192);
  EXPECT_EQ(layout.text, (Rectangle{0, 0, 1200, 916}));
  EXPECT_EQ(layout.ok, (Rectangle{512, 932, 176, 52}));
}

TEST(InfoWindowLayout, KeepsTheButtonInAnySize) {
  for (const int size : {0, 1, 20, 60}) {
    const InfoWindowLayout layout = LayOutInfoWindow(size, size, 144);
    EXPECT_GE(layout.text.height, 0);
    EXPECT_GE(layout.ok.left, 0);
    EXPECT_GE(layout.ok.top, 0);
    EXPECT_LE(layout.ok.right(), size);
    EXPECT_LE(layout.ok.bottom(), std::max(size, layout.ok.height));
  }
}

}  // namespace
}  // namespace deck
