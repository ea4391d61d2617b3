#include "platform/win32/second_file.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/strings.h"
#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr std::u16string_view kExtension = u".tmp";
// As many as a number of 32 bits, and of 63, can have.
constexpr std::size_t kMostProcessDigits = 10;
constexpr std::size_t kMostTickDigits = 19;
constexpr int kTries = 20;
constexpr DWORD kBetweenTries = 10;  // milliseconds

// Takes a number's digits off the text; nothing without a digit or with more than `most`.
std::optional<std::u16string_view> TakeDigits(std::u16string_view& text, std::size_t most) {
  const std::size_t end = std::min(text.find_first_not_of(u"0123456789"), text.size());
  if (end == 0 || end > most) return std::nullopt;
  const std::u16string_view digits = text.substr(0, end);
  text.remove_prefix(end);
  return digits;
}

// The process that a second file of `fileName` belongs to; nothing when `name` is none.
std::optional<DWORD> OwnerOf(std::u16string_view name, std::u16string_view fileName) {
  if (!StartsWithIgnoringCase(name, fileName)) return std::nullopt;
  name.remove_prefix(fileName.size());
  if (!name.starts_with(u'~')) return std::nullopt;
  name.remove_prefix(1);
  const auto process = TakeDigits(name, kMostProcessDigits);
  if (!process || !name.starts_with(u'-')) return std::nullopt;
  name.remove_prefix(1);
  if (!TakeDigits(name, kMostTickDigits) || name != kExtension) return std::nullopt;
  std::uint64_t number = 0;
  for (const char16_t digit : *process) number = number * 10 + (digit - u'0');
  return number <= MAXDWORD ? std::optional(static_cast<DWORD>(number)) : std::nullopt;
}

// The number of a process that died may be this process's own now: what this one needs it has open
// or has put in place already.
bool IsDead(DWORD process) {
  if (process == GetCurrentProcessId()) return true;
  const KernelHandle handle(OpenProcess(SYNCHRONIZE, FALSE, process));
  if (!handle) return GetLastError() == ERROR_INVALID_PARAMETER;
  return WaitForSingleObject(handle.Get(), 0) == WAIT_OBJECT_0;
}

// Fails where somebody has the file open, also on another machine.
void DeleteWhenNobodyHasIt(const std::u16string& path) {
  const FileHandle deleted(CreateFileW(Wide(path), DELETE, 0, nullptr, OPEN_EXISTING,
                                       FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT,
                                       nullptr));
}

// Of this process, and like no other one.
std::u16string SecondName(const std::u16string& path) {
  return path + u"~" + Decimal(GetCurrentProcessId()) + u"-" +
         Decimal(static_cast<std::int64_t>(GetTickCount64())) + std::u16string(kExtension);
}

DWORD PutSecondInPlace(const std::u16string& second, const std::u16string& path, DWORD flags) {
  for (int tries = 1;; ++tries) {
    if (MoveFileExW(Wide(second), Wide(path), MOVEFILE_REPLACE_EXISTING | flags)) {
      return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    const bool isInUse = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!isInUse || tries == kTries) return error;
    Sleep(kBetweenTries);
  }
}

// What dead processes left behind.
void DeleteLeftSecondFiles(const std::u16string& path) {
  WIN32_FIND_DATAW data{};
  const std::u16string pattern = path + u"~*" + std::u16string(kExtension);
  const FindHandle search(FindFirstFileW(Wide(pattern), &data));
  if (!search) return;
  do {
    const std::u16string name = FromWide(data.cFileName);
    const auto owner = OwnerOf(name, FileNameOf(path));
    if (owner && IsDead(*owner)) DeleteWhenNobodyHasIt(std::u16string(FolderOf(path)) + name);
  } while (FindNextFileW(search.Get(), &data));
}

}  // namespace

DWORD ReplaceBySecondFile(const std::u16string& path,
                          const std::function<DWORD(const std::u16string& second)>& write,
                          DWORD flags) {
  DeleteLeftSecondFiles(path);
  const std::u16string second = SecondName(path);
  DWORD error = write(second);
  if (error == ERROR_SUCCESS) error = PutSecondInPlace(second, path, flags);
  if (error != ERROR_SUCCESS) DeleteFileW(Wide(second));
  return error;
}

}  // namespace deck
