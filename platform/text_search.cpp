#include "platform/text_search.h"

#include <algorithm>

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

// The characters that are the same as one when compared; repeated where there are fewer.
using Forms = std::array<char16_t, 3>;

struct ExactCase {
  char16_t operator()(char16_t character) const { return character; }

  static Forms FormsOf(char16_t character) { return {character, character, character}; }
  static std::size_t FindAny(std::u16string_view text, const Forms& forms, std::size_t i) {
    return std::min(text.find(forms[0], i), text.size());
  }
};

struct AnyCase {
  char16_t operator()(char16_t character) const { return FoldCase(character); }

  static Forms FormsOf(char16_t folded) {
    constexpr char16_t kSmallFinalSigma = 0x03C2;
    const bool isSigma = FoldCase(kSmallFinalSigma) == folded;
    return {folded, ToUpper(folded), isSigma ? kSmallFinalSigma : folded};
  }
  static std::size_t FindAny(std::u16string_view text, const Forms& forms, std::size_t i) {
    const auto [a, b, c] = forms;
    while (i < text.size() && text[i] != a && text[i] != b && text[i] != c) ++i;
    return i;
  }
};

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

}  // namespace

TextSearch::TextSearch(std::u16string_view pattern, int options)
    : pattern_(pattern),
      matchCase_((options & kFindMatchCase) != 0),
      wholeWord_((options & kFindWholeWord) != 0) {
  if (pattern.empty()) return;
  if (matchCase_) {
    Prepare(ExactCase());
  } else {
    Prepare(AnyCase());
  }
}

template <class Case>
void TextSearch::Prepare(Case asCompared) {
  for (char16_t& character : pattern_) character = asCompared(character);
  firstForms_ = Case::FormsOf(pattern_[0]);
  fallBacks_ = FallBacks(pattern_);
}

int TextSearch::Find(std::u16string_view text, int start, int end) const {
  const std::size_t from = static_cast<std::size_t>(std::max(start, 0));
  const std::size_t to = std::min(static_cast<std::size_t>(std::max(end, 0)), text.size());
  if (pattern_.empty() || from > to || to - from < pattern_.size()) return -1;
  return matchCase_ ? Find(text, from, to, ExactCase()) : Find(text, from, to, AnyCase());
}

// Knuth, Morris and Pratt's search: each character of the text is passed once, whatever the
// pattern, and the stretches where nothing is matched are a loop of a few instructions.
template <class Case>
int TextSearch::Find(std::u16string_view text, std::size_t start, std::size_t end,
                     Case asCompared) const {
  const std::u16string_view searched = text.substr(0, end);
  std::size_t matched = 0;
  std::size_t i = start;
  while (true) {
    if (matched == 0) i = Case::FindAny(searched, firstForms_, i);
    if (i >= end) return -1;
    const char16_t character = asCompared(text[i]);
    while (matched > 0 && pattern_[matched] != character) matched = fallBacks_[matched];
    if (pattern_[matched] == character) ++matched;
    ++i;
    if (matched < pattern_.size()) continue;
    if (!wholeWord_ || StandsAlone(text, i - matched, i)) return static_cast<int>(i - matched);
    matched = fallBacks_[matched];
  }
}

int FindInText(std::u16string_view text, std::u16string_view pattern, int start, int end,
               int options) {
  return TextSearch(pattern, options).Find(text, start, end);
}

}  // namespace deck
