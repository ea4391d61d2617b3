#include "platform/win32/win32_profile_files.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/strings.h"
#include "platform/text_encoding.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// The form of names that the system made up for old programs, or the path itself without one.
std::u16string ShortPath(const std::u16string& path) {
  std::array<wchar_t, MAX_PATH> buffer{};
  const DWORD length = GetShortPathNameW(Wide(path), buffer.data(), buffer.size());
  if (length == 0 || length >= buffer.size()) return path;
  return FromWide({buffer.data(), length});
}

}  // namespace

int Win32ProfileFiles::ReadInteger(const std::u16string& file, std::u16string_view section,
                                   std::u16string_view key, int fallback) const {
  const std::string path = EncodedPath(file);
  if (path.empty()) return fallback;
  return static_cast<int>(GetPrivateProfileIntA(Encoded(section).c_str(), Encoded(key).c_str(),
                                                fallback, path.c_str()));
}

std::u16string Win32ProfileFiles::ReadText(const std::u16string& file, std::u16string_view section,
                                           std::u16string_view key, std::u16string_view fallback,
                                           int buffer) const {
  const std::string path = EncodedPath(file);
  if (path.empty()) return std::u16string(TrimRight(fallback));
  std::string value(static_cast<std::size_t>(std::max(buffer, 1)), '\0');
  const DWORD length = GetPrivateProfileStringA(Encoded(section).c_str(), Encoded(key).c_str(),
                                                Encoded(TrimRight(fallback)).c_str(), value.data(),
                                                static_cast<DWORD>(value.size()), path.c_str());
  value.resize(length);
  return DecodeValue(value, codePage_);
}

bool Win32ProfileFiles::WriteText(const std::u16string& file, std::u16string_view section,
                                  std::u16string_view key, std::u16string_view value) {
  const std::string path = EncodedPath(file);
  return !path.empty() && WritePrivateProfileStringA(Encoded(section).c_str(), Encoded(key).c_str(),
                                                     Encoded(value).c_str(), path.c_str());
}

std::string Win32ProfileFiles::Encoded(std::u16string_view text) const {
  return EncodeValue(text, codePage_);
}

std::string Win32ProfileFiles::EncodedPath(const std::u16string& path) const {
  if (auto bytes = codePage_.Encode(path)) return *std::move(bytes);
  // A file that is still to be written has no short name, but its folder has.
  const std::u16string folder = ShortPath(std::u16string(FolderOf(path)));
  if (auto bytes = codePage_.Encode(folder + std::u16string(FileNameOf(path)))) {
    return *std::move(bytes);
  }
  return codePage_.Encode(ShortPath(path)).value_or(std::string());
}

}  // namespace deck
