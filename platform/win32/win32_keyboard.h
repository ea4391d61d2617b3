// The keyboard as the calling thread sees it. Owned by the program's entry.
#pragma once

#include "platform/keyboard.h"

namespace deck {

class Win32Keyboard : public Keyboard {
 public:
  std::u16string LayoutName() const override;
  bool ActivateLayout(const std::u16string& name) override;
  bool IsOn(ToggleKey key) const override;
  void TurnOffCapsLock() override;
};

}  // namespace deck
