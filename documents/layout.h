// Where the controls of the main window stand (`PositionControls`), as arithmetic on rectangles.
// The windows only apply it. All results are in pixels of the client area they divide, and no width
// or height is ever negative, however small the window is.
#pragma once

#include <array>

#include "platform/main_window_view.h"
#include "platform/rectangle.h"

namespace deck {

// Pixels at 96 dpi. The text keeps its room when window and panel cannot both have theirs.
inline constexpr int kNarrowestMacroFrame = 100;
inline constexpr int kNarrowestTabStrip = 200;
inline constexpr int kSplitterWidth = 5;

// The main window.

struct MainWindowSizes {
  int clientWidth = 0;
  int clientHeight = 0;
  int toolbarHeight = 0;
  int statusBarHeight = 0;
  int macroFrameWidth = 0;  // pixels at 96 dpi; 0 hides the panel
  int dpi = 96;
};

struct MainWindowLayout {
  Rectangle macroFrame;  // empty while the panel is hidden
  Rectangle tabStrip;
  Rectangle editBox;

  friend bool operator==(const MainWindowLayout&, const MainWindowLayout&) = default;
};

MainWindowLayout PositionControls(const MainWindowSizes& sizes);

// The least height of the status bar, with which the edit boxes, that are lower than the tab strip
// by just this height, end inside the tab strip instead of reaching over its lower edge.
int LeastStatusBarHeight(int dpi);

// The macro panel: label, headings and macros from top to bottom, the edge to drag on the right.

struct MacroFrameSizes {
  int width = 0;
  int height = 0;
  int labelHeight = 0;
  int headingsHeight = 0;
  int dpi = 96;
};

struct MacroFrameLayout {
  Rectangle label;
  Rectangle headings;
  Rectangle macros;
  Rectangle splitter;

  friend bool operator==(const MacroFrameLayout&, const MacroFrameLayout&) = default;
};

MacroFrameLayout LayOutMacroFrame(const MacroFrameSizes& sizes);

// The status bar: right edges of its panels for the widths that panels 2 to 8 want (wanted[0] is
// not read). Panel 1 takes what the others leave; when that would be less than a third of the bar,
// the others give up the same share of their widths each.
std::array<int, kStatusPanels> StatusPanelEdges(int barWidth,
                                                const std::array<int, kStatusPanels>& wanted);

}  // namespace deck
