// Numbers of the windows' controls. They are part of the scripting interface (docs/automation.md):
// never renumber, only add.
#pragma once

namespace deck {

enum class ControlId : int {
  kTabStrip1 = 1001,
  kStatusBar1 = 1002,
  kToolbar1 = 1003,
  kText1 = 1004,  // every edit box; the visible one holds the document of the selected tab
  kFrameMacros = 1005,
  kCombo1 = 1006,
  kList1 = 1007,
};

}  // namespace deck
