#include "tests/fakes/fake_keyboard.h"

namespace deck {

bool FakeKeyboard::ActivateLayout(const std::u16string& name) {
  if (refusesLayouts) return false;
  activated.push_back(name);
  layoutName = name;
  return true;
}

}  // namespace deck
