#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "standins/cougar_compiler.h"

namespace deck {
namespace {

namespace fs = std::filesystem;

std::optional<std::string> ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<fs::path> SampleJoystickFiles() {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(STANDIN_FILES_DIRECTORY)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".tmj" || extension == ".f22" || extension == ".b50") {
      files.push_back(entry.path());
    }
  }
  return files;
}

TEST(SampleFiles, AllCompileWithTheMacroFilesBesideThem) {
  int pairs = 0;
  for (const fs::path& joystickFile : SampleJoystickFiles()) {
    SCOPED_TRACE(joystickFile.string());
    const std::optional<std::string> text = ReadBytes(joystickFile);
    ASSERT_TRUE(text);
    bool macroFileFound = false;
    const CougarOutcome outcome = CompileCougarText(
        *text, joystickFile.extension().string().substr(1), [&](const std::string& name) {
          std::optional<std::string> macros = ReadBytes(joystickFile.parent_path() / name);
          macroFileFound = macros.has_value();
          return macros;
        });
    EXPECT_EQ(outcome.errorCode, "") << "line " << outcome.lineNumber;
    EXPECT_GT(outcome.memory, 0);
    if (macroFileFound) ++pairs;
  }
  EXPECT_GE(pairs, 8);
}

}  // namespace
}  // namespace deck
