// Keys, mouse, menu and drops of an edit box. Whatever edits the text is done by the box itself, so
// that it is the same on every system; the control moves the caret and paints.
#include "documents/win32/rich_edit_box.h"

#include <commctrl.h>
#include <ole2.h>
#include <richedit.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "documents/erase_spans.h"
#include "documents/win32/edit_context_menu.h"
#include "platform/text_edits.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/subclass.h"

namespace deck {
namespace {

void Raise(const std::function<void()>& event) {
  if (event) event();
}

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

EditKeyAction ActionOf(EditMenuCommand command) {
  switch (command) {
    case EditMenuCommand::kUndo:
      return EditKeyAction::kUndo;
    case EditMenuCommand::kCut:
      return EditKeyAction::kCut;
    case EditMenuCommand::kCopy:
      return EditKeyAction::kCopy;
    case EditMenuCommand::kPaste:
      return EditKeyAction::kPaste;
    case EditMenuCommand::kDelete:
      return EditKeyAction::kEraseBehind;
    case EditMenuCommand::kSelectAll:
      return EditKeyAction::kSelectAll;
    case EditMenuCommand::kNone:
      break;
  }
  return EditKeyAction::kNothing;
}

}  // namespace

// While one control follows the other, the old one gets messages too.
LRESULT RichEditBox::OnAnyControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const bool isCurrent = window == control_;
  if (message == WM_DESTROY) {
    RevokeDragDrop(window);
    ForgetAccessibleName(window);
  }
  if (message == WM_NCDESTROY) {
    RemovePropW(window, kBoxProperty);
    if (isCurrent) control_ = nullptr;
  }
  return isCurrent ? OnMessage(message, wParam, lParam)
                   : CallSubclassed(window, message, wParam, lParam);
}

// The control tells its parent of changes. One procedure serves all boxes of the window.
LRESULT RichEditBox::ParentProcedure(void*, HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) {
  if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
    const HANDLE box = GetPropW(reinterpret_cast<HWND>(lParam), kBoxProperty);
    if (box != nullptr) return static_cast<RichEditBox*>(box)->OnControlChanged();
  }
  return CallSubclassed(window, message, wParam, lParam);
}

LRESULT RichEditBox::OnControlChanged() {
  if (!updating_) TakeOver();
  return 0;
}

