#include "app/win32/menu_bar.h"

#include <utility>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

UINT_PTR ItemId(CommandId command) {
  return static_cast<UINT_PTR>(command);
}

void AppendSeparator(HMENU menu) {
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

bool BelongsToRecentFiles(CommandId command) {
  return command == CommandId::kRecentFile1 || command == CommandId::kClearRecentFiles;
}

}  // namespace

MenuBar::MenuBar() : bar_(CreateMenu()) {
  for (const MenuHeading& heading : kMenuBar) {
    const HMENU popup = CreatePopupMenu();
    popups_[heading.menu] = popup;
    for (const CommandRow& row : kCommands) {
      if (row.menu != heading.menu) continue;
      if (row.id == CommandId::kRecentFile1) recentPosition_ = GetMenuItemCount(popup);
      if (BelongsToRecentFiles(row.id)) continue;
      if (row.separatorBefore) AppendSeparator(popup);
      Append(popup, row);
    }
    const std::u16string caption(heading.caption);
    AppendMenuW(bar_, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), Wide(caption));
  }
}

Menu MenuBar::MenuOf(HMENU popup) const {
  for (const auto& [menu, handle] : popups_) {
    if (handle == popup) return menu;
  }
  return Menu::kNone;
}

std::u16string MenuBar::Caption(const CommandRow& row) const {
  const auto state = states_.find(row.id);
  std::u16string caption(state == states_.end() ? row.caption : state->second.caption);
  const std::u16string shortcut = ShortcutText(row.shortcut);
  if (!shortcut.empty()) caption += u'\t' + shortcut;
  return caption;
}

UINT MenuBar::State(const CommandRow& row) const {
  const auto state = states_.find(row.id);
  if (state == states_.end()) return MFS_ENABLED;
  return static_cast<UINT>((state->second.enabled ? MFS_ENABLED : MFS_DISABLED) |
                           (state->second.checked ? MFS_CHECKED : MFS_UNCHECKED));
}

void MenuBar::Append(HMENU popup, const CommandRow& row) const {
  AppendMenuW(popup, MF_STRING | State(row), ItemId(row.id), Wide(Caption(row)));
}

void MenuBar::SetCommand(CommandId command, const CommandState& state) {
  const CommandRow* row = FindCommand(command);
  if (row == nullptr || row->menu == Menu::kNone) return;
  states_[command] = state;
  std::u16string caption = Caption(*row);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING | MIIM_STATE;
  item.fState = State(*row);
  item.dwTypeData = MutableWide(caption);
  SetMenuItemInfoW(popups_[row->menu], static_cast<UINT>(command), FALSE, &item);
}

void MenuBar::RemoveRecentFiles() {
  const HMENU menu = popups_[Menu::kFile];
  while (recentItems_ > 0) {
    DeleteMenu(menu, static_cast<UINT>(recentPosition_), MF_BYPOSITION);
    --recentItems_;
  }
}

void MenuBar::SetRecentFiles(const std::vector<std::u16string>& paths) {
  RemoveRecentFiles();
  if (paths.empty()) return;
  const HMENU menu = popups_[Menu::kFile];
  const auto insert = [&](UINT flags, CommandId command, const std::u16string& caption) {
    InsertMenuW(menu, static_cast<UINT>(recentPosition_ + recentItems_), MF_BYPOSITION | flags,
                ItemId(command), Wide(caption));
    ++recentItems_;
  };
  insert(MF_SEPARATOR, CommandId::kNone, {});
  int id = static_cast<int>(CommandId::kRecentFile1);
  for (const std::u16string& path : paths) {
    if (id > static_cast<int>(CommandId::kRecentFileLast)) break;
    insert(MF_STRING, static_cast<CommandId>(id), DoubleAmpersands(path));
    ++id;
  }
  const CommandRow& clear = *FindCommand(CommandId::kClearRecentFiles);
  insert(MF_STRING | State(clear), clear.id, Caption(clear));
}

AcceleratorsHandle MakeAccelerators() {
  std::vector<ACCEL> keys;
  for (const CommandRow& row : kCommands) {
    if (row.shortcut.key == 0 || row.shortcut.shownOnly) continue;
    const int modifiers = FVIRTKEY | (row.shortcut.control ? FCONTROL : 0) |
                          (row.shortcut.shift ? FSHIFT : 0) | (row.shortcut.alt ? FALT : 0);
    keys.push_back({static_cast<BYTE>(modifiers), row.shortcut.key, static_cast<WORD>(row.id)});
  }
  return AcceleratorsHandle(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

}  // namespace deck
