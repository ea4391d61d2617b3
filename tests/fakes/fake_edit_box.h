// An edit box in memory, owned by whatever test made it: the same text, undo and events as the real
// one (proved by the contract suite), plus what a user would do with keys and mouse.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/edit_box.h"
#include "platform/undoable_text.h"

namespace deck {

class FakeEditBox : public EditBox {
 public:
  explicit FakeEditBox(Events events = {});
  ~FakeEditBox() override;
  FakeEditBox(const FakeEditBox&) = delete;
  FakeEditBox& operator=(const FakeEditBox&) = delete;

  std::u16string Text() const override { return text_.text(); }
  int Length() const override { return text_.Length(); }
  void Load(std::u16string_view text) override;
  TextSpan Selection() const override { return selection_; }
  void Select(TextSpan span) override;
  void ReplaceSelection(std::u16string_view text) override;
  void Apply(const std::vector<TextEdit>& edits) override;
  void ApplyStepByStep(const std::vector<TextEdit>& steps) override;
  void Undo() override;
  bool CanUndo() const override { return text_.CanUndo(); }
  int LineOf(int position) const override;
  int StartOfLine(int line) const override;
  void RefreshFont() override { hasForeignFont = false; }
  void SetVisible(bool visible) override;
  void Focus() override;

  // A user types over the selection, character by character, and lets the last key go.
  void Type(std::u16string_view text);
  // A user presses and releases a key or mouse button that edits nothing, leaving `selection`.
  void MoveCaret(TextSpan selection);
  void MoveMouse();

  bool visible() const { return visible_; }
  bool focused() const { return focusOwner_ == this; }
  int undoSteps() const { return static_cast<int>(text_.UndoSteps()); }

  // Part of the text is not in the font of documents.
  bool hasForeignFont = false;

 private:
  void Change(std::vector<TextEdit> edits, TextSpan selectionAfter, EditKind kind);

  // Only one window has the keyboard focus.
  inline static FakeEditBox* focusOwner_ = nullptr;

  Events events_;
  UndoableText text_;
  TextSpan selection_;
  bool visible_ = false;
};

}  // namespace deck
