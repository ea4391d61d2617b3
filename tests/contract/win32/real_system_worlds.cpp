#include <windows.h>

#include <array>
#include <string_view>

#include "platform/win32/win32_help_system.h"
#include "platform/win32/win32_system_info.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

BOOL CALLBACK CountHelpWindow(HWND window, LPARAM count) {
  std::array<wchar_t, 50> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (std::wstring_view(name.data()).starts_with(L"HH ")) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

class RealHelpSystemWorld : public HelpSystemWorld {
 public:
  HelpSystem& Port() override { return help_; }
  int HelpWindows() const override {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountHelpWindow, reinterpret_cast<LPARAM>(&count));
    return count;
  }

 private:
  Win32HelpSystem help_{nullptr};
};

}  // namespace

std::unique_ptr<HelpSystemWorld> MakeHelpSystemWorld() {
  return std::make_unique<RealHelpSystemWorld>();
}
std::unique_ptr<SystemInfo> MakeSystemInfo() {
  return std::make_unique<Win32SystemInfo>();
}

}  // namespace deck
