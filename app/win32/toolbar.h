// `Toolbar1`: a button for each row of the command table that has a place on the bar, separators in
// the places between. Owned by MainWindow. A click reaches the window as WM_COMMAND with the
// command's number.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <map>

#include "app/command_table.h"
#include "platform/main_window_view.h"
#include "platform/win32/handles.h"

namespace deck {

using ImageListHandle = Handle<HandleKind<HIMAGELIST, ImageList_Destroy>>;

class Toolbar {
 public:
  // `hovered` is called when the pointer moves over a visible button.
  Toolbar(HWND parent, std::function<void(CommandId command)> hovered);

  HWND Handle() const { return window_; }
  // Sharp images of the size that fits the resolution.
  void SetDpi(int dpi);
  // In pixels, as of the last SetDpi.
  int Height() const;

  void SetCommand(CommandId command, const CommandState& state);
  void ShowToolTips(bool show);
  // True when the notice was the bar's and is dealt with.
  bool OnNotify(NMHDR& header) const;

 private:
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void AddButtons();
  void OnMouseMove(LPARAM point) const;

  HWND window_;
  std::function<void(CommandId)> hovered_;
  ImageListHandle images_;
};

}  // namespace deck
