#include "platform/win32/win32_programs.h"

#include <windows.h>

#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"

namespace deck {

static_assert(static_cast<int>(ProgramWindow::kHidden) == SW_HIDE);
static_assert(static_cast<int>(ProgramWindow::kNormal) == SW_SHOWNORMAL);
static_assert(static_cast<int>(ProgramWindow::kMinimised) == SW_SHOWMINIMIZED);
static_assert(static_cast<int>(ProgramWindow::kMaximised) == SW_SHOWMAXIMIZED);
static_assert(static_cast<int>(ProgramWindow::kNormalWithoutFocus) == SW_SHOWNOACTIVATE);
static_assert(static_cast<int>(ProgramWindow::kMinimisedWithoutFocus) == SW_MINIMIZE);

bool Win32Programs::Start(const std::u16string& commandLine, ProgramWindow window) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = static_cast<WORD>(window);
  std::wstring writable =
      Wide(commandLine);  // the system writes into it while it looks for the end
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process)) {
    return false;
  }
  const KernelHandle processHandle(process.hProcess);
  const KernelHandle threadHandle(process.hThread);
  return true;
}

// In quotes the system looks for nothing but this file. The program itself sees the same command
// line either way: round a path with blanks that it has found the system puts quotes too.
bool Win32Programs::StartProgram(const std::u16string& program, const std::u16string& commandLine,
                                 ProgramWindow window) {
  const bool isAmbiguous = program.find(u' ') != std::u16string::npos &&
                           program.find(u'"') == std::u16string::npos &&
                           commandLine.starts_with(program);
  if (!isAmbiguous) return Start(commandLine, window);
  return Start(u"\"" + program + u"\"" + commandLine.substr(program.size()), window);
}

}  // namespace deck
