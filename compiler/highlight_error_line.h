// Shows the line that the compiler complained about. The line's place is asked of the edit box by
// number: asking position by position would be quadratic in the real control, with the same result.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/edit_box.h"
#include "platform/prompts.h"

namespace deck {

// Whether the line number that comes with this error is a place in the document; that of error 1013
// (characters 7 to 10 of the text) is not.
bool IsPlaceInDocument(std::u16string_view errorCode);

// The characters of a line (from 1) with the line break that ends it; nothing when there is no such
// line.
std::optional<TextSpan> SpanOfLine(const EditBox& box, int line);

// Selects the line (from 1) in the current document, or tells the user that there is none.
void HighlightErrorLine(std::int16_t lineNumber, std::u16string_view errorCode,
                        DocumentSet& documents, StatusBar& status, Prompts& prompts);

}  // namespace deck
