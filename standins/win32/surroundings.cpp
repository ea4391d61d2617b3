#include "standins/win32/surroundings.h"

#include <windows.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace deck {
namespace {

constexpr DWORD kLongestValue = 32768;

struct CloseFile {
  void operator()(HANDLE file) const { CloseHandle(file); }
};
using FileHandle = std::unique_ptr<void, CloseFile>;

FileHandle Open(const std::wstring& path, DWORD access, DWORD disposition) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  HANDLE file = CreateFileW(path.c_str(), access, kShareAll, nullptr, disposition,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  return FileHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool WriteAll(const FileHandle& file, std::string_view bytes) {
  DWORD written = 0;
  return file &&
         WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size();
}

std::wstring ProgramPath() {
  std::vector<wchar_t> buffer(32768);
  const DWORD length =
      GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  return {buffer.data(), length};
}

std::string Encode(UINT codePage, std::wstring_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, text.data(), length,
                                                                 nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(),
                      static_cast<int>(bytes.size()), nullptr, nullptr);
  return bytes;
}

std::wstring CurrentDirectory() {
  std::wstring directory(GetCurrentDirectoryW(0, nullptr), L'\0');
  directory.resize(GetCurrentDirectoryW(static_cast<DWORD>(directory.size()), directory.data()));
  return directory;
}

std::string Folded(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 'a' - 'A');
  }
  return text;
}

std::wstring ShowStyle() {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  GetStartupInfoW(&startup);
  return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? std::to_wstring(startup.wShowWindow)
                                                       : L"-";
}

}  // namespace

std::wstring ProgramDirectory() {
  const std::wstring path = ProgramPath();
  return path.substr(0, path.rfind(L'\\') + 1);
}

std::wstring ProgramName() {
  const std::wstring path = ProgramPath();
  const std::wstring name = path.substr(path.rfind(L'\\') + 1);
  return name.substr(0, name.rfind(L'.'));
}

std::string ToCodePage(std::wstring_view text) {
  return Encode(CP_ACP, text);
}

std::wstring FromCodePage(std::string_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::optional<std::string> ReadWholeFile(const std::wstring& path) {
  const FileHandle file = Open(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size{};
  if (!file || !GetFileSizeEx(file.get(), &size) || size.HighPart != 0) return std::nullopt;
  std::string bytes(size.LowPart, '\0');
  DWORD read = 0;
  if (!ReadFile(file.get(), bytes.data(), size.LowPart, &read, nullptr)) return std::nullopt;
  bytes.resize(read);
  return bytes;
}

bool WriteWholeFile(const std::wstring& path, std::string_view bytes) {
  return WriteAll(Open(path, GENERIC_WRITE, CREATE_ALWAYS), bytes);
}

ControlFile::ControlFile() {
  const std::string path = ToCodePage(ProgramDirectory() + ProgramName() + L".control.ini");
  const auto read = [&path](const char* key) {
    std::string value(kLongestValue, '\0');
    value.resize(
        GetPrivateProfileStringA("Control", key, "", value.data(), kLongestValue, path.c_str()));
    return value;
  };
  // Without a key the profile functions give the names of all keys, each with a NUL behind it.
  const std::string keys = read(nullptr);
  for (std::size_t start = 0; start < keys.size();) {
    const std::string key = keys.c_str() + start;
    values_[Folded(key)] = read(key.c_str());
    start += key.size() + 1;
  }
}

std::optional<std::string> ControlFile::Text(const std::string& key) const {
  const auto found = values_.find(Folded(key));
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

int ControlFile::Number(const std::string& key, int absent) const {
  const std::string value = Text(key).value_or("");
  return value.empty() ? absent : static_cast<int>(std::strtoll(value.c_str(), nullptr, 10));
}

void AppendRunRecord(const std::wstring& file) {
  const std::wstring block = std::wstring(L"command line: ") + GetCommandLineW() +
                             L"\r\ndirectory: " + CurrentDirectory() + L"\r\nshow: " + ShowStyle() +
                             L"\r\n\r\n";
  // One write in append mode, so that two programs started together do not mix their blocks.
  if (!WriteAll(Open(file, FILE_APPEND_DATA, OPEN_ALWAYS), Encode(CP_UTF8, block))) {
    OutputDebugStringW(L"A run could not be recorded.\n");
  }
}

void RecordRun(const ControlFile& control) {
  const std::optional<std::string> record = control.Text("Record");
  if (!record || record->empty()) return;
  const std::wstring path = FromCodePage(*record);
  const bool isAbsolute = path.starts_with(L'\\') || path.substr(1, 1) == L":";
  AppendRunRecord(isAbsolute ? path : ProgramDirectory() + path);
}

HotasIni::HotasIni(const char* section) : path_(ToCodePage(Path())), section_(section) {}

void HotasIni::Write(const char* key, const std::string& value) {
  if (!WritePrivateProfileStringA(section_, key, value.c_str(), path_.c_str())) allWritten_ = false;
}

void HotasIni::RemoveSection() {
  if (!WritePrivateProfileStringA(section_, nullptr, nullptr, path_.c_str())) allWritten_ = false;
}

}  // namespace deck
