// What the cases need of the key tester's window next to its port: a user's hands and eyes.
// fake_key_test_view_world.cpp makes it of the stand-in, win32_key_test_view_world.cpp of the real
// window; a program is linked to one of the two.
#pragma once

#include <cstdint>
#include <memory>

#include "keytest/key_test_view.h"

namespace deck {

class KeyTestViewWorld {
 public:
  virtual ~KeyTestViewWorld() = default;
  virtual KeyTestView& View() = 0;

  // Without modifiers.
  virtual void PressKey(std::int16_t code) = 0;
  virtual void ReleaseKey(std::int16_t code) = 0;
  virtual void Type(char16_t character) = 0;
  virtual void LoseKeyboard() = 0;
  virtual void Choose(KeyTestCommand command) = 0;
  virtual void ClickMenusLabel() = 0;
  virtual void ClickModeWarning() = 0;
  virtual void ClickBox(KeyBox box) = 0;
  // Lines from 0, `end` not included.
  virtual void SelectLines(KeyBox box, int first, int end) = 0;
  virtual void CloseWindow() = 0;
  // Lets the time pass with its ticks.
  virtual void Wait(int milliseconds) = 0;

  virtual bool IsOpen() const = 0;
  virtual bool IsVisible() const = 0;
  virtual KeyLamps SeenLamps() const = 0;
  virtual KeyTestLook SeenLook() const = 0;
};
std::unique_ptr<KeyTestViewWorld> MakeKeyTestViewWorld();

}  // namespace deck
