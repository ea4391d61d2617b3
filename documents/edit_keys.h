// What a key press means in the text of a document. The control's own meanings differ between
// systems and include formatting, which plain text has no place for: only what is listed here gets
// through.
#pragma once

namespace deck {

enum class EditKeyAction {
  kLeaveToControl,  // moves the caret
  kLeaveToSystem,   // menus
  kNothing,         // the character that belongs to the key may still come
  kEraseBefore,
  kEraseBehind,
  kEraseWordBefore,
  kEraseWordBehind,
  kSelectAll,
  kCut,
  kCopy,
  kPaste,
  kUndo,
  kRedo,
  kToggleInsert,
};

struct EditKeyPress {
  int key = 0;  // virtual-key code
  bool shift = false;
  bool control = false;
  bool alt = false;
};

EditKeyAction ActionOf(const EditKeyPress& press);

// Whether a typed character goes into the text. Enter arrives as CR and becomes a line break; every
// other control character but the tab belongs to a key combination, and so does whatever comes
// while the control key is down without the right Alt key.
bool IsTypedText(char16_t character, bool control, bool alt);

}  // namespace deck
