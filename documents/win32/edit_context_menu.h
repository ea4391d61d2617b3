// The menu of the right mouse button and the menu key in an edit box. Numbers and order of its
// commands are for scripts and tests too.
#pragma once

#include <windows.h>

namespace deck {

enum class EditMenuCommand { kNone = 0, kUndo, kCut, kCopy, kPaste, kDelete, kSelectAll };

struct EditMenuState {
  bool canUndo = false;
  bool hasSelection = false;
  bool canPaste = false;
  bool hasText = false;
};

// Shows the menu at a point of the screen and waits for the user's choice.
EditMenuCommand ChooseFromEditMenu(HWND owner, POINT where, const EditMenuState& state);

}  // namespace deck
