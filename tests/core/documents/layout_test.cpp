#include "documents/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace deck {
namespace {

class LayoutAtDpi : public testing::TestWithParam<int> {
 protected:
  static int Scaled(double pixels) { return static_cast<int>(pixels * GetParam() / 96 + 0.5); }

  // A window of 1000 x 700 pixels at 96 dpi with a toolbar and a status bar.
  static MainWindowSizes Window(int macroFrameWidth) {
    return {.clientWidth = Scaled(1000),
            .clientHeight = Scaled(700),
            .toolbarHeight = Scaled(30),
            .statusBarHeight = Scaled(26),
            .macroFrameWidth = macroFrameWidth,
            .dpi = GetParam()};
  }
};

INSTANTIATE_TEST_SUITE_P(Dpi, LayoutAtDpi, testing::Values(96, 120, 144, 192, 288));

TEST_P(LayoutAtDpi, TabStripFillsTheWindowBetweenToolbarAndStatusBarWhileThePanelIsHidden) {
  const MainWindowLayout layout = PositionControls(Window(0));
  EXPECT_EQ(layout.tabStrip,
            (Rectangle{0, Scaled(30), Scaled(1000), Scaled(700) - Scaled(26) - Scaled(30)}));
  EXPECT_EQ(layout.macroFrame, Rectangle{});
}

TEST_P(LayoutAtDpi, EditBoxLiesInsideTheTabStripWithScaledOffsets) {
  for (const int macroFrameWidth : {0, 300}) {
    const MainWindowLayout layout = PositionControls(Window(macroFrameWidth));
    EXPECT_EQ(layout.editBox.left, layout.tabStrip.left + Scaled(3));
    EXPECT_EQ(layout.editBox.top, layout.tabStrip.top + Scaled(23));
    EXPECT_EQ(layout.editBox.width, layout.tabStrip.width - Scaled(6));
  }
}

TEST_P(LayoutAtDpi, EditBoxIsLowerThanTheTabStripByTheStatusBar) {
  for (const int macroFrameWidth : {0, 300}) {
    const MainWindowLayout layout = PositionControls(Window(macroFrameWidth));
    EXPECT_EQ(layout.editBox.height, layout.tabStrip.height - Scaled(26));
  }
}

TEST_P(LayoutAtDpi, EditBoxEndsInsideTheTabStripWithTheLeastStatusBar) {
  MainWindowSizes sizes = Window(0);
  sizes.statusBarHeight = LeastStatusBarHeight(GetParam());
  const MainWindowLayout layout = PositionControls(sizes);
  EXPECT_EQ(layout.editBox.bottom(), layout.tabStrip.bottom() - Scaled(3));
}

TEST_P(LayoutAtDpi, MacroPanelStandsLeftOfTheTabStripWithItsWidthScaled) {
  const MainWindowLayout layout = PositionControls(Window(300));
  EXPECT_EQ(layout.macroFrame.left, 0);
  EXPECT_EQ(layout.macroFrame.width, Scaled(300));
  EXPECT_EQ(layout.tabStrip.left, layout.macroFrame.right());
  EXPECT_EQ(layout.tabStrip.right(), Scaled(1000));
  EXPECT_EQ(layout.macroFrame.top, layout.tabStrip.top);
  EXPECT_EQ(layout.macroFrame.height, layout.tabStrip.height);
}

TEST_P(LayoutAtDpi, MacroPanelIsNeverNarrowerThanItsEdgeNeedsToBeFound) {
  EXPECT_EQ(PositionControls(Window(1)).macroFrame.width, Scaled(100));
}

TEST_P(LayoutAtDpi, MacroPanelLeavesRoomForTheText) {
  for (const int asked : {801, 1000, 32767}) {
    const MainWindowLayout layout = PositionControls(Window(asked));
    EXPECT_EQ(layout.tabStrip.width, Scaled(200)) << asked;
    EXPECT_EQ(layout.macroFrame.width, Scaled(1000) - Scaled(200)) << asked;
  }
}

TEST_P(LayoutAtDpi, TextKeepsItsRoomWhenTheWindowHoldsNotEvenTheNarrowestPanel) {
  MainWindowSizes sizes = Window(300);
  sizes.clientWidth = Scaled(250);
  EXPECT_EQ(PositionControls(sizes).tabStrip.width, Scaled(200));
  sizes.clientWidth = Scaled(150);
  EXPECT_EQ(PositionControls(sizes).tabStrip.width, Scaled(150));
  EXPECT_EQ(PositionControls(sizes).macroFrame, Rectangle{});
}

TEST_P(LayoutAtDpi, NegativeWidthHidesThePanel) {
  EXPECT_EQ(PositionControls(Window(-5)), PositionControls(Window(0)));
}

TEST_P(LayoutAtDpi, NoRectangleHasANegativeSide) {
  for (int width = 0; width < Scaled(320); width += 7) {
    for (int height = 0; height < Scaled(120); height += 5) {
      for (const int panel : {0, 1, 300}) {
        MainWindowSizes sizes = Window(panel);
        sizes.clientWidth = width;
        sizes.clientHeight = height;
        const MainWindowLayout layout = PositionControls(sizes);
        for (const Rectangle& part : {layout.macroFrame, layout.tabStrip, layout.editBox}) {
          ASSERT_GE(part.width, 0) << width << " x " << height;
          ASSERT_GE(part.height, 0) << width << " x " << height;
        }
      }
    }
  }
}

MacroFrameSizes Frame(int width, int height, int dpi) {
  return {.width = width,
          .height = height,
          .labelHeight = 15 * dpi / 96,
          .headingsHeight = 23 * dpi / 96,
          .dpi = dpi};
}

TEST_P(LayoutAtDpi, MacroPanelStacksLabelHeadingsAndMacrosWithoutOverlap) {
  const MacroFrameLayout layout = LayOutMacroFrame(Frame(Scaled(300), Scaled(500), GetParam()));
  EXPECT_LE(layout.label.bottom(), layout.headings.top);
  EXPECT_LE(layout.headings.bottom(), layout.macros.top);
  EXPECT_EQ(layout.macros.bottom(), Scaled(500) - Scaled(3));
  for (const Rectangle& part : {layout.label, layout.headings, layout.macros}) {
    EXPECT_EQ(part.left, Scaled(3));
    EXPECT_EQ(part.right(), layout.splitter.left);
  }
}

TEST_P(LayoutAtDpi, SplitterIsTheRightEdgeOfTheMacroPanelInFullHeight) {
  const MacroFrameLayout layout = LayOutMacroFrame(Frame(Scaled(300), Scaled(500), GetParam()));
  EXPECT_EQ(layout.splitter, (Rectangle{Scaled(300) - Scaled(5), 0, Scaled(5), Scaled(500)}));
}

TEST_P(LayoutAtDpi, MacroPanelOfAnySizeHasNoNegativeSides) {
  for (int width = 0; width < Scaled(40); ++width) {
    for (int height = 0; height < Scaled(80); height += 3) {
      const MacroFrameLayout layout = LayOutMacroFrame(Frame(width, height, GetParam()));
      for (const Rectangle& part :
           {layout.label, layout.headings, layout.macros, layout.splitter}) {
        ASSERT_GE(part.width, 0) << width << " x " << height;
        ASSERT_GE(part.height, 0) << width << " x " << height;
      }
    }
  }
}

TEST(StatusPanelEdges, FirstPanelTakesWhatTheOthersLeave) {
  EXPECT_EQ(StatusPanelEdges(1000, {0, 80, 60, 30, 40, 40, 50, 200}),
            (std::array{500, 580, 640, 670, 710, 750, 800, 1000}));
}

TEST(StatusPanelEdges, WantedWidthOfTheFirstPanelDoesNotCount) {
  EXPECT_EQ(StatusPanelEdges(1000, {999, 80, 60, 30, 40, 40, 50, 200}),
            StatusPanelEdges(1000, {0, 80, 60, 30, 40, 40, 50, 200}));
}

TEST(StatusPanelEdges, FirstPanelKeepsAThirdOfANarrowBar) {
  const auto edges = StatusPanelEdges(300, {0, 80, 60, 30, 40, 40, 50, 200});
  EXPECT_EQ(edges[0], 100);
  EXPECT_EQ(edges[1] - edges[0], 80 * 200 / 500);
  EXPECT_EQ(edges[7], 300);
}

TEST(StatusPanelEdges, EdgesNeverGoBackAndEndAtTheBarsEnd) {
  for (const int bar : {-10, 0, 1, 7, 250, 5000}) {
    for (const int wide : {-20, 0, 30, 2'000'000'000}) {
      const auto edges = StatusPanelEdges(bar, {0, 80, 60, 30, 40, 40, 50, wide});
      EXPECT_TRUE(std::is_sorted(edges.begin(), edges.end())) << bar << ' ' << wide;
      EXPECT_EQ(edges.back(), std::max(bar, 0)) << bar << ' ' << wide;
      EXPECT_GE(edges.front(), 0) << bar << ' ' << wide;
    }
  }
}

TEST(StatusPanelEdges, EmptyPanelsLeaveTheWholeBarToTheFirst) {
  EXPECT_EQ(StatusPanelEdges(640, {}), (std::array{640, 640, 640, 640, 640, 640, 640, 640}));
}

}  // namespace
}  // namespace deck
