#include "keytest/key_test_layout.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/twips.h"

namespace deck {
namespace {

KeyTestSizes SizesAt(int dpi) {
  const auto scaled = [dpi](int pixels) { return ScaleToDpi(pixels, dpi); };
  return {.clientWidth = scaled(872),
          .clientHeight = scaled(534),
          .lineHeight = scaled(15),
          .lampWidths = {scaled(30), scaled(30), scaled(20), scaled(60)},
          .menusWidth = scaled(40),
          .headingWidth = scaled(140),
          .warningWidth = scaled(320),
          .viewAll = true,
          .dpi = dpi};
}

std::vector<Rectangle> AllOf(const KeyTestLayout& layout) {
  std::vector<Rectangle> all(layout.lamps.begin(), layout.lamps.end());
  for (const Rectangle& other :
       {layout.menus, layout.heading, layout.warning, layout.events, layout.names}) {
    all.push_back(other);
  }
  return all;
}

bool Overlap(const Rectangle& one, const Rectangle& other) {
  return one.left < other.right() && other.left < one.right() && one.top < other.bottom() &&
         other.top < one.bottom();
}

class KeyTestLayouts : public testing::TestWithParam<int> {};

TEST_P(KeyTestLayouts, TheBoxesKeepTheirMargins) {
  const int dpi = GetParam();
  const KeyTestSizes sizes = SizesAt(dpi);
  const KeyTestLayout layout = ResizeStuff(sizes);
  const int margin = PixelsFromTwips(60, dpi);
  const int top = PixelsFromTwips(630, dpi);
  EXPECT_EQ(layout.events.left, margin);
  EXPECT_EQ(layout.names.right(), sizes.clientWidth - margin);
  EXPECT_EQ(layout.names.left, layout.events.right() + margin);
  for (const Rectangle& box : {layout.events, layout.names}) {
    EXPECT_EQ(box.top, top);
    EXPECT_EQ(box.bottom(), sizes.clientHeight - margin);
  }
  EXPECT_NEAR(layout.events.width, layout.names.width, 1);
}

TEST_P(KeyTestLayouts, TheNamesAloneTakeTheWholeWidth) {
  KeyTestSizes sizes = SizesAt(GetParam());
  const KeyTestLayout both = ResizeStuff(sizes);
  sizes.viewAll = false;
  const KeyTestLayout alone = ResizeStuff(sizes);
  EXPECT_EQ(alone.events, Rectangle{});
  EXPECT_EQ(alone.names.left, both.events.left);
  EXPECT_EQ(alone.names.right(), both.names.right());
  EXPECT_EQ(alone.names.top, both.names.top);
}

TEST_P(KeyTestLayouts, NothingCoversAnythingElse) {
  const std::vector<Rectangle> all = AllOf(ResizeStuff(SizesAt(GetParam())));
  for (std::size_t one = 0; one < all.size(); ++one) {
    for (std::size_t other = one + 1; other < all.size(); ++other) {
      EXPECT_FALSE(Overlap(all[one], all[other])) << one << " and " << other;
    }
  }
}

TEST_P(KeyTestLayouts, TheLabelsHoldTheirTexts) {
  const KeyTestSizes sizes = SizesAt(GetParam());
  const KeyTestLayout layout = ResizeStuff(sizes);
  for (std::size_t lamp = 0; lamp < layout.lamps.size(); ++lamp) {
    EXPECT_GT(layout.lamps[lamp].width, sizes.lampWidths[lamp]);
    EXPECT_GE(layout.lamps[lamp].height, sizes.lineHeight);
  }
  EXPECT_GT(layout.menus.width, sizes.menusWidth);
  // With room for fonts that are drawn wider than they measure.
  EXPECT_GE(layout.heading.width, sizes.headingWidth + sizes.headingWidth / 20);
  EXPECT_GT(layout.warning.width, sizes.warningWidth);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, KeyTestLayouts, testing::Values(96, 144, 192));

TEST(KeyTestLayout, LargeFontsMoveTheBoxesDown) {
  KeyTestSizes sizes = SizesAt(96);
  sizes.lineHeight = 40;
  const KeyTestLayout layout = ResizeStuff(sizes);
  EXPECT_GE(layout.heading.height, 40);
  EXPECT_GE(layout.names.top, layout.heading.bottom());
  EXPECT_EQ(layout.names.bottom(), sizes.clientHeight - 4);
}

TEST(KeyTestLayout, NoSizeIsNegativeInAWindowWithoutRoom) {
  for (const int width : {-1, 0, 3, 50}) {
    for (const int height : {-1, 0, 20, 45}) {
      KeyTestSizes sizes = SizesAt(96);
      sizes.clientWidth = width;
      sizes.clientHeight = height;
      for (const Rectangle& place : AllOf(ResizeStuff(sizes))) {
        EXPECT_GE(place.width, 0);
        EXPECT_GE(place.height, 0);
      }
    }
  }
}

}  // namespace
}  // namespace deck
