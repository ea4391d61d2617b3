#include "documents/edit_keys.h"

namespace deck {
namespace {

enum VirtualKey {
  kBackspace = 0x08,
  kTab = 0x09,
  kEnter = 0x0D,
  kShift = 0x10,
  kControl = 0x11,
  kAlt = 0x12,
  kPageUp = 0x21,
  kDown = 0x28,  // page up, page down, end, home and the four arrows stand in one row
  kInsert = 0x2D,
  kDelete = 0x2E,
};

bool MovesCaret(int key) {
  return key >= kPageUp && key <= kDown;
}

EditKeyAction WithControl(const EditKeyPress& press) {
  if (press.key == kShift || press.key == kControl || press.key == kAlt) {
    return EditKeyAction::kLeaveToControl;
  }
  // Control and Alt together are the right Alt key, whose character comes by itself.
  if (press.alt) return EditKeyAction::kNothing;
  if (MovesCaret(press.key)) return EditKeyAction::kLeaveToControl;
  if (press.shift) return EditKeyAction::kNothing;
  switch (press.key) {
    case kBackspace:
      return EditKeyAction::kEraseWordBefore;
    case kDelete:
      return EditKeyAction::kEraseWordBehind;
    case kInsert:
    case 'C':
      return EditKeyAction::kCopy;
    case 'X':
      return EditKeyAction::kCut;
    case 'V':
      return EditKeyAction::kPaste;
    case 'A':
      return EditKeyAction::kSelectAll;
    case 'Z':
      return EditKeyAction::kUndo;
    case 'Y':
      return EditKeyAction::kRedo;
    default:
      return EditKeyAction::kNothing;
  }
}

}  // namespace

EditKeyAction ActionOf(const EditKeyPress& press) {
  if (press.control) return WithControl(press);
  if (press.alt) {
    if (press.key != kBackspace) return EditKeyAction::kLeaveToSystem;
    return press.shift ? EditKeyAction::kRedo : EditKeyAction::kUndo;
  }
  switch (press.key) {
    case kBackspace:
      return EditKeyAction::kEraseBefore;
    case kDelete:
      return press.shift ? EditKeyAction::kCut : EditKeyAction::kEraseBehind;
    case kInsert:
      return press.shift ? EditKeyAction::kPaste : EditKeyAction::kToggleInsert;
    case kTab:
    case kEnter:
      return EditKeyAction::kNothing;
    default:
      return EditKeyAction::kLeaveToControl;
  }
}

bool IsTypedText(char16_t character, bool control, bool alt) {
  if (control && !alt) return false;
  if (character == u'\t' || character == u'\r') return true;
  // Control and Backspace give U+007F.
  return character >= u' ' && character != 0x7F;
}

}  // namespace deck
