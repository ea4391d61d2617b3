// Finding text, with the meaning of the edit control's two options but the same result on every
// system: word characters are letters, digits and "_"; letters of every code page fold their case.
#pragma once

#include <optional>
#include <string_view>

namespace deck {

inline constexpr int kFindWholeWord = 2;
inline constexpr int kFindMatchCase = 4;

// Position of the first match that lies inside [start, end), or -1; `end` beyond the text is the
// text's end. An empty pattern is never found. `options` is a sum of the constants above. With
// whole word, the characters before and behind the match (within the whole text) must not be word
// characters.
int FindInText(std::u16string_view text, std::u16string_view pattern, int start, int end,
               int options);

}  // namespace deck
