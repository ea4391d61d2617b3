// The rules of the key tester once more, step by step, with the two boxes as texts and without a
// thought for speed: what the machine and the table must agree with on any keys.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "keytest/key_tester.h"

namespace deck {

class PlainKeyTester {
 public:
  // `keyCodes` is the content of the table's file.
  explicit PlainKeyTester(std::u16string_view keyCodes);

  // True when the system must not see the event.
  bool Down(std::int16_t code, std::int16_t mask);
  bool Up(std::int16_t code, std::int16_t mask, bool numLockOn);
  bool Press(char16_t character);
  void Tick();
  void KeysUnseen(std::int16_t mask, bool numLockOn);
  void ChooseDelay(int index) { delay_ = index; }

  std::u16string events;  // of the log, every line with CR LF
  std::u16string names;
  KeyLamps lamps;
  bool timerRuns = false;
  int capsLockSwitchedOff = 0;  // times

 private:
  std::u16string Name(std::int16_t code, std::int16_t mask, bool& modifierOnly) const;
  std::u16string Event(std::int16_t code) const;

  std::vector<std::pair<int, std::u16string>> table_;
  int delay_ = kClearDelayOff;
  bool handled_ = false;
  bool clearPending_ = false;
};

// Both side by side: gives each event to the machine, carries out what it answers and compares.
class ComparedKeyTester {
 public:
  explicit ComparedKeyTester(std::u16string_view keyCodes);

  // One event made of any three numbers; false when the two do not agree any more.
  [[nodiscard]] bool Do(int kind, std::int16_t number, std::int16_t mask);

 private:
  bool CarryOut(const KeyReaction& reaction);
  bool Agree() const;

  KeyCodeTable table_;
  KeyTesterState state_;
  PlainKeyTester plain_;
  std::u16string events_;
  std::u16string names_;
  bool timerRuns_ = false;
  int capsLockSwitchedOff_ = 0;
};

}  // namespace deck
