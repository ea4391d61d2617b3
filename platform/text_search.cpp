#include "platform/text_search.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/strings.h"

namespace deck {
namespace {

struct WordRange {
  char16_t first;
  char16_t last;
};

// Letters, digits and the marks that belong to letters, in ascending order: the scripts that code
// pages hold.
constexpr WordRange kWordRanges[] = {
    {u'0', u'9'},     {u'A', u'Z'},     {u'_', u'_'},     {u'a', u'z'},     {0x00AA, 0x00AA},
    {0x00B5, 0x00B5}, {0x00BA, 0x00BA}, {0x00C0, 0x00D6}, {0x00D8, 0x00F6}, {0x00F8, 0x02C1},
    {0x0300, 0x0374}, {0x0376, 0x037D}, {0x037F, 0x0383}, {0x0386, 0x0386}, {0x0388, 0x03F5},
    {0x03F7, 0x0481}, {0x0483, 0x0556}, {0x0561, 0x0587}, {0x0591, 0x05BD}, {0x05D0, 0x05F2},
    {0x0620, 0x0669}, {0x066E, 0x06D3}, {0x06D5, 0x06DC}, {0x06EE, 0x06FC}, {0x0E01, 0x0E3A},
    {0x0E40, 0x0E4E}, {0x0E50, 0x0E59}, {0x1E00, 0x1FBC}, {0x3005, 0x3007}, {0x3041, 0x3096},
    {0x3099, 0x309A}, {0x309D, 0x309F}, {0x30A1, 0x30FA}, {0x30FC, 0x30FF}, {0x3400, 0x4DBF},
    {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFF10, 0xFF19}, {0xFF21, 0xFF3A},
    {0xFF41, 0xFF5A}, {0xFF66, 0xFF9F},
};

bool IsWordCharacter(char16_t character) {
  const WordRange* range =
      std::lower_bound(std::begin(kWordRanges), std::end(kWordRanges), character,
                       [](const WordRange& r, char16_t c) { return r.last < c; });
  return range != std::end(kWordRanges) && range->first <= character;
}

bool StandsAlone(std::u16string_view text, std::size_t start, std::size_t end) {
  return (start == 0 || !IsWordCharacter(text[start - 1])) &&
         (end == text.size() || !IsWordCharacter(text[end]));
}

struct ExactCase {
  char16_t operator()(char16_t character) const { return character; }
};

struct AnyCase {
  char16_t operator()(char16_t character) const { return FoldCase(character); }
};

// The characters that are the same as one when compared; repeated where there are fewer.
using Forms = std::array<char16_t, 3>;

Forms FormsOf(char16_t character, ExactCase) {
  return {character, character, character};
}

Forms FormsOf(char16_t folded, AnyCase) {
  constexpr char16_t kSmallFinalSigma = 0x03C2;
  const bool isSigma = FoldCase(kSmallFinalSigma) == folded;
  return {folded, ToUpper(folded), isSigma ? kSmallFinalSigma : folded};
}

std::size_t FindAnyOf(std::u16string_view text, const Forms& forms, std::size_t i,
                      std::size_t end) {
  const auto [a, b, c] = forms;
  while (i < end && text[i] != a && text[i] != b && text[i] != c) ++i;
  return i;
}

// For each prefix of the pattern the length of the longest shorter prefix that also ends it: what
// is still matched when the next character does not fit.
std::vector<std::size_t> FallBacks(std::u16string_view pattern) {
  std::vector<std::size_t> fallBacks(pattern.size() + 1, 0);
  std::size_t matched = 0;
  for (std::size_t i = 1; i < pattern.size(); ++i) {
    while (matched > 0 && pattern[matched] != pattern[i]) matched = fallBacks[matched];
    if (pattern[matched] == pattern[i]) ++matched;
    fallBacks[i + 1] = matched;
  }
  return fallBacks;
}

// Knuth, Morris and Pratt's search: each character of the text is passed once, whatever the
// pattern, and the stretches where nothing is matched are a loop of a few instructions.
template <class Case>
int Find(std::u16string_view text, std::u16string pattern, std::size_t start, std::size_t end,
         bool wholeWord, Case asCompared) {
  for (char16_t& character : pattern) character = asCompared(character);
  const std::vector<std::size_t> fallBacks = FallBacks(pattern);
  const Forms first = FormsOf(pattern[0], asCompared);
  std::size_t matched = 0;
  std::size_t i = start;
  while (true) {
    if (matched == 0) i = FindAnyOf(text, first, i, end);
    if (i >= end) return -1;
    const char16_t character = asCompared(text[i]);
    while (matched > 0 && pattern[matched] != character) matched = fallBacks[matched];
    if (pattern[matched] == character) ++matched;
    ++i;
    if (matched < pattern.size()) continue;
    if (!wholeWord || StandsAlone(text, i - matched, i)) return static_cast<int>(i - matched);
    matched = fallBacks[matched];
  }
}

}  // namespace

int FindInText(std::u16string_view text, std::u16string_view pattern, int start, int end,
               int options) {
  const std::size_t from = static_cast<std::size_t>(std::max(start, 0));
  const std::size_t to = std::min(static_cast<std::size_t>(std::max(end, 0)), text.size());
  if (pattern.empty() || from > to || to - from < pattern.size()) return -1;
  const bool wholeWord = (options & kFindWholeWord) != 0;
  std::u16string wanted(pattern);
  return (options & kFindMatchCase) != 0
             ? Find(text, std::move(wanted), from, to, wholeWord, ExactCase())
             : Find(text, std::move(wanted), from, to, wholeWord, AnyCase());
}

}  // namespace deck
