// What the program asks of the main window (`Editor`): tabs, status panels, the states of commands
// and its own place on the screen. The window decides nothing; it shows what it is told and reports
// events to app/editor.h.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/command_id.h"
#include "platform/edit_box.h"

namespace deck {

inline constexpr int kStatusPanels = 8;

struct CommandState {
  bool enabled = true;
  bool checked = false;
  std::u16string caption;  // without the shortcut's text; "&" before the mnemonic
  // `enabled` holds for the menu item only, since it was asked for when the menu opened; the
  // toolbar button, which nobody would enable again, keeps its state.
  bool menuItemOnly = false;

  friend bool operator==(const CommandState&, const CommandState&) = default;
};

// What the taskbar button says about work in the background; while there is some, the pointer over
// the window says so too.
enum class WorkState { kNone, kWorking, kFailed };

enum class WindowState { kNormal = 0, kMinimised = 1, kMaximised = 2 };

// A window's place in twips (1/1440 inch) at its own resolution; the rectangle is the one of the
// normal state, also while the window is minimised or maximised.
struct WindowPlacement {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  WindowState state = WindowState::kNormal;

  friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

class MainWindowView {
 public:
  virtual ~MainWindowView() = default;

  // A new box over the others in the document area, invisible.
  virtual std::unique_ptr<EditBox> CreateEditBox(EditBox::Events events) = 0;

  // Tab positions count from 1. Captions are shown as they are, "&" included.
  virtual void InsertTab(int position, const std::u16string& caption) = 0;
  virtual void RemoveTab(int position) = 0;
  virtual void SetTab(int position, const std::u16string& caption,
                      const std::u16string& toolTip) = 0;
  virtual void SelectTab(int position) = 0;

  // Panels count from 1 to kStatusPanels.
  virtual void SetPanel(int panel, const std::u16string& text) = 0;
  virtual void SetPanelToolTip(int panel, const std::u16string& text) = 0;

  // Menu item and toolbar button of the command alike.
  virtual void SetCommand(CommandId command, const CommandState& state) = 0;
  // Whether the toolbar explains its buttons.
  virtual void ShowToolTips(bool show) = 0;
  // The paths as menu captions, the first on top; an empty list hides that part of the menu.
  virtual void SetRecentFiles(const std::vector<std::u16string>& paths) = 0;

  // Lays the controls out again. `macroFrameWidth` is in pixels at 96 dpi, 0 hides the panel.
  virtual void PositionControls(int macroFrameWidth) = 0;
  // Where the system has no taskbar, or none that can tell, nothing is shown there.
  virtual void ShowWork(WorkState state) = 0;
  // Repaints at once: everything, or the panels only.
  virtual void Refresh() = 0;
  virtual void RefreshPanels() = 0;

  virtual WindowPlacement Placement() const = 0;
  // Moves a window that would lie outside every monitor onto the nearest one.
  virtual void Place(const WindowPlacement& placement) = 0;
  // Width and height of the screen in twips.
  virtual std::pair<float, float> ScreenSize() const = 0;
  // Asks the window to close, as its close box does.
  virtual void Close() = 0;
};

}  // namespace deck
