// What searching and replacing promise, in the simplest words: slow, and without the tricks that
// the real ones are to be held against. Its letters are those that the tests write.
#pragma once

#include <string>
#include <string_view>

namespace deck {

// FindInText of platform/text_search.h: compares at every position.
int PlainFind(std::u16string_view text, std::u16string_view pattern, int start, int end,
              int options);

struct PlainReplacements {
  std::u16string text;
  int count = 0;
  int searchStart = 0;  // behind the last replacement

  friend bool operator==(const PlainReplacements&, const PlainReplacements&) = default;
};

// Finds the first match, replaces it and searches on in the changed text behind the replacement,
// until there is none.
PlainReplacements ReplaceOneByOne(std::u16string text, std::u16string_view pattern,
                                  const std::u16string& replacement, int options);

}  // namespace deck
