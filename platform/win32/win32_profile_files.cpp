#include "platform/win32/win32_profile_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <optional>
#include <utility>

#include "platform/strings.h"
#include "platform/text_encoding.h"
#include "platform/win32/second_file.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// What every system takes in one call, in bytes.
constexpr std::size_t kLongestSection = 32767;

// The form of names that the system made up for old programs, or the path itself without one.
std::u16string ShortPath(const std::u16string& path) {
  std::array<wchar_t, MAX_PATH> buffer{};
  const DWORD length = GetShortPathNameW(Wide(path), buffer.data(), buffer.size());
  if (length == 0 || length >= buffer.size()) return path;
  return FromWide({buffer.data(), length});
}

std::u16string_view TrimBlanksAndTabs(std::u16string_view text) {
  constexpr std::u16string_view kBlanks = u" \t";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// "key=value" of each line of the section; nothing when it is too long to be read whole.
std::optional<std::vector<std::string>> ReadSection(const std::string& path,
                                                    const std::string& section) {
  std::string buffer(kLongestSection, '\0');
  const DWORD length = GetPrivateProfileSectionA(section.c_str(), buffer.data(),
                                                 static_cast<DWORD>(buffer.size()), path.c_str());
  if (length + 2 >= buffer.size()) return std::nullopt;
  std::vector<std::string> lines;
  for (const char* line = buffer.data(); *line != '\0'; line += lines.back().size() + 1) {
    lines.emplace_back(line);
  }
  return lines;
}

// The first line with this key, in any case, is the one that counts.
void SetLine(std::vector<std::string>& lines, const std::string& key, const std::string& value) {
  const auto hasKey = [&key](const std::string& line) {
    const std::string_view found = std::string_view(line).substr(0, line.find('='));
    const std::size_t end = found.find_last_not_of(" \t") + 1;
    return end == key.size() && _strnicmp(line.c_str(), key.c_str(), end) == 0;
  };
  const auto line = std::ranges::find_if(lines, hasKey);
  if (line == lines.end()) {
    lines.push_back(key + '=' + value);
  } else {
    *line = key + '=' + value;
  }
}

// The system cuts a file before it writes, and need not notice that the disk is full.
bool HasRoomForACopy(const std::string& path) {
  constexpr ULONGLONG kNewKeys = 65'536;
  ULARGE_INTEGER room{};
  const std::string folder = path.substr(0, path.rfind('\\') + 1);
  if (!GetDiskFreeSpaceExA(folder.c_str(), &room, nullptr, nullptr)) return true;
  WIN32_FILE_ATTRIBUTE_DATA file{};
  if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &file)) return true;
  const ULONGLONG size = (ULONGLONG{file.nFileSizeHigh} << 32) | file.nFileSizeLow;
  return room.QuadPart >= size + kNewKeys;
}

// Writes to a copy of the file, which then takes its place: the system cuts the file before it
// writes, and a process that dies in between would leave half the settings. Not flushed, since what
// a power failure takes of them is easily set again. Where the folder takes no second file, or
// another program has the old one open, the file itself is written.
bool WriteWhole(const std::string& path, const CodePage& codePage,
                const std::function<bool(const std::string&)>& write) {
  if (path.empty() || !HasRoomForACopy(path)) return false;
  const std::u16string name = codePage.Decode(path).value_or(std::u16string());
  const DWORD attributes = GetFileAttributesA(path.c_str());
  const bool isNew = attributes == INVALID_FILE_ATTRIBUTES;
  const bool isReadOnly = !isNew && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (name.empty() || isReadOnly) return write(path);
  const auto writeCopy = [&](const std::u16string& second) -> DWORD {
    const std::string copy = codePage.Encode(second).value_or(std::string());
    if (copy.empty() || copy.size() >= MAX_PATH) return ERROR_INVALID_NAME;
    const bool isThere = isNew || CopyFileA(path.c_str(), copy.c_str(), FALSE);
    return isThere && write(copy) ? ERROR_SUCCESS : ERROR_WRITE_FAULT;
  };
  return ReplaceBySecondFile(name, writeCopy) == ERROR_SUCCESS || write(path);
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
  const ProfileText text{std::u16string(key), std::u16string(value)};
  const std::scoped_lock lock(writing_);
  return WriteWhole(EncodedPath(file), codePage_,
                    [&](const std::string& path) { return SetText(path, section, text); });
}

bool Win32ProfileFiles::WriteTexts(const std::u16string& file, std::u16string_view section,
                                   const std::vector<ProfileText>& texts) {
  const std::scoped_lock lock(writing_);
  return WriteWhole(EncodedPath(file), codePage_,
                    [&](const std::string& path) { return SetTexts(path, section, texts); });
}

bool Win32ProfileFiles::SetText(const std::string& path, std::u16string_view section,
                                const ProfileText& text) const {
  return WritePrivateProfileStringA(Encoded(section).c_str(), Encoded(text.key).c_str(),
                                    Encoded(text.value).c_str(), path.c_str()) != 0;
}

bool Win32ProfileFiles::SetTexts(const std::string& path, std::u16string_view section,
                                 const std::vector<ProfileText>& texts) const {
  const std::string name = Encoded(section);
  std::optional<std::vector<std::string>> lines = ReadSection(path, name);
  if (!lines) return SetOneByOne(path, section, texts);
  for (const ProfileText& text : texts) {
    SetLine(*lines, Encoded(text.key), Encoded(TrimBlanksAndTabs(text.value)));
  }
  std::string all;
  for (const std::string& line : *lines) all += line + '\0';
  if (all.size() >= kLongestSection) return SetOneByOne(path, section, texts);
  return WritePrivateProfileSectionA(name.c_str(), all.c_str(), path.c_str()) != 0;
}

bool Win32ProfileFiles::SetOneByOne(const std::string& path, std::u16string_view section,
                                    const std::vector<ProfileText>& texts) const {
  return std::ranges::all_of(texts,
                             [&](const ProfileText& text) { return SetText(path, section, text); });
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
