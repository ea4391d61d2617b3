// A keyboard as plain values.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/keyboard.h"

namespace deck {

class FakeKeyboard : public Keyboard {
 public:
  std::u16string LayoutName() const override { return layoutName; }
  bool ActivateLayout(const std::u16string& name) override;
  bool IsOn(ToggleKey key) const override { return on.contains(key); }
  void TurnOffCapsLock() override { on.erase(ToggleKey::kCapsLock); }

  std::u16string layoutName = u"00000409";
  bool refusesLayouts = false;
  std::vector<std::u16string> activated;
  std::set<ToggleKey> on;
};

}  // namespace deck
