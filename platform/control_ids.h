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

  kSSTab1 = 1101,
  kComboTextFind = 1111,
  kMatchCaseF = 1112,
  kWholeWordF = 1113,
  kFindCommand1 = 1114,
  kFindCommand2 = 1115,
  kComboTextReplaceFind = 1121,
  kComboTextReplaceWith = 1122,
  kMatchCaseR = 1123,
  kWholeWordR = 1124,
  kFindCommand3 = 1125,
  kFindCommand5 = 1126,
  kFindCommand6 = 1127,
  kFindCommand4 = 1128,
  kLineToFind = 1131,
  kFindCommand7 = 1132,
  kFindCommand8 = 1133,
  kFindCommand9 = 1141,

  kInfoText = 1301,
  kInfoCommand1 = 1302,

  kLabelSHIFT = 1501,
  kLabelCTRL = 1502,
  kLabelALT = 1503,
  kLabelNUMLOCK = 1504,
  kLabel1 = 1505,
  kLabel3 = 1506,
  kLblModeWarning = 1507,
  kRTFKeysText = 1508,
  kRTFKeysDownText = 1509,
};

// How a window is found.
struct WindowRow {
  std::u16string_view windowClass;
  std::u16string_view title;
};

inline constexpr WindowRow kWindows[] = {
    {u"Editor", u"Wren Deck"},
    {u"FindAndReplace", u"Find and replace"},
    {u"InfoWindow", u"Deck Quick Help"},
    {u"KeyTestForm", u"Key Tester"},
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
    {ControlId::kToolbar1, u"Toolbar1", u"Editor", u"ToolbarWindow32"},
    {ControlId::kText1, u"Text1", u"Editor", u"RICHEDIT50W"},
    {ControlId::kFrameMacros, u"FrameMacros", u"Editor", u"FrameMacros"},
    {ControlId::kCombo1, u"Combo1", u"FrameMacros", u"ComboBox"},
    {ControlId::kList1, u"List1", u"FrameMacros", u"ListBox"},
    {ControlId::kSSTab1, u"SSTab1", u"FindAndReplace", u"SysTabControl32"},
    {ControlId::kComboTextFind, u"ComboTextFind", u"FindAndReplace", u"ComboBox"},
    {ControlId::kMatchCaseF, u"MatchCaseF", u"FindAndReplace", u"Button"},
    {ControlId::kWholeWordF, u"WholeWordF", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand1, u"Command1", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand2, u"Command2", u"FindAndReplace", u"Button"},
    {ControlId::kComboTextReplaceFind, u"ComboTextReplaceFind", u"FindAndReplace", u"ComboBox"},
    {ControlId::kComboTextReplaceWith, u"ComboTextReplaceWith", u"FindAndReplace", u"ComboBox"},
    {ControlId::kMatchCaseR, u"MatchCaseR", u"FindAndReplace", u"Button"},
    {ControlId::kWholeWordR, u"WholeWordR", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand3, u"Command3", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand5, u"Command5", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand6, u"Command6", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand4, u"Command4", u"FindAndReplace", u"Button"},
    {ControlId::kLineToFind, u"LineToFind", u"FindAndReplace", u"Edit"},
    {ControlId::kFindCommand7, u"Command7", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand8, u"Command8", u"FindAndReplace", u"Button"},
    {ControlId::kFindCommand9, u"Command9", u"FindAndReplace", u"Button"},
    {ControlId::kInfoText, u"InfoText", u"InfoWindow", u"RICHEDIT50W"},
    {ControlId::kInfoCommand1, u"Command1", u"InfoWindow", u"Button"},
    {ControlId::kLabelSHIFT, u"LabelSHIFT", u"KeyTestForm", u"Static"},
    {ControlId::kLabelCTRL, u"LabelCTRL", u"KeyTestForm", u"Static"},
    {ControlId::kLabelALT, u"LabelALT", u"KeyTestForm", u"Static"},
    {ControlId::kLabelNUMLOCK, u"LabelNUMLOCK", u"KeyTestForm", u"Static"},
    {ControlId::kLabel1, u"Label1", u"KeyTestForm", u"Static"},
    {ControlId::kLabel3, u"Label3", u"KeyTestForm", u"Static"},
    {ControlId::kLblModeWarning, u"LBL_ModeWarning", u"KeyTestForm", u"Static"},
    {ControlId::kRTFKeysText, u"RTFKeysText", u"KeyTestForm", u"KeyLogBox"},
    {ControlId::kRTFKeysDownText, u"RTFKeysDownText", u"KeyTestForm", u"KeyLogBox"},
};

}  // namespace deck
