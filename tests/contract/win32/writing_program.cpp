#include "tests/contract/win32/writing_program.h"

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_profile_files.h"
#include "tests/contract/win32/reporting_program.h"

namespace deck {
namespace {

constexpr std::u16string_view kSwitch = u"--write-for-ever ";
constexpr std::u16string_view kSettingsSwitch = u"--write-settings-for-ever ";

std::u16string CommandLine(std::u16string_view how, const std::u16string& file) {
  return u"\"" + OwnProgram() + u"\" " + std::u16string(how) + file;
}

[[noreturn]] void WriteFiles(const std::u16string& file) {
  Win32Files files;
  for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    static_cast<void>(files.Replace(file, std::string(kWrittenLength, letter)));
  }
}

[[noreturn]] void WriteSettings(const std::u16string& file) {
  const Win32CodePage codePage;
  Win32ProfileFiles profiles(codePage);
  // No other such program begins with this number.
  for (auto number = static_cast<std::int64_t>(GetTickCount64() % 1'000'000'000);; ++number) {
    std::vector<ProfileText> texts;
    for (int key = 0; key < kSettingsWritten; ++key) {
      texts.push_back({u"Key" + Decimal(key), Decimal(number)});
    }
    static_cast<void>(profiles.WriteTexts(file, u"Written", texts));
  }
}

}  // namespace

unsigned Kills() {
  constexpr unsigned kUsually = 12;
  const char* wanted = std::getenv("DECK_KILLS");
  return wanted == nullptr ? kUsually : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}

KilledProgram::KilledProgram(const std::u16string& commandLine) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  std::wstring writable = Wide(commandLine);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process)) {
    return;  // the test sees that nothing is written
  }
  process_ = KernelHandle(process.hProcess);
  CloseHandle(process.hThread);
}

KilledProgram::~KilledProgram() {
  if (!process_) return;
  TerminateProcess(process_.Get(), 1);
  WaitForSingleObject(process_.Get(), INFINITE);
}

std::u16string WritingCommandLine(const std::u16string& file) {
  return CommandLine(kSwitch, file);
}

std::u16string SettingsWritingCommandLine(const std::u16string& file) {
  return CommandLine(kSettingsSwitch, file);
}

void WriteForEverIfAsked() {
  const std::u16string commandLine = FromWide(GetCommandLineW());
  const auto fileBehind = [&](std::u16string_view how) {
    const std::size_t at = commandLine.find(how);
    return at == std::u16string::npos ? std::u16string() : commandLine.substr(at + how.size());
  };
  if (const std::u16string file = fileBehind(kSwitch); !file.empty()) WriteFiles(file);
  if (const std::u16string file = fileBehind(kSettingsSwitch); !file.empty()) WriteSettings(file);
}

}  // namespace deck
