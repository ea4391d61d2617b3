// Golden tests: a folder of cases, one folder each, with the expected result in a file of its own.
// A test program that is linked to this library writes the expected results anew when it is started
// with --update; look at the difference before keeping it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

// The names of the cases, sorted.
std::vector<std::string> GoldenCases(const std::filesystem::path& folder);

// The whole file, empty when there is none.
std::string ReadGoldenFile(const std::filesystem::path& file);

// Fails the running test unless the file holds exactly this.
void ExpectGolden(const std::string& actual, const std::filesystem::path& file);

// Texts in golden files are UTF-8, every line break becomes '\n'. Throws for bytes that are no
// text.
std::u16string FromGolden(std::string_view bytes);
std::string ToGolden(std::u16string_view text);

}  // namespace deck
