// The number in `LineToFind`.
#pragma once

#include <string_view>

namespace deck {

// Integer part of the decimal number that the text is, blanks around it aside: "2.9" gives 2, "1e2"
// gives 100. Text that is no number gives 0, and so does every number below 1. Numbers too large
// for an int give the largest one.
int LineNumberOf(std::u16string_view text);

}  // namespace deck
