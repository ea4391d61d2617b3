// Numbers of the windows' controls. They are part of the scripting interface (docs/automation.md):
// never renumber, only add.
#pragma once

#include <string_view>

namespace deck {

enum class ControlId : int {
  kTabStrip1 = 1001,
  kStatusBar1 = 1002,
  kToolbar1 = 1003,
  kText1 = 1004,  // every edit box; the visible one holds the document of the selected tab
  kFrameMacros = 1005,
  kCombo1 = 1006,
  kList1 = 1007,

  kInfoText = 1301,
  kInfoCommand1 = 1302,
};

// Where and as what a control is found.
struct ControlRow {
  ControlId id;
  std::u16string_view name;
  std::u16string_view window;       // class of the window it belongs to
  std::u16string_view windowClass;  // its own class
};

inline constexpr ControlRow kControls[] = {
    {ControlId::kTabStrip1, u"TabStrip1", u"Editor", u"SysTabControl32"},
    {ControlId::kStatusBar1, u"StatusBar1", u"Editor", u"msctls_statusbar32"},
    {ControlId::kText1, u"Text1", u"Editor", u"RICHEDIT50W"},
    {ControlId::kFrameMacros, u"FrameMacros", u"Editor", u"FrameMacros"},
    {ControlId::kCombo1, u"Combo1", u"FrameMacros", u"ComboBox"},
    {ControlId::kList1, u"List1", u"FrameMacros", u"ListBox"},
    {ControlId::kInfoText, u"InfoText", u"InfoWindow", u"RICHEDIT50W"},
    {ControlId::kInfoCommand1, u"Command1", u"InfoWindow", u"Button"},
};

}  // namespace deck
