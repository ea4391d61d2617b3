#include "platform/win32/win32_help_system.h"

#include <shellapi.h>

#include <array>
#include <string>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// Commands of the compiled help.
constexpr UINT kHelpContext = 0x0F;
constexpr UINT kCloseAll = 0x12;
constexpr UINT kInitialize = 0x1C;
constexpr UINT kUninitialize = 0x1D;
constexpr UINT kPretranslateMessage = 0xFD;

// By its full path: a library of that name beside the program must not be taken for the system's.
std::wstring LibraryPath() {
  std::array<wchar_t, MAX_PATH> folder{};
  const UINT length = GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
  if (length == 0 || length >= folder.size()) return {};
  return std::wstring(folder.data(), length) + L"\\hhctrl.ocx";
}

}  // namespace

Win32HelpSystem::Call* Win32HelpSystem::Library() {
  if (lookedFor_) return library_;
  lookedFor_ = true;
  const std::wstring path = LibraryPath();
  if (path.empty()) return nullptr;
  // Never unloaded: closed help windows may still run in it.
  const HMODULE module = LoadLibraryW(path.c_str());
  if (module == nullptr) return nullptr;
  library_ = reinterpret_cast<Call*>(reinterpret_cast<void*>(GetProcAddress(module, "HtmlHelpW")));
  return library_;
}

void Win32HelpSystem::Prepare() {
  if (prepared_ || Library() == nullptr) return;
  library_(nullptr, nullptr, kInitialize, reinterpret_cast<DWORD_PTR>(&cookie_));
  prepared_ = true;
}

void Win32HelpSystem::ShowTopic(const std::u16string& file, unsigned contextNumber) {
  if (Library() != nullptr) library_(owner_, Wide(file), kHelpContext, contextNumber);
}

void Win32HelpSystem::OpenWithShell(const std::u16string& file, const std::u16string& folder) {
  ShellExecuteW(owner_, L"Open", Wide(file), nullptr, Wide(folder), SW_SHOWNORMAL);
}

void Win32HelpSystem::CloseAll() {
  if (library_ == nullptr) return;
  library_(nullptr, nullptr, kCloseAll, 0);
  if (prepared_) library_(nullptr, nullptr, kUninitialize, cookie_);
  prepared_ = false;
}

bool Win32HelpSystem::Translate(MSG& message) const {
  if (!prepared_) return false;
  return library_(nullptr, nullptr, kPretranslateMessage, reinterpret_cast<DWORD_PTR>(&message)) !=
         nullptr;
}

}  // namespace deck
