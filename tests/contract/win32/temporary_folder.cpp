#include "tests/contract/win32/temporary_folder.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr int kMostTries = 50;
constexpr DWORD kTryAgainMilliseconds = 100;

std::filesystem::path ToPath(const std::u16string& path) {
  return {Wide(path)};
}

std::u16string CurrentFolder() {
  return FromWide(std::filesystem::current_path().wstring());
}

}  // namespace

TemporaryFolder::TemporaryFolder() : previousCurrentFolder_(CurrentFolder()) {
  static int count = 0;
  const std::u16string parent = FromWide(std::filesystem::temp_directory_path().wstring());
  // A run that was ended may have left folders of a process with the same number.
  do {
    path_ = std::u16string(FolderOf(parent)) + u"deck test " + Decimal(GetCurrentProcessId()) +
            u"-" + Decimal(++count);
    if (CreateDirectoryW(Wide(path_), nullptr)) return;
  } while (GetLastError() == ERROR_ALREADY_EXISTS);
  throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  SetCurrentDirectoryW(Wide(previousCurrentFolder_));
  // A program that has just ended keeps its file for a moment.
  for (int tries = 0; tries < kMostTries && !Remove(); ++tries) Sleep(kTryAgainMilliseconds);
}

bool TemporaryFolder::Remove() const {
  std::error_code problem;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ToPath(path_), problem)) {
    SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  std::filesystem::remove_all(ToPath(path_), problem);
  return !problem;
}

int TemporaryFolder::CountFiles() const {
  const std::filesystem::directory_iterator entries(ToPath(path_));
  return static_cast<int>(std::count_if(begin(entries), end(entries),
                                        [](const auto& entry) { return entry.is_regular_file(); }));
}

}  // namespace deck
