// The main window as plain values. What the program may not ask for (a tab that is not there)
// throws.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/main_window_view.h"

namespace deck {

class FakeMainWindowView : public MainWindowView {
 public:
  struct Tab {
    std::u16string caption;
    std::u16string toolTip;

    friend bool operator==(const Tab&, const Tab&) = default;
  };

  std::unique_ptr<EditBox> CreateEditBox(EditBox::Events events) override;
  void InsertTab(int position, const std::u16string& caption) override;
  void RemoveTab(int position) override;
  void SetTab(int position, const std::u16string& caption, const std::u16string& toolTip) override;
  void SelectTab(int position) override;
  void SetPanel(int panel, const std::u16string& text) override;
  void SetPanelToolTip(int panel, const std::u16string& text) override;
  void SetCommand(CommandId command, const CommandState& state) override;
  void ShowToolTips(bool show) override { toolTips = show; }
  void SetRecentFiles(const std::vector<std::u16string>& paths) override;
  void PositionControls(int width) override;
  void ShowWork(WorkState state) override { work = state; }
  void Refresh() override { ++refreshes; }
  void RefreshPanels() override { paintedMessages.push_back(panels[0]); }
  WindowPlacement Placement() const override { return placement; }
  void Place(const WindowPlacement& where) override;
  std::pair<float, float> ScreenSize() const override { return screenSize; }
  void Close() override;

  // Both count from 1.
  const Tab& TabAt(int position) const;
  const std::u16string& Panel(int panel) const;
  const std::u16string& PanelToolTip(int panel) const;
  std::vector<std::u16string> Captions() const;

  // Makes a FakeEditBox unless a test has boxes of its own.
  std::function<std::unique_ptr<EditBox>(EditBox::Events)> makeEditBox;
  // Runs in Close, as the window's own question whether it may close.
  std::function<void()> onClose;

  std::vector<Tab> tabs;
  std::vector<int> selections;  // every tab that was selected, in order
  int selectedTab = 0;          // from 1, 0 for none; moves along when tabs before it come and go
  std::array<std::u16string, kStatusPanels> panels;  // from 0
  std::vector<std::u16string> messages;              // every text of the first panel, in order
  std::vector<std::u16string> paintedMessages;       // that stood there when panels were repainted
  std::array<std::u16string, kStatusPanels> panelToolTips;  // from 0
  std::map<CommandId, CommandState> commands;
  std::vector<std::u16string> recentFiles;
  bool toolTips = true;
  int macroFrameWidth = -1;  // of the last PositionControls, -1 before the first
  int positionings = 0;
  WorkState work = WorkState::kNone;
  int refreshes = 0;
  int closings = 0;
  WindowPlacement placement{0, 0, 13320, 8895, WindowState::kNormal};
  std::vector<WindowPlacement> placements;  // asked for, in order
  std::pair<float, float> screenSize{19200, 15360};

 private:
  Tab& At(int position);
};

}  // namespace deck
