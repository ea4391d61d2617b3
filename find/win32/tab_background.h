// What lies behind labels and boxes that stand on a tab control: they have to be painted on the
// tab's own surface, which the system's themes give a colour or pattern of its own.
#pragma once

#include <windows.h>

#include "platform/win32/handles.h"

namespace deck {

class TabBackground {
 public:
  // Looks the surface up anew: the tab control has another size or theme.
  void Forget() { brush_.Reset(); }

  // For WM_CTLCOLORSTATIC and WM_CTLCOLORBTN of a control beside the tab control.
  HBRUSH BrushFor(HWND tabs, HWND control, HDC context);

 private:
  BrushHandle brush_;
};

}  // namespace deck
