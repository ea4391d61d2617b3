#include "tests/golden/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/text_encoding.h"
#include "tests/fakes/fake_code_page.h"

namespace deck {
namespace {

bool updating = false;

}  // namespace

std::vector<std::string> GoldenCases(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadGoldenFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void ExpectGolden(const std::string& actual, const std::filesystem::path& file) {
  if (updating) std::ofstream(file, std::ios::binary) << actual;
  EXPECT_TRUE(std::filesystem::exists(file)) << file;
  EXPECT_EQ(actual, ReadGoldenFile(file));
}

std::u16string FromGolden(std::string_view bytes) {
  const auto decoded = DecodeFile(bytes, FakeCodePage());
  if (!decoded) throw std::invalid_argument("a golden file that is no text");
  return decoded->text;
}

std::string ToGolden(std::u16string_view text) {
  FileFormat format{.encoding = Encoding::kUtf8, .lineBreak = LineBreak::kLf};
  return EncodeFile(text, format, FakeCodePage());
}

}  // namespace deck

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (int i = 1; i < argc; ++i)
    if (std::string_view(argv[i]) == "--update") deck::updating = true;
  return RUN_ALL_TESTS();
}
