// Whole macro files and what is read from them: every folder of tests/golden/extract holds a macro
// file `in.tmm` and the expected reading `out`. `macros_core_test --update` writes each `out` anew;
// look at the difference before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "macros/extract_macros.h"
#include "platform/text_encoding.h"
#include "tests/fakes/fake_code_page.h"

namespace deck {
namespace {

namespace fs = std::filesystem;

bool updating = false;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Utf8(std::u16string_view text) {
  FileFormat format{.encoding = Encoding::kUtf8, .lineBreak = LineBreak::kLf};
  return EncodeFile(text, format, FakeCodePage());
}

// Bars show where a text ends; nothing else in the file begins with one.
std::string Barred(std::u16string_view text) {
  return "|" + Utf8(text) + "|\n";
}

std::string Reading(std::string_view bytes) {
  const auto decoded = DecodeFile(bytes, FakeCodePage());
  if (!decoded) return "unreadable\n";
  const MacroLines lines = GetEachLineFromMacroFile(decoded->text);
  const MacroList list = ExtractMacrosAndTitles(lines);
  std::string out = "kept lines: " + std::to_string(lines.size() - 1) + "\n";
  for (std::size_t i = 1; i < lines.size(); ++i) out += Barred(lines[i]);
  out += "macros: " + std::to_string(list.MacroCount()) +
         ", headings: " + std::to_string(list.HeadingCount()) + "\n";
  for (std::size_t k = 0; k < list.headings.size(); ++k) {
    out += "\nheading " + Barred(list.headings[k]);
    for (const std::u16string& name : list.names[k]) {
      out += Barred(name);
      const auto definition = DefinitionOf(lines, name);
      out += definition ? "    shows " + Barred(*definition) : "    shows nothing\n";
    }
  }
  return out;
}

std::vector<std::string> Cases() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(WRENDECK_GOLDEN_FOLDER))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

class ExtractGolden : public testing::TestWithParam<std::string> {};

TEST_P(ExtractGolden, ReadsTheMacroFileAsExpected) {
  const fs::path folder = fs::path(WRENDECK_GOLDEN_FOLDER) / GetParam();
  ASSERT_TRUE(fs::exists(folder / "in.tmm"));
  const std::string reading = Reading(ReadFile(folder / "in.tmm"));
  if (updating) std::ofstream(folder / "out", std::ios::binary) << reading;
  EXPECT_EQ(reading, ReadFile(folder / "out"));
}

INSTANTIATE_TEST_SUITE_P(Files, ExtractGolden, testing::ValuesIn(Cases()),
                         [](const auto& chosen) { return chosen.param; });

}  // namespace
}  // namespace deck

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (int i = 1; i < argc; ++i)
    if (std::string_view(argv[i]) == "--update") deck::updating = true;
  return RUN_ALL_TESTS();
}
