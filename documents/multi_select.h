// The result of an open dialog in which several files were chosen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deck {

// `selection` is the folder and then each name, separated by U+0000. Gives the full paths in the
// order of the dialog; the folder gets a "\" only when it does not end with one. A text without any
// U+0000 names no file and gives none.
std::vector<std::u16string> ExtractFilePathsOnMultiOpen(std::u16string_view selection);

}  // namespace deck
