// The menus of the key tester, made from keytest/key_test_commands.h. Owned by KeyTestForm.
#pragma once

#include <windows.h>

#include "keytest/key_test_view.h"
#include "platform/win32/handles.h"

namespace deck {

// The three top-level menus. The caller destroys them, unless a window that has them ends first.
HMENU MakeKeyTestMenuBar();
void TickKeyTestMenus(HMENU bar, const KeyTestLook& look);

// Shows the context menu of a box at a point of the screen and waits for the user's choice, which
// may be none.
KeyTestCommand ChooseFromKeyBoxMenu(HWND owner, POINT where, bool hasSelection, bool hasText);

}  // namespace deck
