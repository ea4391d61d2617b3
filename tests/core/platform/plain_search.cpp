#include "tests/core/platform/plain_search.h"

#include <algorithm>

#include "platform/strings.h"
#include "platform/text_search.h"

namespace deck {
namespace {

bool IsInWords(char16_t c) {
  constexpr std::u16string_view kOthers = u"_éÉßσςΣжЖ";
  return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
         kOthers.find(c) != std::u16string_view::npos;
}

}  // namespace

int PlainFind(std::u16string_view text, std::u16string_view pattern, int start, int end,
              int options) {
  const int length = static_cast<int>(text.size());
  const int size = static_cast<int>(pattern.size());
  const auto at = [text](int i) { return text[static_cast<std::size_t>(i)]; };
  if (pattern.empty()) return -1;
  for (int i = std::max(start, 0); i + size <= std::min(end, length); ++i) {
    const auto part = text.substr(static_cast<std::size_t>(i), pattern.size());
    const bool equal =
        options & kFindMatchCase ? part == pattern : EqualsIgnoringCase(part, pattern);
    const bool joined =
        (i > 0 && IsInWords(at(i - 1))) || (i + size < length && IsInWords(at(i + size)));
    if (equal && !(options & kFindWholeWord && joined)) return i;
  }
  return -1;
}

PlainReplacements ReplaceOneByOne(std::u16string text, std::u16string_view pattern,
                                  const std::u16string& replacement, int options) {
  PlainReplacements made;
  for (;;) {
    const int length = static_cast<int>(text.size());
    const int found = PlainFind(text, pattern, made.searchStart, length, options);
    if (found < 0) break;
    text.replace(static_cast<std::size_t>(found), pattern.size(), replacement);
    made.searchStart = found + static_cast<int>(replacement.size());
    ++made.count;
  }
  made.text = std::move(text);
  return made;
}

}  // namespace deck
