// Keyboard layout and the toggles of the keyboard.
#pragma once

#include <string>

namespace deck {

enum class ToggleKey { kCapsLock = 20, kNumLock = 144 };  // virtual-key codes

class Keyboard {
 public:
  virtual ~Keyboard() = default;
  // Name of the active input locale: eight hexadecimal digits, "00000409".
  virtual std::u16string LayoutName() const = 0;
  // Loads and activates. False when the system refused.
  virtual bool ActivateLayout(const std::u16string& name) = 0;
  virtual bool IsOn(ToggleKey key) const = 0;
  // Clears the CAPS LOCK toggle.
  virtual void TurnOffCapsLock() = 0;
};

}  // namespace deck
