// The edit box of one document over the system's rich edit control. Made by the main window, owned
// by the document set.
//
// The control is only the view: the text with its undo history is kept here (UndoableText), and the
// control's own undo is off. Its history could not do what the program promises: it dies with the
// control, it cannot join several replacements to one step, and its steps differ between systems.
// So a view can be replaced by a new one at any time without a loss, and that is what happens when
// a batch of edits is large: rich edit takes text quickly only while it is empty
// (docs/rich_edit.md). Small batches change just their characters in the living control. Nothing
// outside can tell which of the two was done. For the same reason a box that has never been in view
// has no control: most macro files are opened beside their joystick file and never looked at.
//
// What reaches the text otherwise (an input method, a program that sends messages) is noticed by
// the control's change notification and taken over as one step.
#pragma once

#include <windows.h>

#include <bitset>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "documents/edit_keys.h"
#include "documents/win32/edit_drop_target.h"
#include "documents/win32/edit_font.h"
#include "documents/win32/rich_edit_control.h"
#include "platform/edit_box.h"
#include "platform/undoable_text.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_clipboard.h"

namespace deck {

class RichEditBox;

// What the boxes of one window share; owned by the window, outlives them.
struct EditBoxSettings {
  std::vector<RichEditBox*> boxes;  // those that live, oldest first; they keep the list themselves
  EditFonts fonts;
  RECT place{};  // of a new box, in the window
  // False: typing replaces the character behind the caret. The insert key switches it.
  bool insertMode = true;
  std::function<void()> insertModeChanged;
  // Asked before a box shows its own pointer; true when another one has been shown over it.
  std::function<bool()> showOtherPointer;
  // Files dropped on a box; unset: they are refused.
  std::function<void(std::vector<std::u16string> paths)> filesDropped;
};

class RichEditBox final : public EditBox {
 public:
  // Invisible, over its siblings. The thread needs OLE for drops to arrive. When the
  // parent is destroyed first, the box keeps its text and shows nothing.
  RichEditBox(EditBoxSettings& settings, HWND parent, int controlId, int dpi, Events events);
  ~RichEditBox() override;
  RichEditBox(const RichEditBox&) = delete;
  RichEditBox& operator=(const RichEditBox&) = delete;

  std::u16string Text() const override;
  int Length() const override;
  void Load(std::u16string_view text) override;
  TextSpan Selection() const override;
  void Select(TextSpan span) override;
  void ReplaceSelection(std::u16string_view text) override;
  void Apply(const std::vector<TextEdit>& edits) override;
  void ApplyStepByStep(const std::vector<TextEdit>& steps) override;
  void Undo() override;
  bool CanUndo() const override { return text_.CanUndo(); }
  int LineOf(int position) const override;
  int StartOfLine(int line) const override;
  void RefreshFont() override;
  void SetVisible(bool visible) override;
  void Focus() override;

  void Redo();
  bool CanRedo() const { return text_.CanRedo(); }

  // In the parent; a box with text goes there when it is next visible.
  void Place(const RECT& place);
  // Null before the box is first in view or edited; another one after each call that changes the
  // text or the font.
  HWND Window() const { return control_; }
  // The resolution at which the font is readable. Neither a change nor a step.
  void SetDpi(int dpi);

 private:
  static constexpr wchar_t kBoxProperty[] = L"WrenDeckEditBox";  // of a control: its box
  LRESULT OnAnyControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT ParentProcedure(void* unused, HWND window, UINT message, WPARAM wParam,
                                 LPARAM lParam);

  void MakeControl();
  void Attach(HWND control);
  void MakeReachable();
  void MoveToPlace();
  void SetPosition(const RECT& place, UINT flags);
  void Rebuild() { Rebuild(PlaceInParent()); }
  void Rebuild(const RECT& place);
  void Renew(const RECT& place);
  RECT PlaceInParent() const;
  void Fill();
  void CarryOut(const std::vector<TextEdit>& edits);
  void CarryOutInPlace(const TextEdit& edit);
  void Change(std::vector<TextEdit> edits, TextSpan selectionAfter, EditKind kind);
  void TakeBack(const UndoableText::Step& step);
  void TakeOver();
  void TakeOverWhatWasMissed();

  // rich_edit_box_input.cpp
  LRESULT OnControlChanged();
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> OnEditMessage(UINT message);
  bool OnKeyDown(int key);
  void OnKeyUp(int key);
  void OnFocus();
  void OnCharacter(char16_t character);
  void OnContextMenu(POINT where);
  void OnDroppedText(POINT where, const std::u16string& text);
  void Do(EditKeyAction action);
  void Erase(TextSpan (*besideCaret)(std::u16string_view text, int position));
  void SelectAll();
  void Copy();
  void Cut();
  void Paste();
  TextSpan TypedOver(char16_t character) const;
  std::u16string SelectedText() const;
  POINT CaretPlace() const;

  EditBoxSettings& settings_;
  HWND parent_;
  int controlId_;
  int dpi_;
  Events events_;
  FontHandle font_;
  EditDropTarget* dropTarget_;
  HWND control_ = nullptr;
  bool reachable_ = false;  // MakeReachable was called for the present control
  Win32Clipboard clipboard_{[this] { return control_; }};
  UndoableText text_;
  TextSpan selection_;         // while there is no control
  std::optional<RECT> place_;  // still to be taken
  std::bitset<256> pressed_;   // keys that went down in the box, by virtual-key code
  bool made_ = false;          // there was a control; without one now, the parent has ended
  bool visible_ = false;
  bool updating_ = false;    // the control changes because this object changes it
  bool rebuilding_ = false;  // the focus goes from the old control to the new one
};

}  // namespace deck
