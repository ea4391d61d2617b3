// Any command line names one file or none; any result of a file dialog is a list of paths.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/startup_file.h"
#include "documents/multi_select.h"
#include "platform/strings.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

void NameStartupFile(const std::u16string& line) {
  const std::u16string file = StartupFileOf(line);
  Require(line.find(file) != std::u16string::npos);
  Require(file.size() < line.size() || line.empty() || file.empty());
}

void SplitSelection(const std::u16string& selection) {
  const std::vector<std::u16string> paths = ExtractFilePathsOnMultiOpen(selection);
  const auto separators = std::ranges::count(selection, u'\0');
  Require(paths.size() <= static_cast<std::size_t>(separators) + 1);
  for (const std::u16string& path : paths) {
    Require(path.find(u'\0') == std::u16string::npos);
    Require(path.size() <= selection.size() + 1);
  }
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const std::u16string line = input.Text();
  deck::NameStartupFile(line);
  std::u16string selection = line;
  std::ranges::replace(selection, u'\n', u'\0');
  deck::SplitSelection(selection);
  return 0;
}
