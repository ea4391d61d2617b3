// The program's icon for the frames of windows beside the main one.
#pragma once

#include <windows.h>

namespace deck {

// Its number among the program's resources: the lowest, which the system itself shows.
inline constexpr int kProgramIcon = 1;

// Shared: not to be destroyed. The system finds the smaller image of the frame by it. Null in a
// program without the icon.
inline HICON ProgramIcon() {
  return LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kProgramIcon));
}

}  // namespace deck
