// One number per command of the main window: the menu item's id, the accelerator's and the toolbar
// button's alike. The numbers are part of the scripting interface (docs/automation.md): never
// renumber, only add. What belongs to each command stands in app/command_table.h.
#pragma once

namespace deck {

enum class CommandId : int {
  kNone = 0,

  kFileNew = 101,
  kFileOpen = 102,
  kFileSave = 103,
  kFileSaveAs = 104,
  kFileSaveAll = 105,
  kFileClose = 106,
  kPrint = 107,
  kPrinterSetup = 108,
  kClearRecentFiles = 109,
  kExit = 110,

  kUndo = 201,
  kCut = 202,
  kCopy = 203,
  kPaste = 204,
  kDelete = 205,
  kSelectAll = 206,
  kRefreshFonts = 207,
  kKeyTest = 208,

  kFind = 301,
  kReplace = 302,
  kGotoLine = 303,
  kFindAgain = 304,

  kViewMacros = 401,
  kUpdateMacroList = 402,

  kBlockRem = 501,
  kBlockUnRem = 502,
  kAlignSlashes = 503,
  kIndentWhenAligning = 504,

  kCompile = 601,
  kDownload = 602,
  kEnableAfterDownload = 603,
  kIgnoreRunApp = 604,

  kAppWren = 701,
  kAppStarter = 702,
  kAppControlPanel = 703,

  kHelpTopics = 801,
  kHelpSyntax = 802,
  kHelpSlashModifiers = 803,
  kHelpErrorCodes = 804,
  kHelpVersion = 805,

  kNextTab = 901,
  kPreviousTab = 902,

  kRecentFile1 = 2001,  // entry i of the recent files is kRecentFile1 + i - 1
  kRecentFileLast = 34767,
};

}  // namespace deck
