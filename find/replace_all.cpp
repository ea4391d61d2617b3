#include "find/replace_all.h"

#include <algorithm>
#include <cstddef>

#include "platform/text_search.h"

namespace deck {
namespace {

// Any character that no word holds.
constexpr char16_t kNoWord = u'\n';

}  // namespace

std::int16_t Replacements::Count() const {
  constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(edits.size(), kMost));
}

Replacements ReplaceAllMatches(std::u16string text, std::u16string_view pattern,
                               const std::u16string& replacement, int options, int longest) {
  const TextSearch search(pattern, options);
  const int end = static_cast<int>(text.size());
  const int matchLength = static_cast<int>(pattern.size());
  const std::int64_t growth = static_cast<std::int64_t>(replacement.size()) - matchLength;
  std::int64_t grown = 0;
  Replacements result;
  int start = 0;
  for (int found = search.Find(text, start, end); found >= 0;
       found = search.Find(text, start, end)) {
    if (end + grown + growth > longest) break;
    grown += growth;
    result.edits.push_back({{found, matchLength}, replacement});
    start = found + matchLength;
    // The character before the rest of the text becomes the one that stands there after the
    // replacement. It is not searched any more itself.
    const char16_t before = found == 0 ? kNoWord : text[static_cast<std::size_t>(found - 1)];
    text[static_cast<std::size_t>(start - 1)] = replacement.empty() ? before : replacement.back();
  }
  result.searchStart = static_cast<int>(start + grown);
  return result;
}

}  // namespace deck
