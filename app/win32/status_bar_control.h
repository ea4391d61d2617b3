// `StatusBar1`: eight panels at the lower edge of the main window, their tool tips and the pointer
// over them. Owned by MainWindow; panels count from 1.
#pragma once

#include <windows.h>

#include <array>
#include <bitset>
#include <functional>
#include <string>

#include "platform/main_window_view.h"
#include "platform/win32/tool_tips.h"

namespace deck {

class StatusBarControl {
 public:
  // `hovered` is called when the pointer moves over the bar.
  StatusBarControl(HWND parent, std::function<void()> hovered);

  HWND Handle() const { return window_; }
  // The window keeps the font; it must live as long as the window does or until the next call.
  void SetFont(HFONT font, int dpi);

  void SetPanel(int panel, const std::u16string& text);
  void SetPanelToolTip(int panel, const std::u16string& text);

  // Puts the bar at the lower edge of its parent and the panels into the bar.
  void Arrange();
  // In pixels, as of the last Arrange.
  int Height() const;

 private:
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void ShowTexts();
  // Width that each panel wants.
  std::array<int, kStatusPanels> Wanted() const;
  void ArrangePanels();
  void ShowToolTips();

  HWND window_;
  std::function<void()> hovered_;
  ToolTips tips_;
  std::array<std::u16string, kStatusPanels> texts_;
  std::bitset<kStatusPanels> unshown_;  // the control has not got these yet
  bool showingTexts_ = false;
  std::array<std::u16string, kStatusPanels> toolTips_;
  std::array<int, kStatusPanels> edges_{};
  HFONT font_ = nullptr;
  int dpi_ = 96;
};

}  // namespace deck
