#include "tests/fakes/fake_edit_box.h"

#include <algorithm>
#include <utility>

namespace deck {
namespace {

void Raise(const std::function<void()>& event) {
  if (event) event();
}

// Line breaks of every kind become '\n'; U+0000, which no control can hold, is left out.
std::u16string BoxText(std::u16string_view text) {
  std::u16string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\0') continue;
    if (text[i] != u'\r') {
      result += text[i];
    } else if (i + 1 == text.size() || text[i + 1] != u'\n') {
      result += u'\n';
    }
  }
  return result;
}

std::u16string Replaced(const std::u16string& text, TextSpan span, std::u16string_view with) {
  std::u16string result = text.substr(0, static_cast<std::size_t>(span.start));
  result += with;
  result += text.substr(static_cast<std::size_t>(span.end()));
  return result;
}

// Where the edit puts a position. A position inside the replaced text stays as far from its start;
// at a pure insertion it goes behind the new text when it belongs to the character behind it.
int Moved(int position, TextSpan span, int newLength, bool belongsToNext) {
  if (position < span.start) return position;
  if (position > span.end()) return position + newLength - span.length;
  if (position == span.start && position == span.end()) {
    return belongsToNext ? position + newLength : position;
  }
  if (position == span.end()) return span.start + newLength;
  return span.start + std::min(position - span.start, newLength);
}

}  // namespace

FakeEditBox::FakeEditBox(Events events) : events_(std::move(events)) {}

FakeEditBox::~FakeEditBox() {
  if (focused()) focusOwner_ = nullptr;
}

void FakeEditBox::Load(std::u16string_view text) {
  text_ = BoxText(text);
  selection_ = {};
  history_.clear();
}

void FakeEditBox::Select(TextSpan span) {
  selection_ = Clamped(span);
}

void FakeEditBox::ReplaceSelection(std::u16string_view text) {
  const std::u16string inserted = BoxText(text);
  const int caret = selection_.start + static_cast<int>(inserted.size());
  if (SetText(Replaced(text_, selection_, inserted), {caret, 0})) Raise(events_.changed);
}

void FakeEditBox::Apply(const std::vector<TextEdit>& edits) {
  std::u16string text = text_;
  int start = selection_.start;
  int end = selection_.end();
  const bool caretOnly = start == end;
  for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
    const TextSpan span = Clamped(edit->span);
    const std::u16string inserted = BoxText(edit->replacement);
    const int length = static_cast<int>(inserted.size());
    text = Replaced(text, span, inserted);
    start = Moved(start, span, length, true);
    end = caretOnly ? start : Moved(end, span, length, false);
  }
  if (SetText(std::move(text), {start, std::max(0, end - start)})) Raise(events_.changed);
}

void FakeEditBox::Undo() {
  if (history_.empty()) return;
  text_ = std::move(history_.back().text);
  selection_ = history_.back().selection;
  history_.pop_back();
  Raise(events_.changed);
}

int FakeEditBox::LineOf(int position) const {
  const auto end = text_.begin() + std::clamp(position, 0, Length());
  return 1 + static_cast<int>(std::count(text_.begin(), end, u'\n'));
}

int FakeEditBox::StartOfLine(int line) const {
  if (line < 1) return -1;
  std::size_t start = 0;
  for (int passed = 1; passed < line; ++passed) {
    const std::size_t lineBreak = text_.find(u'\n', start);
    if (lineBreak == std::u16string::npos) return -1;
    start = lineBreak + 1;
  }
  return static_cast<int>(start);
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
  ReplaceSelection(text);
  Raise(events_.keyOrMouseDone);
}

void FakeEditBox::MoveCaret(TextSpan selection) {
  Select(selection);
  Raise(events_.keyOrMouseDone);
}

void FakeEditBox::MoveMouse() {
  Raise(events_.mouseMoved);
}

TextSpan FakeEditBox::Clamped(TextSpan span) const {
  const long long end = static_cast<long long>(span.start) + span.length;
  const int start = std::clamp(span.start, 0, Length());
  return {start, static_cast<int>(std::clamp<long long>(end, start, Length())) - start};
}

bool FakeEditBox::SetText(std::u16string text, TextSpan selection) {
  const bool changes = text != text_;
  if (changes) history_.push_back({std::move(text_), selection_});
  if (changes) text_ = std::move(text);
  selection_ = selection;
  return changes;
}

}  // namespace deck
