// The joystick files that come along as samples and the macro files they name.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "documents/file_kinds.h"
#include "macros/detect_macro_file.h"
#include "macros/extract_macros.h"
#include "platform/strings.h"
#include "platform/text_encoding.h"
#include "tests/fakes/fake_code_page.h"

namespace deck {
namespace {

namespace fs = std::filesystem;

std::u16string TextOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto decoded = DecodeFile(bytes, FakeCodePage());
  return decoded ? decoded->text : std::u16string();
}

std::vector<fs::path> JoystickFiles() {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(WRENDECK_SAMPLE_FOLDER))
    if (IsJoystickFile(entry.path().u16string())) paths.push_back(entry.path());
  return paths;
}

fs::path MacroFileOf(const fs::path& joystickFile) {
  const auto found = FindMacroFileName(TextOf(joystickFile));
  const auto extension = MacroExtensionFor(ExtensionOf(joystickFile.u16string()));
  if (!found || !extension) return {};
  return joystickFile.parent_path() / ComposeMacroFilePath(u"", found->name, *extension);
}

TEST(SamplePairs, EveryJoystickFileNamesAMacroFileBesideIt) {
  ASSERT_GE(JoystickFiles().size(), 8u);
  for (const fs::path& path : JoystickFiles()) {
    EXPECT_TRUE(fs::is_regular_file(MacroFileOf(path))) << path << " names " << MacroFileOf(path);
  }
}

TEST(SamplePairs, MacroFilesHaveHeadingsAndDefinitionsToShow) {
  for (const fs::path& path : JoystickFiles()) {
    const MacroLines lines = GetEachLineFromMacroFile(TextOf(MacroFileOf(path)));
    const MacroList list = ExtractMacrosAndTitles(lines);
    EXPECT_GE(list.HeadingCount(), 2) << path;
    EXPECT_GE(list.MacroCount(), 10) << path;
    int shown = 0;
    for (const std::u16string& name : list.names.front())
      if (DefinitionOf(lines, name)) ++shown;
    EXPECT_GE(shown * 10, list.MacroCount() * 9) << path;
  }
}

}  // namespace
}  // namespace deck
