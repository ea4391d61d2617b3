// Rules that hold for every table and every sequence of events, for the random test and the fuzz
// target alike. A rule that is broken is reported with its name.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "keytest/key_code_table.h"
#include "keytest/key_tester.h"
#include "platform/strings.h"

namespace deck {

using RequireRule = std::function<void(bool holds, const char* rule)>;

// Codes of keys, and both ends of what a code can be.
inline constexpr std::pair<int, int> kCodeRanges[] = {
    {INT16_MIN, INT16_MIN + 8}, {-300, 300}, {INT16_MAX - 8, INT16_MAX}};

inline void ForEachCode(const std::function<void(std::int16_t code)>& action) {
  for (const auto& [first, last] : kCodeRanges) {
    for (int code = first; code <= last; ++code) action(static_cast<std::int16_t>(code));
  }
}

// Of ParseKeyCodes.
inline void RequireTableRules(std::u16string_view text, const RequireRule& require) {
  const KeyCodeTable table = ParseKeyCodes(text);
  require(table.Count() >= 0 && table.Count() <= KeyCodeTable::kMostEntries, "entries are counted");
  // A table written out again is the same table.
  std::u16string written;
  int named = 0;
  ForEachCode([&](std::int16_t code) {
    const std::u16string* name = table.NameOf(code);
    if (name == nullptr) return;
    ++named;
    require(name->find_first_of(u"\r\n") == std::u16string::npos, "a name is part of a line");
    require(text.find(*name) != std::u16string_view::npos, "a name is what the file says");
    written += Decimal(code) + u"," + *name + u"\n";
  });
  require(named <= table.Count(), "a name needs an entry");
  const KeyCodeTable again = ParseKeyCodes(written);
  require(again.Count() == named, "every name is an entry again");
  ForEachCode([&](std::int16_t code) {
    const std::u16string* name = table.NameOf(code);
    const std::u16string* copy = again.NameOf(code);
    require((name == nullptr) == (copy == nullptr) && (name == nullptr || *name == *copy),
            "a name survives being written");
  });
}

// The machine with the rules round it.
class RuledKeyTester {
 public:
  RuledKeyTester(const KeyCodeTable& table, RequireRule require)
      : table_(table), require_(std::move(require)) {}

  // One event made of any three numbers.
  void Do(int kind, std::int16_t number, std::int16_t modifiers) {
    const KeyTesterState before = state_;
    switch (kind % 8) {
      case 0:
      case 1:
        Down(before, {number, modifiers, (number & 1) != 0});
        break;
      case 2:
      case 3:
        Up({number, modifiers, (number & 1) != 0});
        break;
      case 4:
        Press(before, static_cast<char16_t>(number));
        break;
      case 5:
        require_(!OnTimer1(state_).clearBoxes, "a tick clears nothing");
        require_(state_.clearPending, "a tick is remembered");
        break;
      case 6:
        OnKeysUnseen(state_, modifiers, (number & 1) != 0);
        require_(!(state_.lamps.shift && (modifiers & kShiftModifier) == 0), "no lamp stays lit");
        break;
      default:
        state_.clearDelay = number >= 0 && number < kClearDelays ? number : kClearDelayOff;
        break;
    }
  }

 private:
  void Down(const KeyTesterState& before, const KeyStroke& stroke) {
    const KeyReaction reaction = OnKeyDown(state_, table_, stroke);
    require_(reaction.event && reaction.event->starts_with(u"Down: ") && reaction.event->size() > 6,
             "every key-down has its line");
    require_(reaction.clearBoxes == before.clearPending, "boxes are cleared after a tick only");
    require_(!state_.clearPending && reaction.timer == Timer1Action::kStop,
             "a key-down ends the pause");
    require_(!reaction.name || !reaction.name->empty(), "no name is an empty line");
    require_(!reaction.name || state_.handled, "a named key has no character");
    require_(stroke.code != kAltKey || reaction.swallow, "Alt never gets through");
    require_(reaction.turnOffCapsLock == (stroke.code == kCapsLockKey), "CAPS LOCK goes off");
    require_(state_.clearDelay == before.clearDelay, "only the menu changes the delay");
  }

  void Up(const KeyStroke& stroke) {
    const KeyReaction reaction = OnKeyUp(state_, table_, stroke);
    require_(reaction.event && reaction.event->starts_with(u"Up: ") && reaction.event->size() > 4,
             "every key-up has its line");
    require_(!reaction.name && !reaction.clearBoxes, "a key-up names and clears nothing");
    require_((reaction.timer == Timer1Action::kStart) == (state_.clearDelay != kClearDelayOff),
             "a key-up begins the pause");
    require_(state_.lamps.numLock == stroke.numLockOn, "the NUM LOCK lamp is right");
  }

  void Press(const KeyTesterState& before, char16_t character) {
    const KeyReaction reaction = OnKeyPress(state_, character);
    require_(!state_.handled, "one character is passed over, not two");
    require_(reaction.swallow == reaction.name.has_value(), "what is shown is swallowed");
    require_(reaction.swallow == (!before.handled && character >= 19), "what is shown has no name");
    require_(!reaction.event && !reaction.clearBoxes, "a character is no event");
  }

  const KeyCodeTable& table_;
  RequireRule require_;
  KeyTesterState state_;
};

}  // namespace deck
