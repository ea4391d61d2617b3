// This test program, started by one of its own tests to write the same file again and again until
// it is killed.
#pragma once

#include <cstddef>
#include <string>

namespace deck {

// What it writes is so many times one small letter, each time another one.
inline constexpr std::size_t kWrittenLength = 300'000;

std::u16string WritingCommandLine(const std::u16string& file);
// Does not come back when this process was started by such a command line.
void WriteForEverIfAsked();

}  // namespace deck
