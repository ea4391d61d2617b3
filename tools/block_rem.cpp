#include "tools/block_rem.h"

#include <string>

#include "platform/strings.h"
#include "platform/text_edits.h"

namespace deck {
namespace {

constexpr std::u16string_view kRem = u"Rem ";
constexpr int kRemLength = static_cast<int>(kRem.size());

// At least one; positions of first characters, ascending.
std::vector<int> StartsOfLines(std::u16string_view text, TextSpan selection) {
  const std::size_t breakBefore =
      text.substr(0, static_cast<std::size_t>(selection.start)).rfind(u'\n');
  std::size_t start = breakBefore == std::u16string_view::npos ? 0 : breakBefore + 1;
  std::vector<int> starts{static_cast<int>(start)};
  for (;;) {
    start = text.find(u'\n', start);
    if (start == std::u16string_view::npos) break;
    ++start;
    if (static_cast<int>(start) >= selection.end()) break;
    starts.push_back(static_cast<int>(start));
  }
  return starts;
}

// How many characters un-REM takes from a line that begins with `text`.
int CommentWordLength(std::u16string_view text) {
  const std::u16string_view head = text.substr(0, 4);
  if (!StartsWithIgnoringCase(head, u"rem")) return 0;
  if (head.size() == 3) return 3;
  return head[3] == u' ' || head[3] == u'\n' ? 4 : 0;
}

}  // namespace

LineSteps RemSteps(std::u16string_view text, TextSpan selection) {
  selection = Clamped(selection, static_cast<int>(text.size()));
  LineSteps result{{}, selection.start};
  if (text.empty()) return result;
  int shift = 0;
  for (const int start : StartsOfLines(text, selection)) {
    result.steps.push_back({{start + shift, 0}, std::u16string(kRem)});
    result.caret = (start == 0 ? selection.start : start + shift) + kRemLength;
    shift += kRemLength;
  }
  return result;
}

LineSteps UnRemSteps(std::u16string_view text, TextSpan selection) {
  selection = Clamped(selection, static_cast<int>(text.size()));
  LineSteps result;
  int shift = 0;
  for (const int start : StartsOfLines(text, selection)) {
    result.caret = start - shift;
    const int length = CommentWordLength(text.substr(static_cast<std::size_t>(start)));
    if (length == 0) continue;
    result.steps.push_back({{start - shift, length}, {}});
    shift += length;
  }
  return result;
}

void BlockRem::REMblock() {
  EditBox& box = documents_.GetCurrentTextBox();
  if (box.Length() == 0) return;
  RemBlockCommon(box, RemSteps(box.Text(), box.Selection()));
}

void BlockRem::REMunblock() {
  EditBox& box = documents_.GetCurrentTextBox();
  RemBlockCommon(box, UnRemSteps(box.Text(), box.Selection()));
}

void BlockRem::RemBlockCommon(EditBox& box, const LineSteps& lines) {
  box.ApplyStepByStep(lines.steps);
  box.Select({lines.caret, 0});
  documents_.ShowCaretLine();
  box.Focus();
}

}  // namespace deck
