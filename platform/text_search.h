// Finding text, with the meaning of the edit control's two options but the same result on every
// system: word characters are letters, digits and "_"; letters of every code page fold their case.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

inline constexpr int kFindWholeWord = 2;
inline constexpr int kFindMatchCase = 4;

// Position of the first match that lies inside [start, end), or -1; `end` beyond the text is the
// text's end. An empty pattern is never found. `options` is a sum of the constants above. With
// whole word, the characters before and behind the match (within the whole text) must not be word
// characters.
int FindInText(std::u16string_view text, std::u16string_view pattern, int start, int end,
               int options);

// The same search, prepared once for many calls.
class TextSearch {
 public:
  TextSearch(std::u16string_view pattern, int options);

  int Find(std::u16string_view text, int start, int end) const;

 private:
  template <class Case>
  void Prepare(Case asCompared);
  template <class Case>
  int Find(std::u16string_view text, std::size_t start, std::size_t end, Case asCompared) const;

  std::u16string pattern_;  // as compared
  bool matchCase_;
  bool wholeWord_;
  // Each prefix's longest shorter prefix that also ends it: what is still matched when the next
  // character does not fit.
  std::vector<std::size_t> fallBacks_;
  // The characters that are the same as the first one when compared; repeated where there are
  // fewer.
  std::array<char16_t, 3> firstForms_{};
};

}  // namespace deck
