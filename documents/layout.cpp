#include "documents/layout.h"

#include <algorithm>
#include <cstdint>

#include "platform/twips.h"

namespace deck {
namespace {

// Of the edit boxes inside the tab strip, in pixels at 96 dpi.
constexpr int kEditBoxLeft = 3;
constexpr int kEditBoxTop = 23;
constexpr int kEditBoxSides = 6;

constexpr int kMacroFrameGap = 3;

int NotNegative(int length) {
  return std::max(length, 0);
}

int MacroFrameWidth(const MainWindowSizes& sizes) {
  if (sizes.macroFrameWidth <= 0) return 0;
  const int least = ScaleToDpi(kNarrowestMacroFrame, sizes.dpi);
  const int most = sizes.clientWidth - ScaleToDpi(kNarrowestTabStrip, sizes.dpi);
  return NotNegative(std::min(std::max(ScaleToDpi(sizes.macroFrameWidth, sizes.dpi), least), most));
}

}  // namespace

MainWindowLayout PositionControls(const MainWindowSizes& sizes) {
  const int macroFrame = MacroFrameWidth(sizes);
  const int height = NotNegative(sizes.clientHeight - sizes.statusBarHeight - sizes.toolbarHeight);

  MainWindowLayout layout;
  if (macroFrame > 0) layout.macroFrame = {0, sizes.toolbarHeight, macroFrame, height};
  layout.tabStrip = {macroFrame, sizes.toolbarHeight, NotNegative(sizes.clientWidth - macroFrame),
                     height};
  layout.editBox = {
      layout.tabStrip.left + ScaleToDpi(kEditBoxLeft, sizes.dpi),
      layout.tabStrip.top + ScaleToDpi(kEditBoxTop, sizes.dpi),
      NotNegative(layout.tabStrip.width - ScaleToDpi(kEditBoxSides, sizes.dpi)),
      NotNegative(layout.tabStrip.height - sizes.statusBarHeight),
  };
  return layout;
}

int LeastStatusBarHeight(int dpi) {
  return ScaleToDpi(kEditBoxTop, dpi) + ScaleToDpi(kEditBoxLeft, dpi);
}

MacroFrameLayout LayOutMacroFrame(const MacroFrameSizes& sizes) {
  const int gap = ScaleToDpi(kMacroFrameGap, sizes.dpi);
  const int splitter = std::min(ScaleToDpi(kSplitterWidth, sizes.dpi), NotNegative(sizes.width));
  const int width = NotNegative(sizes.width - gap - splitter);

  MacroFrameLayout layout;
  layout.splitter = {NotNegative(sizes.width) - splitter, 0, splitter, NotNegative(sizes.height)};
  layout.label = {gap, gap, width, sizes.labelHeight};
  layout.headings = {gap, layout.label.bottom() + gap, width, sizes.headingsHeight};
  const int top = layout.headings.bottom() + gap;
  layout.macros = {gap, top, width, NotNegative(sizes.height - top - gap)};
  return layout;
}

std::array<int, kStatusPanels> StatusPanelEdges(int barWidth,
                                                const std::array<int, kStatusPanels>& wanted) {
  std::int64_t sum = 0;
  for (std::size_t panel = 1; panel < wanted.size(); ++panel) sum += NotNegative(wanted[panel]);
  const int bar = NotNegative(barWidth);
  const std::int64_t given = std::min<std::int64_t>(sum, bar - bar / 3);

  std::array<int, kStatusPanels> edges{};
  edges[0] = static_cast<int>(bar - given);
  std::int64_t before = 0;
  for (std::size_t panel = 1; panel < wanted.size(); ++panel) {
    before += NotNegative(wanted[panel]);
    const std::int64_t share = sum == 0 ? 0 : before * given / sum;
    edges[panel] = edges[0] + static_cast<int>(share);
  }
  return edges;
}

}  // namespace deck
