// Commenting out any part of any text: every line of the selection is handled once, un-REM gives
// the text back, and so does undo.
#include <algorithm>
#include <string>

#include "platform/text_edits.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fuzz/fuzz_input.h"
#include "tools/block_rem.h"

namespace deck {
namespace {

struct LineRange {
  int first = 0;
  int last = 0;
};

LineRange LinesOf(std::u16string_view text, TextSpan selection) {
  const int end = selection.length > 0 ? selection.end() - 1 : selection.start;
  return {LineOf(text, selection.start), LineOf(text, end)};
}

TextSpan Whole(std::u16string_view text, LineRange lines) {
  const int start = StartOfLine(text, lines.first);
  const int next = StartOfLine(text, lines.last + 1);
  const int end = next < 0 ? static_cast<int>(text.size()) : next - 1;
  return {start, std::max(0, end - start)};
}

std::u16string CarriedOut(const std::u16string& text, const LineSteps& lines) {
  FakeEditBox box;
  box.Load(text);
  box.ApplyStepByStep(lines.steps);
  const std::u16string result = box.Text();
  Require(lines.caret >= 0 && lines.caret <= box.Length());
  Require(box.undoSteps() == static_cast<int>(lines.steps.size()));
  while (box.CanUndo()) box.Undo();
  Require(box.Text() == text);
  return result;
}

void Rem(const std::u16string& text, TextSpan selection) {
  const LineSteps steps = RemSteps(text, selection);
  const std::u16string commented = CarriedOut(text, steps);
  const LineRange lines = LinesOf(text, selection);
  Require(text.empty() || static_cast<int>(steps.steps.size()) == lines.last - lines.first + 1);
  const TextSpan again = Whole(commented, lines);
  Require(CarriedOut(commented, UnRemSteps(commented, again)) == text);
}

void UnRem(const std::u16string& text, TextSpan selection) {
  const LineSteps steps = UnRemSteps(text, selection);
  const std::u16string result = CarriedOut(text, steps);
  const LineRange lines = LinesOf(text, selection);
  Require(static_cast<int>(steps.steps.size()) <= lines.last - lines.first + 1);
  // What is in front of the selection's lines and behind them stays.
  const TextSpan touched = Whole(text, lines);
  Require(result.starts_with(text.substr(0, static_cast<std::size_t>(touched.start))));
  const int behind = std::min(touched.end() + 1, static_cast<int>(text.size()));
  Require(result.ends_with(text.substr(static_cast<std::size_t>(behind))));
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const int start = input.Number();
  const int length = input.Number();
  const std::u16string text = input.Text();
  const int places = static_cast<int>(text.size()) + 1;
  const deck::TextSpan selection =
      deck::Clamped({start % places, length % places}, static_cast<int>(text.size()));
  deck::Rem(text, selection);
  deck::UnRem(text, selection);
  return 0;
}
