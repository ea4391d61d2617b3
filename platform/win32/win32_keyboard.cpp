#include "platform/win32/win32_keyboard.h"

#include <windows.h>

#include <array>

#include "platform/win32/wide_text.h"

namespace deck {

std::u16string Win32Keyboard::LayoutName() const {
  std::array<wchar_t, KL_NAMELENGTH> name{};
  if (!GetKeyboardLayoutNameW(name.data())) return {};
  return FromWide(name.data());
}

bool Win32Keyboard::ActivateLayout(const std::u16string& name) {
  return LoadKeyboardLayoutW(Wide(name), KLF_ACTIVATE) != nullptr;
}

bool Win32Keyboard::IsOn(ToggleKey key) const {
  return (GetKeyState(static_cast<int>(key)) & 1) != 0;
}

void Win32Keyboard::TurnOffCapsLock() {
  std::array<BYTE, 256> keys{};
  if (!GetKeyboardState(keys.data())) return;
  keys[VK_CAPITAL] = 0;
  SetKeyboardState(keys.data());
}

}  // namespace deck
