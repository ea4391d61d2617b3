// What the key tester makes of each event of the keyboard, as a machine of plain values: an event
// goes in, what is to be done comes out. No window, no timer and no keyboard is touched here; the
// presenter carries the reactions out. Owned by keytest/key_test_presenter.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "keytest/key_code_table.h"

namespace deck {

// Choices of the menu "Clear delay", from 0, and what stands for none of them. The number is stored
// in a settings file and wider than 16 bits with a sign.
inline constexpr int kClearDelayMilliseconds[] = {200, 400, 600, 800, 1000};
inline constexpr int kClearDelays = 5;
inline constexpr int kClearDelayOff = 65535;

struct KeyLamps {
  bool shift = false;    // held
  bool control = false;  // held
  bool alt = false;      // held
  bool numLock = false;  // switched on

  friend bool operator==(const KeyLamps&, const KeyLamps&) = default;
};

struct KeyStroke {
  std::int16_t code = 0;       // virtual-key code
  std::int16_t modifiers = 0;  // those held after this event, a sum of k...Modifier
  bool numLockOn = false;      // after this event
};

struct KeyTesterState {
  KeyLamps lamps;
  bool skipNextKeyDown = false;     // for whoever opens something by a key; no command sets it
  bool handled = false;             // the key has its line: the character that follows gets none
  bool clearPending = false;        // the next key-down clears both boxes
  int clearDelay = kClearDelayOff;  // from 0; kClearDelayOff: the boxes are cleared by hand only

  friend bool operator==(const KeyTesterState&, const KeyTesterState&) = default;
};

enum class Timer1Action { kLeave, kStop, kStart };

// What is to be done, in this order. Lines come without their ends.
struct KeyReaction {
  bool clearBoxes = false;
  Timer1Action timer = Timer1Action::kLeave;
  std::optional<std::u16string> event = {};  // a line for `RTFKeysText`
  std::optional<std::u16string> name = {};   // a line for `RTFKeysDownText`
  // Behind the lines, because other events run meanwhile: their lines come after this event's.
  bool turnOffCapsLock = false;
  bool swallow = false;  // the system must not see the event

  friend bool operator==(const KeyReaction&, const KeyReaction&) = default;
};

KeyReaction OnKeyDown(KeyTesterState& state, const KeyCodeTable& table, const KeyStroke& stroke);
KeyReaction OnKeyUp(KeyTesterState& state, const KeyCodeTable& table, const KeyStroke& stroke);
// The character that a key-down gave.
KeyReaction OnKeyPress(KeyTesterState& state, char16_t character);
// A tick of `Timer1`: the boxes are cleared by the next key-down, not by the tick.
KeyReaction OnTimer1(KeyTesterState& state);
// Keys may have been released or switched unseen, while another window or a menu had the keyboard:
// `modifiers` are those held now, 0 when this window just lost the keyboard.
void OnKeysUnseen(KeyTesterState& state, std::int16_t modifiers, bool numLockOn);

}  // namespace deck
