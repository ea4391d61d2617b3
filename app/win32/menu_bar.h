// The menus of the main window and its shortcuts, made from the command table. Owned by MainWindow;
// the menu itself belongs to the window it was set on.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "app/command_table.h"
#include "platform/main_window_view.h"
#include "platform/win32/handles.h"

namespace deck {

class MenuBar {
 public:
  MenuBar();

  HMENU Handle() const { return bar_; }
  // Of one of the bar's menus; kNone for any other.
  Menu MenuOf(HMENU popup) const;

  // Commands without a menu item are ignored.
  void SetCommand(CommandId command, const CommandState& state);
  // The paths as captions, the first on top; none hides them together with the item that clears
  // them.
  void SetRecentFiles(const std::vector<std::u16string>& paths);

 private:
  std::u16string Caption(const CommandRow& row) const;
  UINT State(const CommandRow& row) const;
  void Append(HMENU popup, const CommandRow& row) const;
  void RemoveRecentFiles();

  HMENU bar_;
  std::map<Menu, HMENU> popups_;
  std::map<CommandId, CommandState> states_;  // of those that were set
  int recentPosition_ = 0;                    // of that part within the File menu, from 0
  int recentItems_ = 0;                       // with separator and the item that clears them
};

// The shortcuts that the window itself acts on.
AcceleratorsHandle MakeAccelerators();

}  // namespace deck
