// The files in corpus/, each given once to the fuzz target that its folder is named after: what the
// fuzzer found worth keeping is tried again in every native run, with any compiler.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_input.h"

#define FUZZ_TARGET(name) extern "C" int name(const std::uint8_t* bytes, std::size_t size);
WRENDECK_FUZZ_TARGETS
#undef FUZZ_TARGET

namespace deck {

void RuleBroken() {
  throw std::logic_error("a rule of the target does not hold");
}

namespace {

namespace fs = std::filesystem;

struct Target {
  std::string name;
  int (*run)(const std::uint8_t* bytes, std::size_t size);

  friend std::ostream& operator<<(std::ostream& out, const Target& target) {
    return out << target.name;
  }
};

std::vector<Target> Targets() {
#define FUZZ_TARGET(name) {#name, &::name},
  return {WRENDECK_FUZZ_TARGETS};
#undef FUZZ_TARGET
}

// In order of their names, so that a failure shows again.
std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  if (!fs::is_directory(folder)) return entries;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    entries.push_back(entry.path());
  }
  std::ranges::sort(entries);
  return entries;
}

std::vector<std::uint8_t> BytesOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << file;
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class FuzzCorpus : public testing::TestWithParam<Target> {};

TEST_P(FuzzCorpus, KeepsTheRulesOfItsTarget) {
  const std::vector<fs::path> files = EntriesOf(fs::path(WRENDECK_FUZZ_CORPUS) / GetParam().name);
  ASSERT_FALSE(files.empty()) << "no files for " << GetParam().name;
  for (const fs::path& file : files) {
    const std::vector<std::uint8_t> bytes = BytesOf(file);
    // A sanitizer ends the program: the last line then names the file.
    std::clog << file.filename() << '\n';
    EXPECT_NO_THROW(GetParam().run(bytes.data(), bytes.size())) << file;
  }
}

INSTANTIATE_TEST_SUITE_P(EachFile, FuzzCorpus, testing::ValuesIn(Targets()),
                         [](const auto& tried) { return tried.param.name; });

TEST(FuzzCorpusFolders, AreThoseOfTheTargets) {
  for (const fs::path& folder : EntriesOf(WRENDECK_FUZZ_CORPUS)) {
    EXPECT_TRUE(std::ranges::any_of(
        Targets(), [&](const Target& target) { return target.name == folder.filename(); }))
        << "nothing reads " << folder;
  }
}

}  // namespace
}  // namespace deck
