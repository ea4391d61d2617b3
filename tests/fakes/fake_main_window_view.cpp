#include "tests/fakes/fake_main_window_view.h"

#include <stdexcept>

#include "tests/fakes/fake_edit_box.h"

namespace deck {
namespace {

void Require(bool condition, const char* rule) {
  if (!condition) throw std::logic_error(rule);
}

std::size_t PanelIndex(int panel) {
  Require(panel >= 1 && panel <= kStatusPanels, "there is no such status panel");
  return static_cast<std::size_t>(panel - 1);
}

}  // namespace

std::unique_ptr<EditBox> FakeMainWindowView::CreateEditBox(EditBox::Events events) {
  return makeEditBox ? makeEditBox(std::move(events))
                     : std::make_unique<FakeEditBox>(std::move(events));
}

void FakeMainWindowView::InsertTab(int position, const std::u16string& caption) {
  const int count = static_cast<int>(tabs.size());
  Require(position >= 1 && position <= count + 1, "a tab can stand only beside others");
  tabs.insert(tabs.begin() + position - 1, Tab{caption, {}});
  if (position <= selectedTab) ++selectedTab;
}

void FakeMainWindowView::RemoveTab(int position) {
  At(position);
  tabs.erase(tabs.begin() + position - 1);
  if (position == selectedTab) {
    selectedTab = 0;
  } else if (position < selectedTab) {
    --selectedTab;
  }
}

void FakeMainWindowView::SetTab(int position, const std::u16string& caption,
                                const std::u16string& toolTip) {
  At(position) = {caption, toolTip};
}

void FakeMainWindowView::SelectTab(int position) {
  At(position);
  selectedTab = position;
  selections.push_back(position);
}

void FakeMainWindowView::SetPanel(int panel, const std::u16string& text) {
  panels[PanelIndex(panel)] = text;
  if (panel == 1) messages.push_back(text);
}

void FakeMainWindowView::SetPanelToolTip(int panel, const std::u16string& text) {
  panelToolTips[PanelIndex(panel)] = text;
}

void FakeMainWindowView::SetCommand(CommandId command, const CommandState& state) {
  Require(command != CommandId::kNone, "no command has the number 0");
  commands[command] = state;
}

void FakeMainWindowView::SetRecentFiles(const std::vector<std::u16string>& paths) {
  recentFiles = paths;
}

void FakeMainWindowView::PositionControls(int width) {
  Require(width >= 0, "the macro panel cannot be narrower than nothing");
  macroFrameWidth = width;
  ++positionings;
}

void FakeMainWindowView::Place(const WindowPlacement& where) {
  placement = where;
  placements.push_back(where);
}

void FakeMainWindowView::Close() {
  ++closings;
  if (onClose) onClose();
}

const FakeMainWindowView::Tab& FakeMainWindowView::TabAt(int position) const {
  Require(position >= 1 && position <= static_cast<int>(tabs.size()), "there is no such tab");
  return tabs[static_cast<std::size_t>(position - 1)];
}

const std::u16string& FakeMainWindowView::Panel(int panel) const {
  return panels[PanelIndex(panel)];
}

const std::u16string& FakeMainWindowView::PanelToolTip(int panel) const {
  return panelToolTips[PanelIndex(panel)];
}

std::vector<std::u16string> FakeMainWindowView::Captions() const {
  std::vector<std::u16string> captions;
  for (const Tab& tab : tabs) captions.push_back(tab.caption);
  return captions;
}

FakeMainWindowView::Tab& FakeMainWindowView::At(int position) {
  TabAt(position);
  return tabs[static_cast<std::size_t>(position - 1)];
}

}  // namespace deck
