#include "tests/contract/edit_box/real_edit_box_driver.h"

#include <ole2.h>

#include <array>

namespace deck {
namespace {

constexpr wchar_t kWindowClass[] = L"WrenDeckEditBoxTest";
constexpr int kDpi = 96;

HWND MakeWindow() {
  EXPECT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
  WNDCLASSW description{};
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = kWindowClass;
  RegisterClassW(&description);
  const HWND window = CreateWindowExW(0, kWindowClass, L"Edit box test",
                                      WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 640,
                                      480, nullptr, nullptr, description.hInstance, nullptr);
  SetForegroundWindow(window);
  return window;
}

// One window for all cases: Wine takes seconds to close one when there is no window manager.
HWND SharedWindow() {
  static const HWND window = MakeWindow();
  return window;
}

class HeldKeys {
 public:
  explicit HeldKeys(std::initializer_list<int> keys) {
    GetKeyboardState(before_.data());
    std::array<BYTE, 256> held = before_;
    for (const int key : keys) held[static_cast<std::size_t>(key)] = 0x80;
    SetKeyboardState(held.data());
  }
  ~HeldKeys() { SetKeyboardState(before_.data()); }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  std::array<BYTE, 256> before_{};
};

}  // namespace

RealEditBoxDriver::RealEditBoxDriver()
    : window_(SharedWindow()), box_(settings_, window_, kControlId, kDpi, Counting(events)) {
  settings_.place = {10, 10, 510, 310};
  SetFocus(window_);
}

LRESULT RealEditBoxDriver::Send(UINT message, WPARAM wParam, LPARAM lParam) {
  // A box has its control when it is in view, and only then does a user reach it.
  if (control() == nullptr) box_.SetVisible(true);
  return SendMessageW(control(), message, wParam, lParam);
}

void RealEditBoxDriver::Type(std::u16string_view text) {
  Send(WM_KEYDOWN, 'A', 1);
  for (const char16_t character : text) {
    Send(WM_CHAR, character == u'\n' ? u'\r' : character, 1);
  }
  Send(WM_KEYUP, 'A', 0);
}

void RealEditBoxDriver::MoveCaret(TextSpan selection) {
  Send(WM_KEYDOWN, VK_SHIFT, 1);
  box_.Select(selection);
  Send(WM_KEYUP, VK_SHIFT, 0);
}

void RealEditBoxDriver::MoveMouse() {
  // To a place where it was in no case before.
  static int pointer = 0;
  Send(WM_MOUSEMOVE, 0, MAKELPARAM(++pointer, 3));
}

void RealEditBoxDriver::Press(int key, std::initializer_list<int> modifiers) {
  const HeldKeys held(modifiers);
  MSG message{};
  while (PeekMessageW(&message, control(), WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
  }
  message = {};
  message.hwnd = control();
  message.message = WM_KEYDOWN;
  message.wParam = static_cast<WPARAM>(key);
  message.lParam = 1;
  // Posts the character, as it does in the program's loop.
  TranslateMessage(&message);
  Send(WM_KEYDOWN, message.wParam, message.lParam);
  while (PeekMessageW(&message, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE)) {
    Send(WM_CHAR, message.wParam, message.lParam);
  }
  Send(WM_KEYUP, static_cast<WPARAM>(key), 1);
}

void RealEditBoxDriver::Pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace deck
