#include "platform/win32/win32_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/strings.h"
#include "platform/win32/handles.h"
#include "platform/win32/second_file.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr LONGLONG kLargestFile = 256LL * 1024 * 1024;
constexpr std::size_t kLargestPiece = std::size_t{16} * 1024 * 1024;
constexpr DWORD kNotReplaceable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
// A second file in their place would not be a link, or not be encrypted.
constexpr DWORD kWrittenInPlace = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_ENCRYPTED;
constexpr DWORD kKeptAttributes =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

Result<void> ToResult(DWORD error) {
  if (error == ERROR_SUCCESS) return {};
  return ProblemOf(error);
}

// What is wrong with the absolute path itself.
DWORD PathError(const std::u16string& path) {
  const bool isDevice = path.starts_with(u"\\\\.\\");
  if (path.empty() || path.find(u'\0') != std::u16string::npos || isDevice)
    return ERROR_INVALID_NAME;
  if (path.size() >= MAX_PATH) return ERROR_FILENAME_EXCED_RANGE;
  return ERROR_SUCCESS;
}

bool SeekToStart(HANDLE file) {
  return SetFilePointerEx(file, {}, nullptr, FILE_BEGIN) != 0;
}

Result<std::string> ReadAll(HANDLE file) {
  if (GetFileType(file) != FILE_TYPE_DISK) return ProblemOf(ERROR_INVALID_NAME);
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size)) return ProblemOf(GetLastError());
  if (size.QuadPart > kLargestFile) return Problem{u"The file is too large."};
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const DWORD wanted = static_cast<DWORD>(std::min(bytes.size() - done, kLargestPiece));
    DWORD got = 0;
    if (!ReadFile(file, bytes.data() + done, wanted, &got, nullptr))
      return ProblemOf(GetLastError());
    if (got == 0) break;
    done += got;
  }
  bytes.resize(done);
  return bytes;
}

// From the file's pointer on.
DWORD WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestPiece));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), wanted, &written, nullptr)) return GetLastError();
    if (written == 0) return ERROR_WRITE_FAULT;
    bytes.remove_prefix(written);
  }
  return ERROR_SUCCESS;
}

DWORD Flush(HANDLE file) {
  return FlushFileBuffers(file) ? ERROR_SUCCESS : GetLastError();
}

// Leaves nothing behind when it fails.
DWORD WriteNewFile(const std::u16string& path, std::string_view bytes, DWORD attributes) {
  FileHandle file(
      CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr));
  if (!file) return GetLastError();
  DWORD error = WriteAll(file.Get(), bytes);
  if (error == ERROR_SUCCESS) error = Flush(file.Get());
  if (error != ERROR_SUCCESS) {
    file.Reset();
    DeleteFileW(Wide(path));
  }
  return error;
}

// Who may use the file, where that differs from the folder's rule.
void CopyAccessRights(const std::u16string& from, const std::u16string& to) {
  DWORD size = 0;
  GetFileSecurityW(Wide(from), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> descriptor(size);
  if (size != 0 &&
      GetFileSecurityW(Wide(from), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size)) {
    SetFileSecurityW(Wide(to), DACL_SECURITY_INFORMATION, descriptor.data());
  }
}

DWORD Overwrite(HANDLE file, std::string_view bytes) {
  // Room first: a full disk is found out before the first old byte is gone.
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size)) return GetLastError();
  const auto wanted = static_cast<LONGLONG>(bytes.size());
  if (wanted > size.QuadPart) {
    size.QuadPart = wanted;
    if (!SetFilePointerEx(file, size, nullptr, FILE_BEGIN) || !SetEndOfFile(file))
      return GetLastError();
  }
  if (!SeekToStart(file)) return GetLastError();
  const DWORD error = WriteAll(file, bytes);
  if (error != ERROR_SUCCESS) return error;
  return SetEndOfFile(file) ? Flush(file) : GetLastError();
}

Result<void> ReplaceInPlace(const std::u16string& path, std::string_view bytes) {
  const FileHandle file(CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file) return ProblemOf(GetLastError());
  const Result<std::string> old = ReadAll(file.Get());
  if (!old) return old.problem();
  const DWORD error = Overwrite(file.Get(), bytes);
  if (error != ERROR_SUCCESS) Overwrite(file.Get(), *old);
  return ToResult(error);
}

std::uint64_t StampOf(const WIN32_FILE_ATTRIBUTE_DATA& data) {
  const auto join = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; };
  const std::uint64_t time =
      join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
  // An odd factor: two files of different size and time hardly ever meet.
  return time * 0x9E3779B97F4A7C15 + join(data.nFileSizeHigh, data.nFileSizeLow);
}

class Win32FileLock : public FileLock {
 public:
  explicit Win32FileLock(FileHandle file) : file_(std::move(file)) {}

 private:
  FileHandle file_;
};

}  // namespace

std::optional<FileAttributes> Win32Files::Attributes(const std::u16string& path) const {
  const std::u16string absolute = Absolute(path);
  if (PathError(absolute) != ERROR_SUCCESS) return std::nullopt;
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(Wide(absolute), GetFileExInfoStandard, &data)) return std::nullopt;
  const bool folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return FileAttributes{.folder = folder,
                        .readOnly = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0,
                        .stamp = folder ? 0 : StampOf(data)};
}

