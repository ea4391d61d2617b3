#include "keytest/win32/key_test_menus.h"

#include <string>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

HMENU MakePopup(KeyTestMenu menu) {
  const HMENU popup = CreatePopupMenu();
  for (const KeyTestCommandRow& row : kKeyTestCommands) {
    if (row.menu != menu) continue;
    if (row.separatorBefore) AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(popup, MF_STRING, static_cast<UINT_PTR>(row.id), Wide(std::u16string(row.caption)));
  }
  return popup;
}

void Tick(HMENU menu, KeyTestCommand command, bool ticked) {
  CheckMenuItem(menu, static_cast<UINT>(command),
                MF_BYCOMMAND | (ticked ? MF_CHECKED : MF_UNCHECKED));
}

void Enable(HMENU menu, KeyTestCommand command, bool enabled) {
  EnableMenuItem(menu, static_cast<UINT>(command),
                 MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

}  // namespace

HMENU MakeKeyTestMenuBar() {
  const HMENU bar = CreateMenu();
  for (const KeyTestMenuHeading& heading : kKeyTestMenuBar) {
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(MakePopup(heading.menu)),
                Wide(std::u16string(heading.caption)));
  }
  return bar;
}

void TickKeyTestMenus(HMENU bar, const KeyTestLook& look) {
  Tick(bar, KeyTestCommand::kViewAll, look.viewAll);
  for (const KeyTestCommandRow& row : kKeyTestCommands) {
    const int index = ClearDelayIndex(row.id);
    if (index >= 0) Tick(bar, row.id, index == look.clearDelay);
  }
}

KeyTestCommand ChooseFromKeyBoxMenu(HWND owner, POINT where, bool hasSelection, bool hasText) {
  const MenuHandle menu(MakePopup(KeyTestMenu::kBox));
  Enable(menu.Get(), KeyTestCommand::kCopy, hasSelection);
  for (const KeyTestCommand command :
       {KeyTestCommand::kCopyAll, KeyTestCommand::kSaveAsText, KeyTestCommand::kClearBox}) {
    Enable(menu.Get(), command, hasText);
  }
  return static_cast<KeyTestCommand>(TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                    where.x, where.y, 0, owner, nullptr));
}

}  // namespace deck
