#include <algorithm>

#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class KeyboardContract : public testing::Test {
 protected:
  const std::unique_ptr<KeyboardWorld> world_ = MakeKeyboardWorld();
  Keyboard& keyboard_ = world_->Port();
};

TEST_F(KeyboardContract, NamesTheLayoutByEightHexadecimalDigits) {
  const std::u16string name = keyboard_.LayoutName();
  EXPECT_EQ(name.size(), 8U);
  EXPECT_EQ(name.find_first_not_of(u"0123456789ABCDEFabcdef"), std::u16string::npos);
}

TEST_F(KeyboardContract, ActivatesTheLayoutThatIsActive) {
  const std::u16string name = keyboard_.LayoutName();
  EXPECT_TRUE(keyboard_.ActivateLayout(name));
  EXPECT_EQ(keyboard_.LayoutName(), name);
}

TEST_F(KeyboardContract, TellsEachToggle) {
  for (const ToggleKey key : {ToggleKey::kCapsLock, ToggleKey::kNumLock}) {
    world_->Switch(key, true);
    EXPECT_TRUE(keyboard_.IsOn(key));
    world_->Switch(key, false);
    EXPECT_FALSE(keyboard_.IsOn(key));
  }
}

TEST_F(KeyboardContract, TurnsOffCapsLockAndNothingElse) {
  for (const ToggleKey key : {ToggleKey::kCapsLock, ToggleKey::kNumLock}) world_->Switch(key, true);
  keyboard_.TurnOffCapsLock();
  EXPECT_FALSE(keyboard_.IsOn(ToggleKey::kCapsLock));
  EXPECT_TRUE(keyboard_.IsOn(ToggleKey::kNumLock));
  keyboard_.TurnOffCapsLock();
  EXPECT_FALSE(keyboard_.IsOn(ToggleKey::kCapsLock));
}

}  // namespace
}  // namespace deck
