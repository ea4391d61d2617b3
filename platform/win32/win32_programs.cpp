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

namespace {

// `program` may be null.
bool StartProcess(const wchar_t* program, const std::u16string& commandLine, ProgramWindow window) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = static_cast<WORD>(window);
  std::wstring writable =
      Wide(commandLine);  // the system writes into it while it looks for the end
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process)) {
    return false;
  }
  const KernelHandle processHandle(process.hProcess);
  const KernelHandle threadHandle(process.hThread);
  return true;
}

}  // namespace

bool Win32Programs::Start(const std::u16string& commandLine, ProgramWindow window) {
  return StartProcess(nullptr, commandLine, window);
}

bool Win32Programs::StartProgram(const std::u16string& program, const std::u16string& commandLine,
                                 ProgramWindow window) {
  return StartProcess(Wide(program), commandLine, window);
}

}  // namespace deck
