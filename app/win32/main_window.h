// The main window (`Editor`): menus, tabs, edit boxes, macro panel and status bar. It shows what it
// is told through MainWindowView and reports what happened through Events; it decides nothing.
// Owned by the program's entry.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "app/command_table.h"
#include "app/hand_over.h"
#include "app/win32/menu_bar.h"
#include "app/win32/status_bar_control.h"
#include "app/win32/tab_strip.h"
#include "app/win32/toolbar.h"
#include "documents/layout.h"
#include "documents/win32/rich_edit_box.h"
#include "macros/win32/macro_panel_window.h"
#include "platform/event_loop.h"
#include "platform/main_window_view.h"
#include "platform/win32/handles.h"
#include "platform/win32/program_icon.h"
#include "platform/win32/taskbar_button.h"

namespace deck {

class MainWindow : public MainWindowView {
 public:
  // Positions count from 1. Unset functions are not called; queryUnload then allows every close.
  struct Events {
    std::function<void(CommandId command)> execute;
    std::function<void(Menu menu)> menuOpening;
    std::function<void(int position)> tabClicked;
    std::function<void(int position)> tabMiddleClicked;
    std::function<void(int position)> tabHovered;
    std::function<void()> statusBarHovered;
    std::function<void(CommandId command)> toolbarHovered;
    std::function<void(const std::vector<std::u16string>& paths)> filesDropped;
    std::function<void(TimerId timer)> timer;
    std::function<void()> focused;
    // A few times a second and after the keys that the panels show; `clock` is the time of the
    // user's locale without seconds.
    std::function<void(bool insertMode, const std::u16string& clock)> keysAndClock;
    std::function<void(bool minimised)> minimised;
    std::function<void(bool lookedAt)> lookedAt;  // any window of the program is the active one
    std::function<bool()> queryUnload;            // may the window close?
    std::function<void()> unload;                 // it closes now
    // Unset: later starts are not listened to. Whether the message loop waits for the user, and
    // what a later start hands over.
    std::function<bool()> isWaiting;
    std::function<void(const std::u16string& path)> fileHandedOver;
    std::function<void()> stayOpen;  // Windows does not shut down after all
  };

  // Makes the window, hidden. The thread needs OLE and the common controls.
  MainWindow();
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  Events events;

  HWND Handle() const { return window_; }
  HACCEL Shortcuts() const { return shortcuts_.Get(); }
  MacroPanelWindow& MacroPanel() { return *macroPanel_; }
  // For the first time, in the state of the last Place.
  void Show();
  // For every message of the thread; never takes one.
  bool Watch(const MSG& message);

  std::unique_ptr<EditBox> CreateEditBox(EditBox::Events boxEvents) override;
  void InsertTab(int position, const std::u16string& caption) override;
  void RemoveTab(int position) override;
  void SetTab(int position, const std::u16string& caption, const std::u16string& toolTip) override;
  void SelectTab(int position) override;
  void SetPanel(int panel, const std::u16string& text) override;
  void SetPanelToolTip(int panel, const std::u16string& text) override;
  void SetCommand(CommandId command, const CommandState& state) override;
  void ShowToolTips(bool show) override;
  void SetRecentFiles(const std::vector<std::u16string>& paths) override;
  void PositionControls(int macroFrameWidth) override;
  void ShowWork(WorkState state) override;
  void Refresh() override;
  void RefreshPanels() override;
  WindowPlacement Placement() const override;
  void Place(const WindowPlacement& placement) override;
  std::pair<float, float> ScreenSize() const override;
  void Close() override;

 private:
  static constexpr UINT_PTR kHousekeepingTimer = 100;  // apart from the numbers of TimerId
  static constexpr UINT kHousekeepingInterval = 250;   // milliseconds
  static constexpr UINT kFocusMacros = WM_APP;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Nothing when the system's own handling is wanted.
  std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);

  void OnCreate();
  void OnSize(WPARAM kind);
  void OnMinMaxInfo(MINMAXINFO& info) const;
  void OnSettingChange(WPARAM setting);
  void OnDpiChanged(int dpi, const RECT& suggested);
  void OnCommand(WPARAM wParam, LPARAM lParam);
  bool OnNotify(NMHDR& header);
  std::optional<LRESULT> OnSetCursor(LPARAM place) const;
  bool ShowWorkPointer() const;
  std::optional<LRESULT> OnMenuChar(WPARAM wParam);
  void OnFilesDropped(const std::vector<std::u16string>& paths);
  LRESULT OnCopyData(const COPYDATASTRUCT& data);
  void OnTimer(WPARAM timer);
  void OnClose();
  bool OnQueryEndSession();

  // False while a message box or dialog waits for its answer.
  bool IsUsable() const;
  bool MayClose() const;
  EditorState State() const;
  void ComeToFront();
  void End();

  void CreateParts();
  void SetFonts();
  void Arrange();
  HDWP ArrangeMacroPanel(HDWP moves) const;
  void ReportKeysAndClock() const;

  template <class... Arguments>
  static void Report(const std::function<void(Arguments...)>& event,
                     const std::type_identity_t<Arguments>&... arguments) {
    if (event) event(arguments...);
  }

  HWND window_ = nullptr;
  AcceleratorsHandle shortcuts_;
  FontHandle tabFont_;
  FontHandle statusFont_;
  FrameIcons icons_;
  MenuBar menu_;
  std::optional<Toolbar> toolbar_;
  std::optional<TabStrip> tabs_;
  std::optional<StatusBarControl> status_;
  std::optional<MacroPanelWindow> macroPanel_;
  EditBoxSettings editBoxes_;
  std::optional<TaskbarButton> taskbarButton_;
  WorkState work_ = WorkState::kNone;
  MainWindowLayout layout_;
  int macroFrameWidth_ = 0;  // pixels at 96 dpi, 0 while the panel is hidden
  int dpi_ = 96;
  WindowState stateToShow_ = WindowState::kNormal;
  bool minimised_ = false;
  bool placing_ = false;  // the place is set by Place: no size that the system suggests counts
  int depth_ = 0;         // of messages that are dealt with inside each other
  bool closed_ = false;
};

}  // namespace deck
