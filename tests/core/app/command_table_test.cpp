#include "app/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/strings.h"

namespace deck {
namespace {

using Rows = std::vector<std::u16string>;

// "Caption\tshortcut", "-" for a separator, "*" for the recent files.
Rows MenuRows(Menu menu) {
  Rows rows;
  for (const CommandRow& row : kCommands) {
    if (row.menu != menu) continue;
    if (row.separatorBefore) rows.emplace_back(u"-");
    if (row.id == CommandId::kRecentFile1) {
      rows.emplace_back(u"*");
      continue;
    }
    const std::u16string shortcut = ShortcutText(row.shortcut);
    rows.push_back(std::u16string(row.caption) + (shortcut.empty() ? u"" : u"\t" + shortcut));
  }
  return rows;
}

TEST(CommandTable, HasTheMenusInOrder) {
  Rows captions;
  for (const MenuHeading& heading : kMenuBar) captions.emplace_back(heading.caption);
  EXPECT_EQ(captions, (Rows{u"&File", u"&Edit", u"F&ind", u"&View", u"&Tools", u"&Download",
                            u"&Apps", u"&Help"}));
}

TEST(CommandTable, HasTheItemsOfEveryMenu) {
  EXPECT_EQ(
      MenuRows(Menu::kFile),
      (Rows{u"&New\tCtrl+N", u"&Open...\tCtrl+O", u"&Save\tCtrl+S", u"Save &As...\tF12",
            u"Save A&ll\tCtrl+Shift+S", u"&Close\tCtrl+F4", u"-", u"&Print\tCtrl+P",
            u"Printer Set&up...", u"-", u"*", u"Clea&r recent files", u"-", u"E&xit\tAlt+F4"}));
  EXPECT_EQ(MenuRows(Menu::kEdit),
            (Rows{u"&Undo\tCtrl+Z", u"-", u"Cu&t\tCtrl+X", u"&Copy\tCtrl+C", u"&Paste\tCtrl+V",
                  u"&Delete\tDel", u"-", u"Select &all\tCtrl+A", u"Refresh &fonts", u"-",
                  u"&Key tester...\tF6"}));
  EXPECT_EQ(MenuRows(Menu::kFind),
            (Rows{u"&Find...\tCtrl+F", u"&Replace...\tCtrl+H", u"&Goto line...\tCtrl+G"}));
  EXPECT_EQ(MenuRows(Menu::kView), (Rows{u"View &macros\tCtrl+M", u"&Update macro list\tF5"}));
  EXPECT_EQ(MenuRows(Menu::kTools),
            (Rows{u"Block &REM\tCtrl+K", u"Block &un-REM\tCtrl+Shift+K", u"-",
                  u"&Align slash modifiers\tCtrl+L", u"&Indent statements when aligning"}));
  EXPECT_EQ(MenuRows(Menu::kDownload),
            (Rows{u"&Compile\tF9", u"&Download\tCtrl+F9", u"-", u"&Enable after download",
                  u"Ignore RUN_APP statements on download"}));
  EXPECT_EQ(MenuRows(Menu::kApps), (Rows{u"&Wren", u"&Starter", u"HOTAS &control panel"}));
  EXPECT_EQ(MenuRows(Menu::kHelp), (Rows{u"&Help topics\tF1", u"-", u"&Syntax\tShift+F1",
                                         u"Slash &modifiers", u"&Error codes", u"-", u"&Version"}));
}

TEST(CommandTable, HasNoMnemonicTwiceInAMenu) {
  for (const MenuHeading& heading : kMenuBar) {
    std::set<char16_t> seen;
    for (const CommandRow& row : kCommands) {
      const std::size_t mark = row.caption.find(u'&');
      if (row.menu != heading.menu || mark == std::u16string_view::npos) continue;
      EXPECT_TRUE(seen.insert(ToLower(row.caption[mark + 1])).second)
          << "menu " << static_cast<int>(heading.menu) << " item " << static_cast<int>(row.id);
    }
  }
  std::set<char16_t> bar;
  for (const MenuHeading& heading : kMenuBar) {
    EXPECT_TRUE(bar.insert(ToLower(heading.caption[heading.caption.find(u'&') + 1])).second);
  }
}

TEST(CommandTable, HasTheButtonsOfTheToolbarWithTheirHints) {
  std::map<int, std::pair<CommandId, std::u16string>> buttons;
  for (const CommandRow& row : kCommands) {
    if (row.toolbarIndex != 0) buttons[row.toolbarIndex] = {row.id, std::u16string(row.hint)};
  }
  const std::map<int, std::pair<CommandId, std::u16string>> expected = {
      {1, {CommandId::kFileNew, u"Create a new file"}},
      {2, {CommandId::kFileOpen, u"Open a file"}},
      {3, {CommandId::kFileSave, u"Save currently selected file"}},
      {5, {CommandId::kPrint, u"Print currently selected file"}},
      {7, {CommandId::kCut, u"Cut"}},
      {8, {CommandId::kCopy, u"Copy"}},
      {9, {CommandId::kPaste, u"Paste"}},
      {11, {CommandId::kFind, u"Find word or phrase in file"}},
      {12, {CommandId::kReplace, u"Find word or phrase in file and replace with some other text"}},
      {13,
       {CommandId::kGotoLine,
        u"Goto line number - useful when a download files with an error at a line number"}},
      {15, {CommandId::kViewMacros, u"View the macros list"}},
      {16,
       {CommandId::kUpdateMacroList,
        u"Update macros in the macro list to reflect changes to the macro file"}},
      {18, {CommandId::kKeyTest, u"Test the output from your controllers using the Keytester"}},
      {20, {CommandId::kCompile, u"Compile joystick file"}},
      {21, {CommandId::kDownload, u"Download joystick file to joystick"}},
      {23, {CommandId::kHelpTopics, u"View the help file"}},
  };
  EXPECT_EQ(buttons, expected);
}

TEST(CommandTable, FindsTheShortcutsThatStandInNoMenu) {
  EXPECT_EQ(FindCommand(CommandId::kFindAgain)->shortcut.key, FunctionKey(3));
  EXPECT_EQ(ShortcutText(FindCommand(CommandId::kNextTab)->shortcut), u"Ctrl+Tab");
  EXPECT_EQ(ShortcutText(FindCommand(CommandId::kPreviousTab)->shortcut), u"Ctrl+Shift+Tab");
}

}  // namespace
}  // namespace deck
