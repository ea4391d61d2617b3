// Where a line of a document is. The edit box is asked for it by number: asking position by
// position would be quadratic in the real control, with the same result.
#pragma once

#include <optional>

#include "platform/edit_box.h"

namespace deck {

// The characters of a line (from 1) with the line break that ends it; nothing when the box has no
// such line.
std::optional<TextSpan> SpanOfLine(const EditBox& box, int line);

}  // namespace deck