Result<std::string> Win32Files::Read(const std::u16string& path) const {
  const std::u16string absolute = Absolute(path);
  if (const DWORD error = PathError(absolute)) return ProblemOf(error);
  const FileHandle file(CreateFileW(Wide(absolute), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return ProblemOf(GetLastError());
  return ReadAll(file.Get());
}

Result<void> Win32Files::ReplaceWhole(const std::u16string& path, std::string_view bytes) {
  const std::u16string absolute = Absolute(path);
  if (const DWORD error = PathError(absolute)) return ProblemOf(error);
  const DWORD attributes = GetFileAttributesW(Wide(absolute));
  const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
  if (exists && (attributes & kNotReplaceable) != 0) return ProblemOf(ERROR_ACCESS_DENIED);
  if (exists && (attributes & kWrittenInPlace) != 0) return ProblemOf(ERROR_NOT_SUPPORTED);
  const DWORD kept = exists ? attributes & kKeptAttributes : 0;
  const auto write = [&](const std::u16string& second) {
    const DWORD error = WriteNewFile(second, bytes, kept | FILE_ATTRIBUTE_ARCHIVE);
    if (error == ERROR_SUCCESS) CopyAccessRights(absolute, second);
    return error;
  };
  return ToResult(ReplaceBySecondFile(absolute, write, MOVEFILE_WRITE_THROUGH));
}

Result<void> Win32Files::Replace(const std::u16string& path, std::string_view bytes) {
  Result<void> whole = ReplaceWhole(path, bytes);
  const std::u16string absolute = Absolute(path);
  if (whole || PathError(absolute) != ERROR_SUCCESS) return whole;
  const DWORD attributes = GetFileAttributesW(Wide(absolute));
  if (attributes == INVALID_FILE_ATTRIBUTES)
    return ToResult(WriteNewFile(absolute, bytes, FILE_ATTRIBUTE_NORMAL));
  if ((attributes & kNotReplaceable) != 0) return whole;
  return ReplaceInPlace(absolute, bytes);
}

Result<void> Win32Files::Create(const std::u16string& path, std::string_view bytes) {
  const std::u16string absolute = Absolute(path);
  if (const DWORD error = PathError(absolute)) return ProblemOf(error);
  return ToResult(WriteNewFile(absolute, bytes, FILE_ATTRIBUTE_NORMAL));
}

bool Win32Files::Delete(const std::u16string& path) {
  const std::u16string absolute = Absolute(path);
  if (PathError(absolute) != ERROR_SUCCESS) return false;
  const DWORD attributes = GetFileAttributesW(Wide(absolute));
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  }
  return (attributes & kNotReplaceable) == 0 && DeleteFileW(Wide(absolute));
}

bool Win32Files::Copy(const std::u16string& from, const std::u16string& to) {
  const std::u16string source = Absolute(from);
  const std::u16string target = Absolute(to);
  return PathError(source) == ERROR_SUCCESS && PathError(target) == ERROR_SUCCESS &&
         CopyFileW(Wide(source), Wide(target), TRUE);
}

bool Win32Files::CreateFolder(const std::u16string& path) {
  const std::u16string absolute = Absolute(path);
  return PathError(absolute) == ERROR_SUCCESS && CreateDirectoryW(Wide(absolute), nullptr);
}

std::vector<std::u16string> Win32Files::FilesIn(const std::u16string& folder) const {
  std::vector<std::u16string> names;
  std::u16string pattern = Absolute(folder);
  if (PathError(pattern) != ERROR_SUCCESS) return names;
  if (!pattern.ends_with(u'\\')) pattern += u'\\';
  pattern += u'*';
  WIN32_FIND_DATAW data{};
  const FindHandle search(FindFirstFileW(Wide(pattern), &data));
  if (!search) return names;
  do {
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      names.push_back(FromWide(data.cFileName));
  } while (FindNextFileW(search.Get(), &data));
  return names;
}

std::unique_ptr<FileLock> Win32Files::Lock(const std::u16string& path) {
  const std::u16string absolute = Absolute(path);
  if (PathError(absolute) != ERROR_SUCCESS) return nullptr;
  FileHandle file(CreateFileW(Wide(absolute), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (!file) return nullptr;
  return std::make_unique<Win32FileLock>(std::move(file));
}

std::u16string Win32Files::Absolute(const std::u16string& path) const {
  if (path.empty() || path.find(u'\0') != std::u16string::npos) return path;
  std::wstring absolute(MAX_PATH, L'\0');
  DWORD length =
      GetFullPathNameW(Wide(path), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
  if (length >= absolute.size()) {
    absolute.resize(length);
    length = GetFullPathNameW(Wide(path), length, absolute.data(), nullptr);
  }
  absolute.resize(length);
  return FromWide(absolute);
}

bool Win32Files::SetCurrentFolder(const std::u16string& path) {
  return path.find(u'\0') == std::u16string::npos && SetCurrentDirectoryW(Wide(path));
}

}  // namespace deck
