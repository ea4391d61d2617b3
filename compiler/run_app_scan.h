// Finds the programs that a joystick file asks to be started after a download:
//
//   use wren run_app C:\Tools\Track.exe window_style 1   rem starts the tracker
//
// Values in, values out; owned by nobody.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/programs.h"

namespace deck {

struct AppToRun {
  std::u16string commandLine;  // never empty
  ProgramWindow window = ProgramWindow::kMinimisedWithoutFocus;

  friend bool operator==(const AppToRun&, const AppToRun&) = default;
};

// In the order of the lines of `text`. Lines that are no such statement are passed over.
std::vector<AppToRun> FindAppsToRun(std::u16string_view text);

}  // namespace deck
