#include "platform/undoable_text.h"

#include <utility>

#include "platform/text_edits.h"

namespace deck {
namespace {

std::size_t Characters(const UndoableText::Step& step) {
  std::size_t characters = 0;
  for (const TextEdit& edit : step.edits) characters += sizeof edit / 2 + edit.replacement.size();
  return characters;
}

void CarryOutOn(std::u16string& text, const std::vector<TextEdit>& edits) {
  if (edits.size() == 1) {
    // In place: copying the whole text would cost more than the key that was pressed.
    const TextEdit& edit = edits.front();
    text.replace(static_cast<std::size_t>(edit.span.start),
                 static_cast<std::size_t>(edit.span.length), edit.replacement);
  } else {
    text = Edited(text, edits);
  }
}

// A text with a gap where it was edited last: the next edit costs as much as the way to it, and not
// as much as the rest of the text.
class GapText {
 public:
  explicit GapText(std::u16string text) : head_(std::move(text)) {}

  int Length() const { return static_cast<int>(head_.size() + tail_.size()); }

  // Moves the gap behind the span and gives the span's text.
  std::u16string_view GoBehind(TextSpan span) {
    const auto end = static_cast<std::size_t>(span.end());
    while (head_.size() > end) {
      tail_ += head_.back();
      head_.pop_back();
    }
    while (head_.size() < end) {
      head_ += tail_.back();
      tail_.pop_back();
    }
    return std::u16string_view(head_).substr(static_cast<std::size_t>(span.start));
  }

  // Puts the replacement in place of the span that the gap is behind.
  void Replace(TextSpan span, std::u16string_view replacement) {
    head_.resize(static_cast<std::size_t>(span.start));
    head_ += replacement;
  }

  std::u16string Joined() && {
    head_.append(tail_.rbegin(), tail_.rend());
    return std::move(head_);
  }

 private:
  std::u16string head_;
  std::u16string tail_;  // backwards
};

}  // namespace

void UndoableText::Reset(std::u16string text) {
  text_ = std::move(text);
  undo_.clear();
  redo_.clear();
  characters_ = 0;
  EndRun();
}

void UndoableText::Change(const std::vector<TextEdit>& edits, TextSpan selection, EditKind kind) {
  std::vector<TextEdit> back = Inverse(text_, edits);
  if (JoinsLastStep(edits, kind)) {
    Join(back.front());
  } else {
    Push({std::move(back), selection});
  }
  CarryOutOn(text_, edits);
  redo_.clear();
  lastKind_ = kind;
  runGoesOn_ = kind != EditKind::kOther && edits.size() == 1;
}

UndoableText::CarriedOut UndoableText::ChangeStepByStep(const std::vector<TextEdit>& steps) {
  GapText text(std::move(text_));
  CarriedOut result;
  for (const TextEdit& step : steps) {
    const TextSpan span = Clamped(step.span, text.Length());
    const std::u16string_view replaced = text.GoBehind(span);
    std::vector<TextEdit> edits = Reduced(replaced, {{{0, span.length}, step.replacement}});
    std::vector<TextEdit> back = Inverse(replaced, edits);
    const std::u16string replacement = Edited(replaced, edits);
    result.caret = span.start + static_cast<int>(replacement.size());
    if (edits.empty()) continue;
    text.Replace(span, replacement);
    back.front().span.start += span.start;
    Push({std::move(back), span});
    edits.front().span.start += span.start;
    result.edits.push_back(std::move(edits.front()));
  }
  text_ = std::move(text).Joined();
  if (!result.edits.empty()) redo_.clear();
  EndRun();
  return result;
}

std::optional<UndoableText::Step> UndoableText::Undo(TextSpan selection) {
  if (undo_.empty()) return std::nullopt;
  Step step = std::move(undo_.back());
  undo_.pop_back();
  characters_ -= Characters(step);
  redo_.push_back(CarryOut(step, selection));
  return step;
}

std::optional<UndoableText::Step> UndoableText::Redo(TextSpan selection) {
  if (redo_.empty()) return std::nullopt;
  Step step = std::move(redo_.back());
  redo_.pop_back();
  Push(CarryOut(step, selection));
  return step;
}

// Returns the step that leads back.
UndoableText::Step UndoableText::CarryOut(Step& step, TextSpan selection) {
  Step back{Inverse(text_, step.edits), selection};
  CarryOutOn(text_, step.edits);
  EndRun();
  return back;
}

bool UndoableText::JoinsLastStep(const std::vector<TextEdit>& edits, EditKind kind) const {
  if (!runGoesOn_ || kind != lastKind_ || edits.size() != 1) return false;
  const TextEdit& edit = edits.front();
  const TextSpan last = undo_.back().edits.front().span;
  if (kind == EditKind::kTyping) {
    return edit.span.start == last.end() && edit.replacement.find(u'\n') == std::u16string::npos;
  }
  return edit.replacement.empty() &&
         (edit.span.start == last.start || edit.span.end() == last.start);
}

// Widens the step that leads back over the neighbouring edit.
void UndoableText::Join(const TextEdit& back) {
  TextEdit& last = undo_.back().edits.front();
  if (back.span.start < last.span.start) {
    last.replacement.insert(0, back.replacement);
    last.span.start = back.span.start;
  } else {
    last.replacement += back.replacement;
    last.span.length += back.span.length;
  }
  characters_ += back.replacement.size();
}

void UndoableText::Push(Step step) {
  characters_ += Characters(step);
  undo_.push_back(std::move(step));
  while (undo_.size() > kUndoSteps ||
         (undo_.size() > kUndoStepsAlways && characters_ > kUndoCharacters)) {
    characters_ -= Characters(undo_.front());
    undo_.pop_front();
  }
}

}  // namespace deck
