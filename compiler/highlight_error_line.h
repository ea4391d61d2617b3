// Shows the line that the compiler complained about.
#pragma once

#include <cstdint>
#include <string_view>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/prompts.h"

namespace deck {

// Whether the line number that comes with this error is a place in the document; that of error 1013
// (characters 7 to 10 of the text) is not.
bool IsPlaceInDocument(std::u16string_view errorCode);

// Selects the line (from 1) in the current document, or tells the user that there is none.
void HighlightErrorLine(std::int16_t lineNumber, std::u16string_view errorCode,
                        DocumentSet& documents, StatusBar& status, Prompts& prompts);

}  // namespace deck
