// Whole texts and what the editing tools make of them: every folder of tests/golden/align, rem and
// unrem holds a text `in`, the commands `cmd`, one on each line, and the result `out`. Commands are
//
//   REMblock, REMunblock, RemoveSpaces
//   indent <number>   ticks indentation for the commands that follow
//   undo
//
// The marks « and » in `in` stand around the selection; then `out` has them too.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/core/documents/documents_fixture.h"
#include "tests/golden/golden.h"
#include "tools/block_rem.h"
#include "tools/remove_spaces.h"

namespace deck {
namespace {

namespace fs = std::filesystem;

constexpr char16_t kSelectionStart = u'«';
constexpr char16_t kSelectionEnd = u'»';

std::vector<std::string> Cases() {
  std::vector<std::string> cases;
  for (const char* tool : {"align", "rem", "unrem"}) {
    for (const std::string& name : GoldenCases(fs::path(WRENDECK_GOLDEN_FOLDER) / tool))
      cases.push_back(std::string(tool) + "/" + name);
  }
  return cases;
}

class ToolsGolden : public DocumentsFixture, public testing::WithParamInterface<std::string> {
 protected:
  void Load(std::u16string text) {
    const std::size_t start = text.find(kSelectionStart);
    marked_ = start != std::u16string::npos;
    if (!marked_) return Box().Load(text);
    text.erase(start, 1);
    const std::size_t end = text.find(kSelectionEnd, start);
    if (end == std::u16string::npos) throw std::invalid_argument("a selection without an end");
    text.erase(end, 1);
    Box().Load(text);
    Box().Select({static_cast<int>(start), static_cast<int>(end - start)});
  }

  void Run(const std::string& command) {
    if (command == "REMblock") {
      blockRem_.REMblock();
    } else if (command == "REMunblock") {
      blockRem_.REMunblock();
    } else if (command == "RemoveSpaces") {
      alignment_.RemoveSpaces();
    } else if (command == "undo") {
      Box().Undo();
    } else if (command.starts_with("indent ")) {
      settings.IndentAsWell = 1;
      settings.IndentSpaces = static_cast<std::int16_t>(std::stoi(command.substr(7)));
    } else {
      throw std::invalid_argument("no command: " + command);
    }
  }

  std::u16string Outcome() {
    std::u16string text = Box().Text();
    if (!marked_) return text;
    const TextSpan selection = Box().Selection();
    text.insert(static_cast<std::size_t>(selection.end()), 1, kSelectionEnd);
    text.insert(static_cast<std::size_t>(selection.start), 1, kSelectionStart);
    return text;
  }

 private:
  BlockRem blockRem_{documents};
  SlashAlignment alignment_{documents, status, settings, {files, codePage, view}};
  bool marked_ = false;
};

TEST_P(ToolsGolden, MakesTheExpectedText) {
  const fs::path folder = fs::path(WRENDECK_GOLDEN_FOLDER) / GetParam();
  ASSERT_TRUE(fs::exists(folder / "in"));
  Load(FromGolden(ReadGoldenFile(folder / "in")));
  std::istringstream lines(ReadGoldenFile(folder / "cmd"));
  for (std::string command; std::getline(lines, command);) Run(command);
  ExpectGolden(ToGolden(Outcome()), folder / "out");
}

INSTANTIATE_TEST_SUITE_P(Files, ToolsGolden, testing::ValuesIn(Cases()), [](const auto& chosen) {
  std::string name = chosen.param;
  name[name.find('/')] = '_';
  return name;
});

}  // namespace
}  // namespace deck
