// The menu items of the key tester, once: its menus, its context menu and docs/automation.md are
// made from this table. The numbers are part of the scripting interface: never renumber, only add.
#pragma once

#include <string_view>

namespace deck {

enum class KeyTestCommand : int {
  kNone = 0,

  kClearAll = 1401,
  kForFonts = 1402,
  kStickOff = 1403,
  kClose = 1404,
  kViewAll = 1405,
  kClearDelay0 = 1411,  // item i of `mnuClear500` is kClearDelay0 + i
  kClearDelay4 = 1415,

  // Of the context menu of either box.
  kCopy = 1421,
  kCopyAll = 1422,
  kSaveAsText = 1423,
  kClearBox = 1424,
};

enum class KeyTestMenu { kFile, kView, kClearDelay, kBox };

struct KeyTestMenuHeading {
  KeyTestMenu menu;
  std::u16string_view caption;
};

// In the order of the menu bar.
inline constexpr KeyTestMenuHeading kKeyTestMenuBar[] = {
    {KeyTestMenu::kFile, u"&File"},
    {KeyTestMenu::kView, u"&View"},
    {KeyTestMenu::kClearDelay, u"&Clear delay"},
};

struct KeyTestCommandRow {
  KeyTestCommand id;
  KeyTestMenu menu;
  std::u16string_view controlName;
  int controlIndex = -1;  // within a control array; -1: not an array
  std::u16string_view caption;
  bool separatorBefore = false;
};

inline constexpr KeyTestCommandRow kKeyTestCommands[] = {
    {KeyTestCommand::kClearAll, KeyTestMenu::kFile, u"mnuClearAll", -1, u"Clear &all"},
    {KeyTestCommand::kForFonts, KeyTestMenu::kFile, u"mnuForFonts", -1, u"&Font..."},
    {KeyTestCommand::kStickOff, KeyTestMenu::kFile, u"mnuStickOff", -1, u"Switch stick &off", true},
    {KeyTestCommand::kClose, KeyTestMenu::kFile, u"mnuClose", -1, u"&Close", true},
    {KeyTestCommand::kViewAll, KeyTestMenu::kView, u"mnuViewAll", -1, u"&View all"},
    {KeyTestCommand{1411}, KeyTestMenu::kClearDelay, u"mnuClear500", 0, u"&200 ms"},
    {KeyTestCommand{1412}, KeyTestMenu::kClearDelay, u"mnuClear500", 1, u"&400 ms"},
    {KeyTestCommand{1413}, KeyTestMenu::kClearDelay, u"mnuClear500", 2, u"&600 ms"},
    {KeyTestCommand{1414}, KeyTestMenu::kClearDelay, u"mnuClear500", 3, u"&800 ms"},
    {KeyTestCommand{1415}, KeyTestMenu::kClearDelay, u"mnuClear500", 4, u"&1000 ms"},
    {KeyTestCommand::kCopy, KeyTestMenu::kBox, u"(copy)", -1, u"&Copy"},
    {KeyTestCommand::kCopyAll, KeyTestMenu::kBox, u"(copy all)", -1, u"Copy &all"},
    {KeyTestCommand::kSaveAsText, KeyTestMenu::kBox, u"(save as text)", -1, u"&Save as text..."},
    {KeyTestCommand::kClearBox, KeyTestMenu::kBox, u"(clear)", -1, u"C&lear", true},
};

// The item of `mnuClear500` that the command is, from 0; -1 for every other command.
constexpr int ClearDelayIndex(KeyTestCommand command) {
  const bool isOne =
      command >= KeyTestCommand::kClearDelay0 && command <= KeyTestCommand::kClearDelay4;
  return isOne ? static_cast<int>(command) - static_cast<int>(KeyTestCommand::kClearDelay0) : -1;
}

}  // namespace deck
