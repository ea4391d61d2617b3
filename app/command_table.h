// Every command of the main window, once: menus, accelerators, toolbar, dispatch and
// docs/automation.md are all made from this table.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/command_id.h"

namespace deck {

enum class Menu { kNone, kFile, kEdit, kFind, kView, kTools, kDownload, kApps, kHelp };

struct MenuHeading {
  Menu menu;
  std::u16string_view caption;
};

// In the order of the menu bar.
inline constexpr MenuHeading kMenuBar[] = {
    {Menu::kFile, u"&File"}, {Menu::kEdit, u"&Edit"},   {Menu::kFind, u"F&ind"},
    {Menu::kView, u"&View"}, {Menu::kTools, u"&Tools"}, {Menu::kDownload, u"&Download"},
    {Menu::kApps, u"&Apps"}, {Menu::kHelp, u"&Help"},
};

// `key` is a virtual-key code: letters are their capitals. 0 means no shortcut.
struct Shortcut {
  std::uint16_t key = 0;
  bool control = false;
  bool shift = false;
  bool alt = false;
  // Shown in the menu only: the edit box or the system acts on the key by itself.
  bool shownOnly = false;

  friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

inline constexpr std::uint16_t kKeyTab = 0x09;
inline constexpr std::uint16_t kKeyDelete = 0x2E;
constexpr std::uint16_t FunctionKey(int number) {
  return static_cast<std::uint16_t>(0x70 + number - 1);
}

struct CommandRow {
  CommandId id = CommandId::kNone;
  Menu menu = Menu::kNone;
  std::u16string_view controlName = {};
  int controlIndex = -1;  // within a control array; -1: not an array
  std::u16string_view caption = {};
  Shortcut shortcut = {};
  bool separatorBefore = false;
  int toolbarIndex = 0;  // from 1; 0: no button
  std::u16string_view hint = {};
};

inline constexpr Shortcut Control(char16_t letter) {
  return {.key = static_cast<std::uint16_t>(letter), .control = true};
}
inline constexpr Shortcut ControlShift(char16_t letter) {
  return {.key = static_cast<std::uint16_t>(letter), .control = true, .shift = true};
}

// The row of kRecentFile1 stands for the whole list of recent files.
inline constexpr CommandRow kCommands[] = {
    {.id = CommandId::kFileNew,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 0,
     .caption = u"&New",
     .shortcut = Control(u'N'),
     .toolbarIndex = 1,
     .hint = u"Create a new file"},
    {.id = CommandId::kFileOpen,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 1,
     .caption = u"&Open...",
     .shortcut = Control(u'O'),
     .toolbarIndex = 2,
     .hint = u"Open a file"},
    {.id = CommandId::kFileSave,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 2,
     .caption = u"&Save",
     .shortcut = Control(u'S'),
     .toolbarIndex = 3,
     .hint = u"Save currently selected file"},
    {.id = CommandId::kFileSaveAs,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 3,
     .caption = u"Save &As...",
     .shortcut = {.key = FunctionKey(12)}},
    {.id = CommandId::kFileSaveAll,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 4,
     .caption = u"Save A&ll",
     .shortcut = ControlShift(u'S')},
    {.id = CommandId::kFileClose,
     .menu = Menu::kFile,
     .controlName = u"mnuFileArray1",
     .controlIndex = 5,
     .caption = u"&Close",
     .shortcut = {.key = FunctionKey(4), .control = true}},
    {.id = CommandId::kPrint,
     .menu = Menu::kFile,
     .controlName = u"mnuPrint",
     .caption = u"&Print",
     .shortcut = Control(u'P'),
     .separatorBefore = true,
     .toolbarIndex = 5,
     .hint = u"Print currently selected file"},
    {.id = CommandId::kPrinterSetup,
     .menu = Menu::kFile,
     .controlName = u"mnuPrinterSetup",
     .caption = u"Printer Set&up..."},
    {.id = CommandId::kRecentFile1,
     .menu = Menu::kFile,
     .controlName = u"mnuPreviousArray",
     .controlIndex = 1,
     .separatorBefore = true},
    {.id = CommandId::kClearRecentFiles,
     .menu = Menu::kFile,
     .controlName = u"mnuPreviousClearAll",
     .caption = u"Clea&r recent files"},
    {.id = CommandId::kExit,
     .menu = Menu::kFile,
     .controlName = u"mnuExit",
     .caption = u"E&xit",
     .shortcut = {.key = FunctionKey(4), .alt = true, .shownOnly = true},
     .separatorBefore = true},

    {.id = CommandId::kUndo,
     .menu = Menu::kEdit,
     .controlName = u"mnuUndo",
     .caption = u"&Undo",
     .shortcut = Control(u'Z')},
    {.id = CommandId::kCut,
     .menu = Menu::kEdit,
     .controlName = u"mnuEditCCP",
     .controlIndex = 0,
     .caption = u"Cu&t",
     .shortcut = Control(u'X'),
     .separatorBefore = true,
     .toolbarIndex = 7,
     .hint = u"Cut"},
    {.id = CommandId::kCopy,
     .menu = Menu::kEdit,
     .controlName = u"mnuEditCCP",
     .controlIndex = 1,
     .caption = u"&Copy",
     .shortcut = Control(u'C'),
     .toolbarIndex = 8,
     .hint = u"Copy"},
    {.id = CommandId::kPaste,
     .menu = Menu::kEdit,
     .controlName = u"mnuEditCCP",
     .controlIndex = 2,
     .caption = u"&Paste",
     .shortcut = Control(u'V'),
     .toolbarIndex = 9,
     .hint = u"Paste"},
    {.id = CommandId::kDelete,
     .menu = Menu::kEdit,
     .controlName = u"mnuEditCCP",
     .controlIndex = 3,
     .caption = u"&Delete",
     .shortcut = {.key = kKeyDelete, .shownOnly = true}},
    {.id = CommandId::kSelectAll,
     .menu = Menu::kEdit,
     .controlName = u"mnuEditSelAll",
     .caption = u"Select &all",
     .shortcut = Control(u'A'),
     .separatorBefore = true},
    {.id = CommandId::kRefreshFonts,
     .menu = Menu::kEdit,
     .controlName = u"mnuRefreshFonts",
     .caption = u"Refresh &fonts"},
    {.id = CommandId::kKeyTest,
     .menu = Menu::kEdit,
     .controlName = u"mnuKeyTest",
     .caption = u"&Key tester...",
     .shortcut = {.key = FunctionKey(6)},
     .separatorBefore = true,
     .toolbarIndex = 18,
     .hint = u"Test the output from your controllers using the Keytester"},

    {.id = CommandId::kFind,
     .menu = Menu::kFind,
     .controlName = u"mnuFRGArray",
     .controlIndex = 0,
     .caption = u"&Find...",
     .shortcut = Control(u'F'),
     .toolbarIndex = 11,
     .hint = u"Find word or phrase in file"},
    {.id = CommandId::kReplace,
     .menu = Menu::kFind,
     .controlName = u"mnuFRGArray",
     .controlIndex = 1,
     .caption = u"&Replace...",
     .shortcut = Control(u'H'),
     .toolbarIndex = 12,
     .hint = u"Find word or phrase in file and replace with some other text"},
    {.id = CommandId::kGotoLine,
     .menu = Menu::kFind,
     .controlName = u"mnuFRGArray",
     .controlIndex = 2,
     .caption = u"&Goto line...",
     .shortcut = Control(u'G'),
     .toolbarIndex = 13,
     .hint = u"Goto line number - useful when a download files with an error at a line number"},
    {.id = CommandId::kFindAgain, .controlName = u"(F3)", .shortcut = {.key = FunctionKey(3)}},

    {.id = CommandId::kViewMacros,
     .menu = Menu::kView,
     .controlName = u"mnuViewMacros",
     .caption = u"View &macros",
     .shortcut = Control(u'M'),
     .toolbarIndex = 15,
     .hint = u"View the macros list"},
    {.id = CommandId::kUpdateMacroList,
     .menu = Menu::kView,
     .controlName = u"mnuUpdateMacroList",
     .caption = u"&Update macro list",
     .shortcut = {.key = FunctionKey(5)},
     .toolbarIndex = 16,
     .hint = u"Update macros in the macro list to reflect changes to the macro file"},

    {.id = CommandId::kBlockRem,
     .menu = Menu::kTools,
     .controlName = u"mnuBlockRem",
     .controlIndex = 0,
     .caption = u"Block &REM",
     .shortcut = Control(u'K')},
    {.id = CommandId::kBlockUnRem,
     .menu = Menu::kTools,
     .controlName = u"mnuBlockRem",
     .controlIndex = 1,
     .caption = u"Block &un-REM",
     .shortcut = ControlShift(u'K')},
    {.id = CommandId::kAlignSlashes,
     .menu = Menu::kTools,
     .controlName = u"mnuAlignSlashes",
     .caption = u"&Align slash modifiers",
     .shortcut = Control(u'L'),
     .separatorBefore = true},
    {.id = CommandId::kIndentWhenAligning,
     .menu = Menu::kTools,
     .controlName = u"mnuIndentBTN",
     .caption = u"&Indent statements when aligning"},

    {.id = CommandId::kCompile,
     .menu = Menu::kDownload,
     .controlName = u"mnuCompile",
     .caption = u"&Compile",
     .shortcut = {.key = FunctionKey(9)},
     .toolbarIndex = 20,
     .hint = u"Compile joystick file"},
    {.id = CommandId::kDownload,
     .menu = Menu::kDownload,
     .controlName = u"mnuFileDownload",
     .caption = u"&Download",
     .shortcut = {.key = FunctionKey(9), .control = true},
     .toolbarIndex = 21,
     .hint = u"Download joystick file to joystick"},
    {.id = CommandId::kEnableAfterDownload,
     .menu = Menu::kDownload,
     .controlName = u"mnuDownloadEnable",
     .caption = u"&Enable after download",
     .separatorBefore = true},
    {.id = CommandId::kIgnoreRunApp,
     .menu = Menu::kDownload,
     .controlName = u"DownloadArray1",
     .controlIndex = 0,
     .caption = u"Ignore RUN_APP statements on download"},

    {.id = CommandId::kAppWren,
     .menu = Menu::kApps,
     .controlName = u"mnuAppsArray",
     .controlIndex = 0,
     .caption = u"&Wren"},
    {.id = CommandId::kAppStarter,
     .menu = Menu::kApps,
     .controlName = u"mnuAppsArray",
     .controlIndex = 1,
     .caption = u"&Starter"},
    {.id = CommandId::kAppControlPanel,
     .menu = Menu::kApps,
     .controlName = u"mnuAppsArray",
     .controlIndex = 2,
     .caption = u"HOTAS &control panel"},

    {.id = CommandId::kHelpTopics,
     .menu = Menu::kHelp,
     .controlName = u"mnuHelpTopics",
     .caption = u"&Help topics",
     .shortcut = {.key = FunctionKey(1)},
     .toolbarIndex = 23,
     .hint = u"View the help file"},
    {.id = CommandId::kHelpSyntax,
     .menu = Menu::kHelp,
     .controlName = u"mnuTMhelp",
     .controlIndex = 0,
     .caption = u"&Syntax",
     .shortcut = {.key = FunctionKey(1), .shift = true},
     .separatorBefore = true},
    {.id = CommandId::kHelpSlashModifiers,
     .menu = Menu::kHelp,
     .controlName = u"mnuTMhelp",
     .controlIndex = 1,
     .caption = u"Slash &modifiers"},
    {.id = CommandId::kHelpErrorCodes,
     .menu = Menu::kHelp,
     .controlName = u"mnuTMhelp",
     .controlIndex = 2,
     .caption = u"&Error codes"},
    {.id = CommandId::kHelpVersion,
     .menu = Menu::kHelp,
     .controlName = u"mnuHelpVersion",
     .caption = u"&Version",
     .separatorBefore = true},

    {.id = CommandId::kNextTab,
     .controlName = u"(Ctrl+Tab)",
     .shortcut = {.key = kKeyTab, .control = true}},
    {.id = CommandId::kPreviousTab,
     .controlName = u"(Ctrl+Shift+Tab)",
     .shortcut = {.key = kKeyTab, .control = true, .shift = true}},
};

inline constexpr int kToolbarButtons = 23;  // the last index; the missing ones are separators

constexpr const CommandRow* FindCommand(CommandId id) {
  for (const CommandRow& row : kCommands) {
    if (row.id == id) return &row;
  }
  return nullptr;
}

// "Ctrl+Shift+S"; empty when there is no shortcut.
std::u16string ShortcutText(const Shortcut& shortcut);

namespace command_table_checks {

constexpr bool IdsAreUnique() {
  for (const CommandRow& row : kCommands) {
    if (FindCommand(row.id) != &row) return false;
  }
  return true;
}

constexpr bool ShortcutsAreUnique() {
  for (const CommandRow& row : kCommands) {
    for (const CommandRow& other : kCommands) {
      if (&row != &other && row.shortcut.key != 0 && row.shortcut == other.shortcut) return false;
    }
  }
  return true;
}

constexpr bool ToolbarIndexesAreUnique() {
  for (const CommandRow& row : kCommands) {
    for (const CommandRow& other : kCommands) {
      if (&row != &other && row.toolbarIndex != 0 && row.toolbarIndex == other.toolbarIndex) {
        return false;
      }
    }
  }
  return true;
}

static_assert(IdsAreUnique());
static_assert(ShortcutsAreUnique());
static_assert(ToolbarIndexesAreUnique());

}  // namespace command_table_checks

}  // namespace deck
