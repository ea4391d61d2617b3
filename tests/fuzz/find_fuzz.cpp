// Finding any pattern in any part of any text: what is found is what a look at every position
// finds, and each option only takes matches away.
#include <string>

#include "platform/text_search.h"
#include "tests/core/platform/plain_search.h"
#include "tests/fuzz/search_fuzz.h"

namespace deck {
namespace {

void Find(const std::u16string& text, const Search& search, int start, int end) {
  const auto find = [&](int options) {
    return FindInText(text, search.pattern, start, end, options);
  };
  const int found = find(search.options);
  Require(found == PlainFind(text, search.pattern, start, end, search.options));
  const int length = static_cast<int>(search.pattern.size());
  Require(found == -1 || (found >= start && found + length <= end));
  const int anyhow = find(0);
  Require(found == -1 || (anyhow >= 0 && anyhow <= found));
}

// One search object for all matches, as the program uses it.
void FindAll(const std::u16string& text, const Search& search) {
  const TextSearch prepared(search.pattern, search.options);
  const int end = static_cast<int>(text.size());
  for (int start = 0; start <= end; ++start) {
    const int found = prepared.Find(text, start, end);
    Require(found == PlainFind(text, search.pattern, start, end, search.options));
    if (found < 0) break;
    start = found;
  }
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const deck::Search search = deck::SearchOf(input);
  const int start = input.Byte() - 3;
  const int end = input.Byte() - 3;
  const std::u16string text = deck::SearchedText(input, static_cast<int>(size));
  deck::Find(text, search, start, end);
  deck::FindAll(text, search);
  return 0;
}
