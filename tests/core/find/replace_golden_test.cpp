// Whole files, what is replaced in them and what comes out: every folder of tests/golden/replace
// holds a file `in`, the order `cmd` and the expected result `out`. An order is lines of the form
//
//   find |text|
//   with |text|
//   match case
//   whole word
//
// where "\n" stands for a line break. `find_core_test --update` writes each `out` anew; look at the
// difference before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_encoding.h"
#include "tests/core/find/find_fixture.h"
#include "tests/fakes/fake_code_page.h"

namespace deck {
namespace {

namespace fs = std::filesystem;
using enum FindControl;

bool updating = false;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::u16string Decoded(std::string_view bytes) {
  const auto decoded = DecodeFile(bytes, FakeCodePage());
  if (!decoded) throw std::invalid_argument("unreadable text");
  return decoded->text;
}

std::string Utf8(std::u16string_view text) {
  FileFormat format{.encoding = Encoding::kUtf8, .lineBreak = LineBreak::kLf};
  return EncodeFile(text, format, FakeCodePage());
}

struct Order {
  std::u16string find;
  std::u16string with;
  bool matchCase = false;
  bool wholeWord = false;
};

// What stands between the first and the last bar.
std::u16string Barred(const std::string& line) {
  const std::size_t first = line.find('|');
  const std::size_t last = line.rfind('|');
  if (first == last) throw std::invalid_argument("no text between bars: " + line);
  std::u16string text = Decoded("\xEF\xBB\xBF" + line.substr(first + 1, last - first - 1));
  for (std::size_t i; (i = text.find(u"\\n")) != std::u16string::npos;) text.replace(i, 2, u"\n");
  return text;
}

Order ReadOrder(const std::string& text) {
  Order order;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("find ")) {
      order.find = Barred(line);
    } else if (line.starts_with("with ")) {
      order.with = Barred(line);
    } else if (line == "match case") {
      order.matchCase = true;
    } else if (line == "whole word") {
      order.wholeWord = true;
    } else {
      throw std::invalid_argument("no order: " + line);
    }
  }
  return order;
}

std::vector<std::string> Cases() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(WRENDECK_GOLDEN_FOLDER))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

class ReplaceGolden : public FindFixture, public testing::WithParamInterface<std::string> {
 protected:
  void Give(const Order& order) {
    OpenReplace(order.find, order.with);
    if (order.matchCase) dialog.Click(kMatchCaseR);
    if (order.wholeWord) dialog.Click(kWholeWordR);
  }
  // The text of the document as it is now, behind what the dialog told.
  std::string Outcome() {
    std::string told;
    for (const Message& message : Told()) told += Utf8(message.text) + "\n";
    return told + "----\n" + Utf8(Box().Text());
  }
};

TEST_P(ReplaceGolden, ReplacesAsExpectedAtOnceAndOneByOne) {
  const fs::path folder = fs::path(WRENDECK_GOLDEN_FOLDER) / GetParam();
  ASSERT_TRUE(fs::exists(folder / "in"));
  const std::u16string text = Decoded(ReadFile(folder / "in"));
  const Order order = ReadOrder(ReadFile(folder / "cmd"));
  Box().Load(text);
  Give(order);
  // A find that fails leaves the button disabled, as every user sees it.
  dialog.Click(kCommand3);
  dialog.Click(kCommand6);
  const std::string outcome = Outcome();
  if (updating) std::ofstream(folder / "out", std::ios::binary) << outcome;
  EXPECT_EQ(outcome, ReadFile(folder / "out"));

  const std::u16string atOnce = Box().Text();
  Box().Load(text);
  dialog.PressEscape();
  Give(order);
  for (dialog.Click(kCommand3); Told().empty(); dialog.Click(kCommand3)) dialog.Click(kCommand5);
  EXPECT_EQ(Utf8(Box().Text()), Utf8(atOnce));
}

INSTANTIATE_TEST_SUITE_P(Files, ReplaceGolden, testing::ValuesIn(Cases()),
                         [](const auto& chosen) { return chosen.param; });

}  // namespace
}  // namespace deck

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (int i = 1; i < argc; ++i)
    if (std::string_view(argv[i]) == "--update") deck::updating = true;
  return RUN_ALL_TESTS();
}
