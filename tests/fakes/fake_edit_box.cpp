#include "tests/fakes/fake_edit_box.h"

#include <optional>
#include <utility>

#include "platform/text_edits.h"

namespace deck {
namespace {

void Raise(const std::function<void()>& event) {
  if (event) event();
}

}  // namespace

FakeEditBox::FakeEditBox(Events events) : events_(std::move(events)) {}

FakeEditBox::~FakeEditBox() {
  if (focused()) focusOwner_ = nullptr;
}

void FakeEditBox::Load(std::u16string_view text) {
  text_.Reset(BoxText(text));
  selection_ = {};
}

void FakeEditBox::Select(TextSpan span) {
  selection_ = Clamped(span, Length());
  text_.EndRun();
}

void FakeEditBox::ReplaceSelection(std::u16string_view text) {
  const std::u16string inserted = BoxText(text);
  const TextSpan caret = {selection_.start + static_cast<int>(inserted.size()), 0};
  Change({{selection_, inserted}}, caret, EditKind::kOther);
}

void FakeEditBox::Apply(const std::vector<TextEdit>& edits) {
  const TextSpan moved = Moved(selection_, Reduced(text_.text(), edits));
  Change(edits, moved, EditKind::kOther);
}

void FakeEditBox::ApplyStepByStep(const std::vector<TextEdit>& steps) {
  const UndoableText::CarriedOut carriedOut = text_.ChangeStepByStep(steps);
  if (carriedOut.caret) selection_ = {*carriedOut.caret, 0};
  if (!carriedOut.edits.empty()) Raise(events_.changed);
}

void FakeEditBox::Undo() {
  const std::optional<UndoableText::Step> step = text_.Undo(selection_);
  if (!step) return;
  selection_ = step->selection;
  Raise(events_.changed);
}

int FakeEditBox::LineOf(int position) const {
  return deck::LineOf(text_.text(), position);
}

int FakeEditBox::StartOfLine(int line) const {
  return deck::StartOfLine(text_.text(), line);
}

void FakeEditBox::SetVisible(bool visible) {
  visible_ = visible;
  if (!visible && focused()) focusOwner_ = nullptr;
}

void FakeEditBox::Focus() {
  if (focused()) return;
  focusOwner_ = this;
  Raise(events_.entered);
}

void FakeEditBox::Type(std::u16string_view text) {
  for (const char16_t character : BoxText(text)) {
    const TextSpan caret = {selection_.start + 1, 0};
    Change({{selection_, std::u16string(1, character)}}, caret, EditKind::kTyping);
  }
  Raise(events_.keyOrMouseDone);
}

void FakeEditBox::MoveCaret(TextSpan selection) {
  Select(selection);
  Raise(events_.keyOrMouseDone);
}

void FakeEditBox::MoveMouse() {
  Raise(events_.mouseMoved);
}

void FakeEditBox::Change(std::vector<TextEdit> edits, TextSpan selectionAfter, EditKind kind) {
  edits = Reduced(text_.text(), edits);
  const TextSpan selectionBefore = std::exchange(selection_, selectionAfter);
  if (edits.empty()) return;
  text_.Change(edits, selectionBefore, kind);
  Raise(events_.changed);
}

}  // namespace deck
