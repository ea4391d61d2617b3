#include "platform/text_edits.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace deck {
namespace {

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

int Length(std::u16string_view text) {
  return static_cast<int>(text.size());
}

std::u16string_view Part(std::u16string_view text, TextSpan span) {
  return text.substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
}

std::size_t CommonStart(std::u16string_view left, std::u16string_view right) {
  const std::size_t most = std::min(left.size(), right.size());
  const auto common =
      std::mismatch(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(most), right.begin());
  auto length = static_cast<std::size_t>(common.first - left.begin());
  if (length > 0 && IsHighSurrogate(left[length - 1])) --length;
  return length;
}

std::size_t CommonEnd(std::u16string_view left, std::u16string_view right) {
  const std::size_t most = std::min(left.size(), right.size());
  const auto common = std::mismatch(
      left.rbegin(), left.rbegin() + static_cast<std::ptrdiff_t>(most), right.rbegin());
  auto length = static_cast<std::size_t>(common.first - left.rbegin());
  if (length > 0 && IsLowSurrogate(left[left.size() - length])) --length;
  return length;
}

// The edit without the equal characters at both ends of what it replaces.
TextEdit Shortest(std::u16string_view replaced, int start, std::u16string replacement) {
  const std::size_t head = CommonStart(replaced, replacement);
  const std::size_t tail =
      CommonEnd(replaced.substr(head), std::u16string_view(replacement).substr(head));
  replacement.erase(replacement.size() - tail);
  replacement.erase(0, head);
  return {{start + static_cast<int>(head), static_cast<int>(replaced.size() - head - tail)},
          std::move(replacement)};
}

bool ChangesNothing(const TextEdit& edit) {
  return edit.span.length == 0 && edit.replacement.empty();
}

}  // namespace

std::u16string BoxText(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
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

TextSpan Clamped(TextSpan span, int length) {
  const long long end = static_cast<long long>(span.start) + span.length;
  const int start = std::clamp(span.start, 0, length);
  return {start, static_cast<int>(std::clamp<long long>(end, start, length)) - start};
}

std::vector<TextEdit> Reduced(std::u16string_view text, const std::vector<TextEdit>& edits) {
  std::vector<TextEdit> result;
  result.reserve(edits.size());
  int passed = 0;
  for (const TextEdit& edit : edits) {
    const TextSpan span = Clamped(edit.span, Length(text));
    if (span.start < passed) continue;
    passed = span.end();
    TextEdit shortest = Shortest(Part(text, span), span.start, BoxText(edit.replacement));
    if (!ChangesNothing(shortest)) result.push_back(std::move(shortest));
  }
  return result;
}

std::u16string Edited(std::u16string_view text, const std::vector<TextEdit>& edits) {
  std::size_t length = text.size();
  for (const TextEdit& edit : edits) length += edit.replacement.size();
  std::u16string result;
  result.reserve(length);
  int passed = 0;
  for (const TextEdit& edit : edits) {
    result += Part(text, {passed, edit.span.start - passed});
    result += edit.replacement;
    passed = edit.span.end();
  }
  result += text.substr(static_cast<std::size_t>(passed));
  return result;
}

std::vector<TextEdit> Inverse(std::u16string_view text, const std::vector<TextEdit>& edits) {
  std::vector<TextEdit> result;
  result.reserve(edits.size());
  int shift = 0;
  for (const TextEdit& edit : edits) {
    const int length = Length(edit.replacement);
    result.push_back({{edit.span.start + shift, length}, std::u16string(Part(text, edit.span))});
    shift += length - edit.span.length;
  }
  return result;
}

int Moved(int position, const std::vector<TextEdit>& edits, Neighbour neighbour) {
  int shift = 0;
  for (const TextEdit& edit : edits) {
    const int length = Length(edit.replacement);
    const bool insertionHere = edit.span.length == 0 && position == edit.span.start;
    if (position < edit.span.start) break;
    if (insertionHere && neighbour == Neighbour::kBefore) break;
    if (position < edit.span.end()) {
      return edit.span.start + shift + std::min(position - edit.span.start, length);
    }
    shift += length - edit.span.length;
  }
  return position + shift;
}

TextSpan Moved(TextSpan selection, const std::vector<TextEdit>& edits) {
  const int start = Moved(selection.start, edits, Neighbour::kBehind);
  if (selection.length == 0) return {start, 0};
  const int end = Moved(selection.end(), edits, Neighbour::kBefore);
  return {start, std::max(0, end - start)};
}

std::vector<TextEdit> Difference(std::u16string_view before, std::u16string_view after) {
  TextEdit edit = Shortest(before, 0, std::u16string(after));
  if (ChangesNothing(edit)) return {};
  return {std::move(edit)};
}

int LineOf(std::u16string_view text, int position) {
  const std::u16string_view head =
      text.substr(0, static_cast<std::size_t>(std::clamp(position, 0, Length(text))));
  return 1 + static_cast<int>(std::count(head.begin(), head.end(), u'\n'));
}

int StartOfLine(std::u16string_view text, int line) {
  if (line < 1) return -1;
  std::size_t start = 0;
  for (int passed = 1; passed < line; ++passed) {
    const std::size_t lineBreak = text.find(u'\n', start);
    if (lineBreak == std::u16string_view::npos) return -1;
    start = lineBreak + 1;
  }
  return static_cast<int>(start);
}

}  // namespace deck
