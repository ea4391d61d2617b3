#include "compiler/highlight_error_line.h"

#include "compiler/texts.h"

namespace deck {
namespace {

constexpr std::u16string_view kErrorWithoutPlace = u"1013";
constexpr std::size_t kErrorNumberPosition = 6;

}  // namespace

bool IsPlaceInDocument(std::u16string_view errorCode) {
  return errorCode.size() < kErrorNumberPosition ||
         !errorCode.substr(kErrorNumberPosition).starts_with(kErrorWithoutPlace);
}

std::optional<TextSpan> SpanOfLine(const EditBox& box, int line) {
  const int start = box.StartOfLine(line);
  if (start < 0) return std::nullopt;
  const int next = box.StartOfLine(line + 1);
  const int end = next < 0 ? box.Length() : next;
  return TextSpan{.start = start, .length = end - start};
}

void HighlightErrorLine(std::int16_t lineNumber, std::u16string_view errorCode,
                        DocumentSet& documents, StatusBar& status, Prompts& prompts) {
  if (!IsPlaceInDocument(errorCode)) return;
  EditBox& box = documents.GetCurrentTextBox();
  if (lineNumber < 1 || lineNumber > box.LineOf(box.Length())) {
    prompts.Show(LineNumberInvalid());
    return;
  }
  box.Select({0, 0});
  const std::optional<TextSpan> line = SpanOfLine(box, lineNumber);
  if (!line) {
    prompts.Show(LineNotFound());
    return;
  }
  box.Select(*line);
  box.Focus();
  status.ShowLine(box.LineOf(box.Selection().start));
}

}  // namespace deck
