#include "tests/contract/win32/box_driver.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr UINT kLookEvery = 30;  // milliseconds
constexpr int kPatience = 200;   // looks

// Timers without a window carry nothing but their number.
BoxDriver* currentDriver = nullptr;

BOOL CALLBACK TakeIfOpenBox(HWND window, LPARAM found) {
  std::array<wchar_t, 32> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (std::wstring_view(name.data()) != L"#32770" || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND FindOpenBox() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), TakeIfOpenBox, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace

BoxDriver::BoxDriver() : timer_(SetTimer(nullptr, 0, kLookEvery, OnTick)) {
  currentDriver = this;
}

BoxDriver::~BoxDriver() {
  KillTimer(nullptr, timer_);
  currentDriver = nullptr;
}

void BoxDriver::WhenOpen(std::function<void(HWND box)> action) {
  action_ = std::move(action);
  looksInVain_ = 0;
}

void CALLBACK BoxDriver::OnTick(HWND, UINT, UINT_PTR, DWORD) {
  if (currentDriver != nullptr) currentDriver->Look();
}

void BoxDriver::Look() {
  const HWND box = FindOpenBox();
  if (box == nullptr) return;
  if (action_) {
    std::exchange(action_, nullptr)(box);
  } else if (++looksInVain_ > kPatience) {
    PostMessageW(box, WM_COMMAND, GetDlgItem(box, IDNO) != nullptr ? IDNO : IDCANCEL, 0);
  }
}

std::u16string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

}  // namespace deck
