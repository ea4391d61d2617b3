// The number in `LineToFind` and the lines of a document.
#pragma once

#include <optional>
#include <string_view>

#include "platform/edit_box.h"

namespace deck {

// Integer part of the decimal number that the text is, blanks around it aside: "2.9" gives 2, "1e2"
// gives 100. Text that is no number gives 0, and so does every number below 1. Numbers too large
// for an int give the largest one.
int LineNumberOf(std::u16string_view text);

// The line, its ending included; nothing when the box has no such line. Lines count from 1.
std::optional<TextSpan> SpanOfLine(const EditBox& box, int line);

}  // namespace deck
