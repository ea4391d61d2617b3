// Aligning any text, with any indentation: the result is what the rules say, loses nothing but
// blanks, and settles.
#include <string>

#include "platform/text_edits.h"
#include "tests/core/tools/plain_align.h"
#include "tests/fuzz/fuzz_input.h"
#include "tools/align_slashes.h"

namespace deck {
namespace {

std::u16string WithoutBlanks(std::u16string text) {
  std::erase(text, u' ');
  std::erase(text, u'\t');
  return text;
}

void Align(const std::u16string& text, const AlignOptions& options) {
  const std::u16string once = AlignSlashes(text, options);
  Require(once == PlainAlign(text, options));
  Require(WithoutBlanks(once) == WithoutBlanks(text));
  Require(Edited(text, BlankEdits(text, once)) == once);
  const std::u16string twice = AlignSlashes(once, options);
  Require(twice == once || HasIndentedCommentWithSlash(text));
  Require(AlignSlashes(twice, options) == twice);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const int indent = input.Byte();
  deck::Align(input.Text(), {.indent = indent % 2 == 1, .indentSpaces = indent / 2 - 20});
  return 0;
}
