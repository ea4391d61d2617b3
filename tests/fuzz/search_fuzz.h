// What the targets for finding and replacing make of their bytes: texts of few characters, so that
// short patterns are found in them again and again.
#pragma once

#include <string>
#include <string_view>

#include "tests/fuzz/fuzz_input.h"

namespace deck {

inline constexpr std::u16string_view kSearchedCharacters = u"aAbB_1- \néÉßσςΣ\xD83D\xDE00";

// Fewer characters when the bytes end before.
inline std::u16string SearchedText(FuzzInput& input, int length) {
  std::u16string text;
  for (; length > 0 && !input.IsAtEnd(); --length) {
    text +=
        kSearchedCharacters[static_cast<std::size_t>(input.Byte()) % kSearchedCharacters.size()];
  }
  return text;
}

struct Search {
  std::u16string pattern;
  int options = 0;
};

inline Search SearchOf(FuzzInput& input) {
  const int numbers = input.Byte();
  return {SearchedText(input, numbers / 4 % 6), 2 * (numbers % 4)};
}

}  // namespace deck
