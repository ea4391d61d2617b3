// `TabStrip1`: one tab per document. Owned by MainWindow; positions count from 1.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/tool_tips.h"

namespace deck {

class TabStrip {
 public:
  // Unset functions are not called.
  struct Events {
    std::function<void(int position)> clicked;
    std::function<void(int position)> middleClicked;
    std::function<void(int position)> hovered;
  };

  TabStrip(HWND parent, Events events);

  HWND Handle() const { return window_; }
  // The window keeps the font; it must live as long as the window does or until the next call.
  void SetFont(HFONT font, int dpi);

  // Captions and tool tips are shown letter for letter, "&" included. A position that is not there
  // does nothing; inserting puts it behind the last tab at most.
  void Insert(int position, const std::u16string& caption);
  void Remove(int position);
  void Set(int position, const std::u16string& caption, const std::u16string& toolTip);
  void Select(int position);

  // From the parent's WM_NOTIFY; false for messages of other controls.
  bool OnNotify(NMHDR& header);

 private:
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  int PositionAt(LPARAM point) const;
  void ShowToolTipOf(int position);

  HWND window_;
  Events events_;
  ToolTips tips_;
  std::vector<std::u16string> toolTips_;
  int pointed_ = 0;  // tab that has the tool tip, 0 for none
  int pressed_ = 0;  // tab under the middle button when it went down, 0 for none
};

}  // namespace deck
