#include "tests/contract/win32/reporting_program.h"

#include <windows.h>

#include <array>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_files.h"

namespace deck {
namespace {

constexpr std::u16string_view kSwitch = u"--report ";
constexpr ULONGLONG kPatience = 20'000;  // milliseconds

std::string Bytes(std::u16string_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

std::u16string Text(const std::string& bytes) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  return text;
}

// The text up to the line's end, which is taken off as well.
std::u16string TakeLine(std::u16string& text) {
  const std::size_t end = text.find(u'\n');
  const std::u16string line = text.substr(0, end);
  text.erase(0, end + 1);
  return line;
}

std::u16string CurrentFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  const DWORD length = GetCurrentDirectoryW(folder.size(), folder.data());
  return FromWide({folder.data(), length});
}

}  // namespace

std::u16string OwnProgram() {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), program.size());
  return FromWide(program.data());
}

std::u16string ReportingCommandLine(const std::u16string& reportFile,
                                    const std::u16string& argument) {
  return u"\"" + OwnProgram() + u"\" " + ReportingArguments(reportFile, argument);
}

std::u16string ReportingArguments(const std::u16string& reportFile,
                                  const std::u16string& argument) {
  return std::u16string(kSwitch) + u"\"" + reportFile + u"\" " + argument;
}

bool ReportIfAsked() {
  const std::u16string commandLine = FromWide(GetCommandLineW());
  const std::size_t at = commandLine.find(kSwitch);
  if (at == std::u16string::npos) return false;
  const std::size_t start = at + kSwitch.size() + 1;
  const std::size_t end = commandLine.find(u'"', start);
  const std::u16string file = commandLine.substr(start, end - start);
  STARTUPINFOW startup{};
  GetStartupInfoW(&startup);
  const bool isShowWindowGiven = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0;
  const std::u16string report = commandLine.substr(end + 2) + u"\n" + CurrentFolder() + u"\n" +
                                (isShowWindowGiven ? Decimal(startup.wShowWindow) : u"?");
  // Whole: the reader takes what it finds. A report that cannot be written is missed by the reader.
  static_cast<void>(Win32Files().Replace(file, Bytes(report)));
  return true;
}

std::optional<ProgramsWorld::Report> TakeReport(const std::u16string& reportFile) {
  Win32Files files;
  const ULONGLONG start = GetTickCount64();
  while (!FileExists(files, reportFile)) {
    if (GetTickCount64() - start > kPatience) return std::nullopt;
    Sleep(5);
  }
  const Result<std::string> bytes = files.Read(reportFile);
  if (!bytes || !files.Delete(reportFile)) return std::nullopt;
  std::u16string text = Text(*bytes);
  ProgramsWorld::Report report;
  report.argument = TakeLine(text);
  report.currentFolder = TakeLine(text);
  report.window = text.empty() ? -1 : text[0] - u'0';
  return report;
}

}  // namespace deck
