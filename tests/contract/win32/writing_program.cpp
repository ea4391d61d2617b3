#include "tests/contract/win32/writing_program.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "platform/win32/wide_text.h"
#include "platform/win32/win32_files.h"

namespace deck {
namespace {

constexpr std::u16string_view kSwitch = u"--write-for-ever ";

}  // namespace

std::u16string WritingCommandLine(const std::u16string& file) {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), program.size());
  return u"\"" + FromWide(program.data()) + u"\" " + std::u16string(kSwitch) + file;
}

void WriteForEverIfAsked() {
  const std::u16string commandLine = FromWide(GetCommandLineW());
  const std::size_t at = commandLine.find(kSwitch);
  if (at == std::u16string::npos) return;
  const std::u16string file = commandLine.substr(at + kSwitch.size());
  Win32Files files;
  for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    static_cast<void>(files.Replace(file, std::string(kWrittenLength, letter)));
  }
}

}  // namespace deck
