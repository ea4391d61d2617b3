#include "documents/win32/edit_context_menu.h"

#include "platform/win32/handles.h"

namespace deck {
namespace {

void Add(HMENU menu, EditMenuCommand command, const wchar_t* caption, bool enabled) {
  AppendMenuW(menu, MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), static_cast<UINT_PTR>(command),
              caption);
}

void AddSeparator(HMENU menu) {
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

}  // namespace

EditMenuCommand ChooseFromEditMenu(HWND owner, POINT where, const EditMenuState& state) {
  const MenuHandle menu(CreatePopupMenu());
  Add(menu.Get(), EditMenuCommand::kUndo, L"&Undo", state.canUndo);
  AddSeparator(menu.Get());
  Add(menu.Get(), EditMenuCommand::kCut, L"Cu&t", state.hasSelection);
  Add(menu.Get(), EditMenuCommand::kCopy, L"&Copy", state.hasSelection);
  Add(menu.Get(), EditMenuCommand::kPaste, L"&Paste", state.canPaste);
  Add(menu.Get(), EditMenuCommand::kDelete, L"&Delete", state.hasSelection);
  AddSeparator(menu.Get());
  Add(menu.Get(), EditMenuCommand::kSelectAll, L"Select &all", state.hasText);
  return static_cast<EditMenuCommand>(TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                     where.x, where.y, 0, owner, nullptr));
}

}  // namespace deck
