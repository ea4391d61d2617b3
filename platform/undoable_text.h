// The text of an edit box with the history of its edits. Each box owns one: the history does not
// depend on how the control groups steps or on the window that shows the text, which may be built
// anew at any time.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/edit_box.h"

namespace deck {

// Typed characters that follow each other are one step, a line break begins a new one; so are
// characters erased one by one. Every other edit is a step of its own.
enum class EditKind { kTyping, kErasing, kOther };

class UndoableText {
 public:
  // The steps kept. Beyond kUndoStepsAlways the oldest go as soon as the history holds more than
  // kUndoCharacters.
  static constexpr std::size_t kUndoSteps = 50'000;
  static constexpr std::size_t kUndoStepsAlways = 100;
  static constexpr std::size_t kUndoCharacters = 16'000'000;

  // What leads to the text before or after a step, and what was selected there.
  struct Step {
    std::vector<TextEdit> edits;
    TextSpan selection;
  };

  struct CarriedOut {
    std::vector<TextEdit> edits;
    std::optional<int> caret;  // behind the last replacement, if there was any
  };

  const std::u16string& text() const { return text_; }
  int Length() const { return static_cast<int>(text_.size()); }

  // Another text without history.
  void Reset(std::u16string text);

  // Carries out a reduced batch (platform/text_edits.h) as one step; `selection` is the one before.
  void Change(const std::vector<TextEdit>& edits, TextSpan selection, EditKind kind);
  // Carries out edits one after the other, each as a step of its own: a span refers to the text as
  // the ones before it left it, is clamped to it and is what was selected before the step. Edits
  // that change nothing are left out. Linear for spans that go in one direction.
  CarriedOut ChangeStepByStep(const std::vector<TextEdit>& steps);
  // The caret was moved: what is typed next does not belong to the step before.
  void EndRun() { runGoesOn_ = false; }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  std::size_t UndoSteps() const { return undo_.size(); }

  // Carries the step out here; the caller does the same with what it shows. `selection` is the
  // present one. Nothing when there is no step.
  std::optional<Step> Undo(TextSpan selection);
  std::optional<Step> Redo(TextSpan selection);

 private:
  bool JoinsLastStep(const std::vector<TextEdit>& edits, EditKind kind) const;
  void Join(const TextEdit& back);
  void Push(Step step);
  Step CarryOut(Step& step, TextSpan selection);

  std::u16string text_;
  std::deque<Step> undo_;
  std::vector<Step> redo_;
  EditKind lastKind_ = EditKind::kOther;
  bool runGoesOn_ = false;
  std::size_t characters_ = 0;  // held by undo_
};

}  // namespace deck
