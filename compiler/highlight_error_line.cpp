#include "compiler/highlight_error_line.h"

#include "compiler/texts.h"
#include "documents/line_span.h"

namespace deck {
namespace {

constexpr std::u16string_view kErrorWithoutPlace = u"1013";
constexpr std::size_t kErrorNumberPosition = 6;

}  // namespace

bool IsPlaceInDocument(std::u16string_view errorCode) {
  return errorCode.size() < kErrorNumberPosition ||
         !errorCode.substr(kErrorNumberPosition).starts_with(kErrorWithoutPlace);
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
