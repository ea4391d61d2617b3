// The program's icon for the frames of its windows.
#pragma once

#include <windows.h>

#include "platform/win32/handles.h"

namespace deck {

// Its number among the program's resources: the lowest, which the system itself shows.
inline constexpr int kProgramIcon = 1;

// The images that a window's frame and its task bar button show, sharp at the window's resolution.
class FrameIcons {
 public:
  void Set(HWND window, int dpi);

 private:
  IconHandle large_;
  IconHandle small_;
};

}  // namespace deck
