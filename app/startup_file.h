// The file that the editor was started with.
#pragma once

#include <string>
#include <string_view>

namespace deck {

// From the whole command line: what follows the program's own name, without blanks round it and
// without one pair of enclosing quotes. Empty when there is nothing.
std::u16string StartupFileOf(std::u16string_view commandLine);

}  // namespace deck