LRESULT RichEditBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const std::optional<LRESULT> result = OnEditMessage(message)) return *result;
  const HWND window = control_;
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      pressed_.set(wParam % pressed_.size());
      if (OnKeyDown(static_cast<int>(wParam))) return 0;
      // The control has meanings of its own for Alt and a letter.
      if (message == WM_SYSKEYDOWN) return DefWindowProcW(window, message, wParam, lParam);
      break;
    case WM_CHAR:
      OnCharacter(static_cast<char16_t>(wParam));
      return 0;
    case WM_SYSCHAR:
      // Alt and Backspace was an undo; the system would look for a menu of that name and beep.
      if (wParam == VK_BACK) return 0;
      return DefWindowProcW(window, message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
      OnKeyUp(static_cast<int>(wParam));
      if (wParam == VK_APPS) return 0;
      if (message == WM_SYSKEYUP) return DefWindowProcW(window, message, wParam, lParam);
      break;
    case WM_LBUTTONDOWN:
      text_.EndRun();
      break;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP: {
      const LRESULT result = CallSubclassed(window, message, wParam, lParam);
      Raise(events_.keyOrMouseDone);
      return result;
    }
    case WM_RBUTTONUP: {
      POINT where{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      ClientToScreen(window, &where);
      OnContextMenu(where);
      Raise(events_.keyOrMouseDone);
      return 0;
    }
    case WM_CONTEXTMENU: {
      const POINT where{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      OnContextMenu(where.x == -1 && where.y == -1 ? CaretPlace() : where);
      return 0;
    }
    case WM_MOUSEMOVE:
      if (HasPointerMoved(control_, lParam)) Raise(events_.mouseMoved);
      break;
    case WM_SETCURSOR:
      // The control would never ask its parent.
      if (LOWORD(lParam) == HTCLIENT && settings_.showOtherPointer &&
          settings_.showOtherPointer()) {
        return TRUE;
      }
      break;
    case WM_MOUSEWHEEL:
      // With the control key it would change the size of the text, which nothing could set back.
      if (IsDown(VK_CONTROL)) return 0;
      break;
    case WM_SETFOCUS: {
      const LRESULT result = CallSubclassed(window, message, wParam, lParam);
      OnFocus();
      return result;
    }
    default:
      break;
  }
  return CallSubclassed(window, message, wParam, lParam);
}

// Messages by which another program or a part of the system edits, clipboard and undo included.
std::optional<LRESULT> RichEditBox::OnEditMessage(UINT message) {
  switch (message) {
    case WM_UNDO:
    case EM_UNDO: {
      const bool could = CanUndo();
      Undo();
      return could;
    }
    case EM_REDO: {
      const bool could = CanRedo();
      Redo();
      return could;
    }
    case EM_CANUNDO:
      return CanUndo();
    case EM_CANREDO:
      return CanRedo();
    case WM_CUT:
      Cut();
      return 0;
    case WM_COPY:
      Copy();
      return 0;
    case WM_PASTE:
    case EM_PASTESPECIAL:
      Paste();
      return 0;
    case WM_CLEAR:
      if (Selection().length > 0) ReplaceSelection(u"");
      return 0;
    default:
      return std::nullopt;
  }
}

// True when the key is dealt with.
bool RichEditBox::OnKeyDown(int key) {
  const EditKeyAction action =
      deck::ActionOf({key, IsDown(VK_SHIFT), IsDown(VK_CONTROL), IsDown(VK_MENU)});
  if (action == EditKeyAction::kLeaveToSystem) return false;
  if (action == EditKeyAction::kLeaveToControl) {
    if (key >= VK_PRIOR && key <= VK_DOWN) text_.EndRun();
    return false;
  }
  Do(action);
  return true;
}

void RichEditBox::OnKeyUp(int key) {
  if (key == VK_APPS) OnContextMenu(CaretPlace());
  const auto index = static_cast<std::size_t>(key) % pressed_.size();
  const bool pressedHere = pressed_.test(index);
  pressed_.reset(index);
  if (pressedHere) Raise(events_.keyOrMouseDone);
}

// The key that brought the focus here was pressed elsewhere.
void RichEditBox::OnFocus() {
  if (rebuilding_) return;
  pressed_.reset();
  Raise(events_.entered);
}

void RichEditBox::OnCharacter(char16_t character) {
  if (!IsTypedText(character, IsDown(VK_CONTROL), IsDown(VK_MENU))) return;
  TakeOverWhatWasMissed();
  const TextSpan span = TypedOver(character);
  const std::u16string typed(1, character == u'\r' ? u'\n' : character);
  Change({{span, typed}}, {span.start + 1, 0}, EditKind::kTyping);
}

void RichEditBox::OnContextMenu(POINT where) {
  SetFocus(control_);
  const EditMenuState state{CanUndo(), Selection().length > 0, ClipboardOffersText(), Length() > 0};
  const EditMenuCommand command = ChooseFromEditMenu(control_, where, state);
  if (command == EditMenuCommand::kNone) return;
  Do(ActionOf(command));
  Raise(events_.keyOrMouseDone);
}

void RichEditBox::OnDroppedText(POINT where, const std::u16string& text) {
  ScreenToClient(control_, &where);
  Select({PositionAt(control_, where), 0});
  ReplaceSelection(text);
  SetFocus(control_);
  Raise(events_.keyOrMouseDone);
}

void RichEditBox::Do(EditKeyAction action) {
  switch (action) {
    case EditKeyAction::kEraseBefore:
      Erase(CharacterBefore);
      break;
    case EditKeyAction::kEraseBehind:
      Erase(CharacterBehind);
      break;
    case EditKeyAction::kEraseWordBefore:
      Erase(WordBefore);
      break;
    case EditKeyAction::kEraseWordBehind:
      Erase(WordBehind);
      break;
    case EditKeyAction::kSelectAll:
      SelectAll();
      break;
    case EditKeyAction::kCut:
      Cut();
      break;
    case EditKeyAction::kCopy:
      Copy();
      break;
    case EditKeyAction::kPaste:
      Paste();
      break;
    case EditKeyAction::kUndo:
      Undo();
      break;
    case EditKeyAction::kRedo:
      Redo();
      break;
    case EditKeyAction::kToggleInsert:
      settings_.insertMode = !settings_.insertMode;
      Raise(settings_.insertModeChanged);
      break;
    case EditKeyAction::kNothing:
    case EditKeyAction::kLeaveToControl:
    case EditKeyAction::kLeaveToSystem:
      break;
  }
}

// The selection or, without one, what lies on one side of the caret.
void RichEditBox::Erase(TextSpan (*besideCaret)(std::u16string_view text, int position)) {
  TakeOverWhatWasMissed();
  const TextSpan selection = Selection();
  if (selection.length > 0) {
    ReplaceSelection(u"");
    return;
  }
  const TextSpan span = besideCaret(text_.text(), selection.start);
  if (span.length == 0) return;
  Change({{span, u""}}, {span.start, 0}, EditKind::kErasing);
}

void RichEditBox::SelectAll() {
  text_.EndRun();
  SelectInControl(control_, {0, Length()});
}

void RichEditBox::Copy() {
  const std::u16string selected = SelectedText();
  if (!selected.empty()) static_cast<void>(clipboard_.SetText(selected));
}

void RichEditBox::Cut() {
  const std::u16string selected = SelectedText();
  if (!selected.empty() && clipboard_.SetText(selected)) ReplaceSelection(u"");
}

void RichEditBox::Paste() {
  if (const std::optional<std::u16string> text = clipboard_.Text()) ReplaceSelection(*text);
}

// What the character takes the place of: the selection or, when not inserting, the character behind
// the caret, but never a line break.
TextSpan RichEditBox::TypedOver(char16_t character) const {
  const TextSpan selection = Selection();
  // A low surrogate belongs to the high one just typed, which has replaced a whole character.
  if (settings_.insertMode || selection.length > 0 || character == u'\r' ||
      IsLowSurrogate(character)) {
    return selection;
  }
  const auto caret = static_cast<std::size_t>(selection.start);
  const bool atLineEnd = caret >= text_.text().size() || text_.text()[caret] == u'\n';
  return atLineEnd ? selection : CharacterBehind(text_.text(), selection.start);
}

std::u16string RichEditBox::SelectedText() const {
  const TextSpan selection = Selection();
  return Text().substr(static_cast<std::size_t>(selection.start),
                       static_cast<std::size_t>(selection.length));
}

// On the screen, below the caret as far as it is in view.
POINT RichEditBox::CaretPlace() const {
  RECT area{};
  GetClientRect(control_, &area);
  POINT place = PointOf(control_, Selection().end());
  place.x = std::clamp(place.x, area.left, area.right);
  place.y = std::clamp(place.y, area.top, area.bottom);
  ClientToScreen(control_, &place);
  return place;
}

}  // namespace deck
