// Replacing all matches of any pattern: as many as are found and replaced one by one, with the same
// text in the end, and one undo takes it back.
#include <algorithm>
#include <limits>
#include <string>

#include "find/replace_all.h"
#include "tests/core/platform/plain_search.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fuzz/search_fuzz.h"

namespace deck {
namespace {

void ReplaceAll(const std::u16string& text, const Search& search,
                const std::u16string& replacement) {
  const Replacements made = ReplaceAllMatches(text, search.pattern, replacement, search.options);
  const PlainReplacements plain =
      ReplaceOneByOne(text, search.pattern, replacement, search.options);
  FakeEditBox box;
  box.Load(text);
  box.Apply(made.edits);
  Require(box.Text() == plain.text);
  Require(made.Count() == std::min<int>(plain.count, std::numeric_limits<std::int16_t>::max()));
  Require(made.searchStart == plain.searchStart);
  Require(box.undoSteps() == (box.Text() == text ? 0 : 1));
  box.Undo();
  Require(box.Text() == text);
}

void StopAtTheLongestText(const std::u16string& text, const Search& search,
                          const std::u16string& replacement, int room) {
  const int longest = static_cast<int>(text.size()) + room;
  const Replacements made =
      ReplaceAllMatches(text, search.pattern, replacement, search.options, longest);
  Require(static_cast<int>(Edited(text, made.edits).size()) <= longest);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const deck::Search search = deck::SearchOf(input);
  const int numbers = input.Byte();
  const std::u16string replacement = deck::SearchedText(input, numbers % 6);
  const std::u16string text = deck::SearchedText(input, static_cast<int>(size));
  deck::ReplaceAll(text, search, replacement);
  deck::StopAtTheLongestText(text, search, replacement, numbers / 6);
  return 0;
}
