// Replacing every match in a text, as a value: what an edit box has to do, and what there is to
// tell.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/edit_box.h"

namespace deck {

// Positions in texts are ints.
inline constexpr int kLongestText = std::numeric_limits<int>::max() - 1;

struct Replacements {
  std::vector<TextEdit> edits;  // one per match, in ascending order; spans of the text before
  int searchStart = 0;          // behind the last replacement, in the text after

  // Stops at the largest signed 16-bit number, whatever was replaced.
  std::int16_t Count() const;
};

// The same as finding the first match, replacing it and searching on behind the replacement until
// there is no match: what a replacement brings in is never replaced itself, but it stands before
// the next match when it comes to whole words. Linear in the text. `options` as in
// platform/text_search.h; an empty pattern is never found. Ends before the first replacement that
// would make the text longer than `longest`.
Replacements ReplaceAllMatches(std::u16string text, std::u16string_view pattern,
                               const std::u16string& replacement, int options,
                               int longest = kLongestText);

}  // namespace deck
