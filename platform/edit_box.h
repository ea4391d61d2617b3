// The text of one document as the program sees it: the port in front of the rich edit control.
// One EditBox per document, made by MainWindowView::CreateEditBox and owned by the document set.
//
// Text is UTF-16; a line break is one '\n'; positions count from 0 and lines from 1. Positions
// outside the text are clamped to it. Differences of the control (paragraph marks, undo grouping,
// notifications) stop here.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

// Part of a text: `start` is the position of its first character.
struct TextSpan {
  int start = 0;
  int length = 0;

  int end() const { return start + length; }
  friend bool operator==(const TextSpan&, const TextSpan&) = default;
};

// One replacement in a batch; spans refer to the text before the batch.
struct TextEdit {
  TextSpan span;
  std::u16string replacement;
};

class EditBox {
 public:
  // What the box tells its owner. Unset functions are not called.
  struct Events {
    std::function<void()> changed;         // the user or the program edited the text; not for Load
    std::function<void()> keyOrMouseDone;  // a key pressed in the box, or a mouse button, went up
    std::function<void()> mouseMoved;      // the pointer moved over the box
    std::function<void()> entered;         // the box got the keyboard focus
  };

  virtual ~EditBox() = default;

  virtual std::u16string Text() const = 0;
  virtual int Length() const = 0;

  // Replaces the whole text; the undo history is empty afterwards, the caret at 0. Not a change.
  virtual void Load(std::u16string_view text) = 0;

  virtual TextSpan Selection() const = 0;
  // The caret ends behind the selection and is scrolled into view when the box is visible.
  virtual void Select(TextSpan span) = 0;
  // One undo step. The caret ends behind the new text.
  virtual void ReplaceSelection(std::u16string_view text) = 0;
  // Several replacements as one undo step: `edits` in ascending order without overlaps. Selection
  // and scroll position stay with the text they were on as far as it still exists.
  virtual void Apply(const std::vector<TextEdit>& edits) = 0;
  // Several replacements, each an undo step of its own, in the order given: a span refers to the
  // text as the ones before it left it. The caret ends behind the last new text. The box shows only
  // the end, so this costs about what one Apply costs, not so many times ReplaceSelection.
  virtual void ApplyStepByStep(const std::vector<TextEdit>& steps) = 0;

  // Takes back one step; does nothing when there is none.
  virtual void Undo() = 0;
  virtual bool CanUndo() const = 0;

  // The line that holds the position, from 1.
  virtual int LineOf(int position) const = 0;
  // Position of the line's first character, or -1 when there is no such line.
  virtual int StartOfLine(int line) const = 0;

  // Puts the font of documents back on the whole text. No change, no undo step; selection and
  // scroll position stay.
  virtual void RefreshFont() = 0;

  virtual void SetVisible(bool visible) = 0;
  virtual void Focus() = 0;
};

}  // namespace deck
