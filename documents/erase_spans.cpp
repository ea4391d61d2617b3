#include "documents/erase_spans.h"

#include <cstddef>

namespace deck {
namespace {

enum class Kind { kBlank, kLineBreak, kWord, kSign };

Kind KindOf(char16_t character) {
  if (character == u' ' || character == u'\t') return Kind::kBlank;
  if (character == u'\n') return Kind::kLineBreak;
  const bool isWord =
      (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'Z') ||
      (character >= u'a' && character <= u'z') || character == u'_' || character >= 0x80;
  return isWord ? Kind::kWord : Kind::kSign;
}

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

char16_t At(std::u16string_view text, int position) {
  return text[static_cast<std::size_t>(position)];
}

bool IsPairAt(std::u16string_view text, int position) {
  return position >= 0 && position + 1 < static_cast<int>(text.size()) &&
         IsHighSurrogate(At(text, position)) && IsLowSurrogate(At(text, position + 1));
}

}  // namespace

TextSpan CharacterBefore(std::u16string_view text, int position) {
  const int length = position == 0 ? 0 : IsPairAt(text, position - 2) ? 2 : 1;
  return {position - length, length};
}

TextSpan CharacterBehind(std::u16string_view text, int position) {
  const bool atEnd = position >= static_cast<int>(text.size());
  return {position, atEnd ? 0 : IsPairAt(text, position) ? 2 : 1};
}

TextSpan WordBefore(std::u16string_view text, int position) {
  int start = position;
  while (start > 0 && KindOf(At(text, start - 1)) == Kind::kBlank) --start;
  const Kind kind = start > 0 ? KindOf(At(text, start - 1)) : Kind::kBlank;
  if (kind == Kind::kLineBreak) {
    // The blanks before the caret are a step of their own.
    if (start == position) --start;
  } else {
    while (start > 0 && KindOf(At(text, start - 1)) == kind) --start;
  }
  return {start, position - start};
}

TextSpan WordBehind(std::u16string_view text, int position) {
  const int length = static_cast<int>(text.size());
  int end = position;
  if (end == length) return {position, 0};
  const Kind kind = KindOf(At(text, end));
  if (kind == Kind::kLineBreak) return {position, 1};
  while (end < length && KindOf(At(text, end)) == kind) ++end;
  while (end < length && KindOf(At(text, end)) == Kind::kBlank) ++end;
  return {position, end - position};
}

}  // namespace deck
