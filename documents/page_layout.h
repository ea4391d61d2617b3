// From a text to printed pages of a fixed-pitch font, as values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"

namespace deck {

using Page = std::vector<std::u16string>;

// Tabs reach to the next column that is a multiple of 8; a line longer than the page goes on below,
// so nothing is cut off. A page of less than one column or row counts as one. At least one page.
std::vector<Page> LayOutPages(std::u16string_view text, PageSize size);

}  // namespace deck
