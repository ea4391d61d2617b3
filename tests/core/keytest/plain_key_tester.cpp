#include "tests/core/keytest/plain_key_tester.h"

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// Nothing for what is no number of 16 bits.
bool ReadCode(std::u16string_view text, int& code) {
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  bool negative = false;
  if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) {
    negative = text.front() == u'-';
    text.remove_prefix(1);
  }
  if (text.empty()) return false;
  long long number = 0;
  for (const char16_t character : text) {
    if (character < u'0' || character > u'9') return false;
    number = number * 10 + (character - u'0');
    if (number > 100'000) number = 100'000;
  }
  if (negative) number = -number;
  if (number < -32768 || number > 32767) return false;
  code = static_cast<int>(number);
  return true;
}

void AddLine(std::u16string& box, const std::u16string& line) {
  box += line;
  box += kLineBreak;
}

bool IsHeld(std::int16_t mask, int bit) {
  return (mask & bit) != 0;
}

}  // namespace

PlainKeyTester::PlainKeyTester(std::u16string_view keyCodes) {
  table_.emplace_back(-1, u" ");
  std::u16string line;
  const auto take = [this, &line] {
    const std::size_t comma = line.find(u',');
    int code = 0;
    if (comma != std::u16string::npos && ReadCode(line.substr(0, comma), code) &&
        table_.size() <= 32767) {
      table_.emplace_back(code, line.substr(comma + 1));
    }
    line.clear();
  };
  for (const char16_t character : keyCodes) {
    if (character == u'\r' || character == u'\n') {
      take();
    } else {
      line += character;
    }
  }
  take();
}

std::u16string PlainKeyTester::Name(std::int16_t code, std::int16_t mask,
                                    bool& modifierOnly) const {
  if (code == 17 || code == 18) {
    modifierOnly = true;
    return u"";
  }
  std::u16string name;
  for (std::size_t entry = 1; entry < table_.size(); ++entry) {
    if (table_[entry].first == code) name = table_[entry].second;
  }
  if (mask == 0) return name;
  std::u16string prefix;
  if (mask >= 1 && mask <= 7) {
    if (IsHeld(mask, 1)) prefix += u"Shift ";
    if (IsHeld(mask, 2)) prefix += u"Ctrl ";
    if (IsHeld(mask, 4)) prefix += u"Alt ";
  }
  if (!name.empty()) return prefix + name;
  if (mask >= 2 && code != 16) {
    if (code != 0) prefix += ToLower(static_cast<char16_t>(code));
    return prefix;
  }
  modifierOnly = true;
  return u"";
}

std::u16string PlainKeyTester::Event(std::int16_t code) const {
  if (code == 16) return u"SHF";
  if (code == 17) return u"CTL";
  if (code == 18) return u"ALT";
  if (code >= 48 && code <= 57) return Decimal(code - 48);
  if (code >= 65 && code <= 90) return std::u16string(1, static_cast<char16_t>(code + 32));
  bool ignored = false;
  const std::u16string name = Name(code, 0, ignored);
  return name.empty() ? Decimal(code) : name;
}

bool PlainKeyTester::Down(std::int16_t code, std::int16_t mask) {
  handled_ = false;
  if (clearPending_) {
    events.clear();
    names.clear();
  }
  timerRuns = false;
  clearPending_ = false;
  if (IsHeld(mask, 1)) lamps.shift = true;
  if (IsHeld(mask, 2)) lamps.control = true;
  if (IsHeld(mask, 4)) lamps.alt = true;
  if (code == 20) ++capsLockSwitchedOff;
  AddLine(events, u"Down: " + Event(code));
  const std::u16string name = Name(code, mask, handled_);
  // Alt, F1, F10 and the menu key, which open menus and help.
  bool swallow = code == 18 || code == 112 || code == 121 || code == 93;
  if (!name.empty()) {
    AddLine(names, name);
    handled_ = true;
    if (name == u"F10" || name == u"F1") swallow = true;
  }
  return swallow;
}

bool PlainKeyTester::Up(std::int16_t code, std::int16_t mask, bool numLockOn) {
  timerRuns = delay_ < 65535;
  clearPending_ = false;
  // Unless its twin on the other side is still held.
  if (code == 16 && !IsHeld(mask, 1)) lamps.shift = false;
  if (code == 17 && !IsHeld(mask, 2)) lamps.control = false;
  if (code == 18 && !IsHeld(mask, 4)) lamps.alt = false;
  lamps.numLock = numLockOn;
  if (code == 20) ++capsLockSwitchedOff;
  AddLine(events, u"Up: " + Event(code));
  return code == 18 || code == 112 || code == 121 || code == 93;
}

bool PlainKeyTester::Press(char16_t character) {
  if (handled_) {
    handled_ = false;
    return false;
  }
  if (character < 19) return false;
  AddLine(names, u" " + std::u16string(1, character));
  return true;
}

void PlainKeyTester::Tick() {
  clearPending_ = true;
  timerRuns = false;
}

void PlainKeyTester::KeysUnseen(std::int16_t mask, bool numLockOn) {
  if (!IsHeld(mask, 1)) lamps.shift = false;
  if (!IsHeld(mask, 2)) lamps.control = false;
  if (!IsHeld(mask, 4)) lamps.alt = false;
  lamps.numLock = numLockOn;
}

ComparedKeyTester::ComparedKeyTester(std::u16string_view keyCodes)
    : table_(ParseKeyCodes(keyCodes)), plain_(keyCodes) {}

bool ComparedKeyTester::Do(int kind, std::int16_t number, std::int16_t mask) {
  const bool numLockOn = (mask & 64) != 0;
  const KeyStroke stroke{number, mask, numLockOn};
  switch (kind % 8) {
    case 0:
    case 1:
    case 2: {
      const bool swallow = CarryOut(OnKeyDown(state_, table_, stroke));
      return swallow == plain_.Down(number, mask) && Agree();
    }
    case 3:
    case 4: {
      const bool swallow = CarryOut(OnKeyUp(state_, table_, stroke));
      return swallow == plain_.Up(number, mask, numLockOn) && Agree();
    }
    case 5: {
      const bool swallow = CarryOut(OnKeyPress(state_, static_cast<char16_t>(number)));
      return swallow == plain_.Press(static_cast<char16_t>(number)) && Agree();
    }
    case 6:
      CarryOut(OnTimer1(state_));
      plain_.Tick();
      return Agree();
    default:
      if (number % 2 == 0) {
        OnKeysUnseen(state_, mask, numLockOn);
        plain_.KeysUnseen(mask, numLockOn);
      } else {
        state_.clearDelay = number > 0 && number < 10 ? number / 2 : kClearDelayOff;
        plain_.ChooseDelay(state_.clearDelay);
      }
      return Agree();
  }
}

bool ComparedKeyTester::CarryOut(const KeyReaction& reaction) {
  if (reaction.clearBoxes) {
    events_.clear();
    names_.clear();
  }
  if (reaction.timer != Timer1Action::kLeave) timerRuns_ = reaction.timer == Timer1Action::kStart;
  if (reaction.event) AddLine(events_, *reaction.event);
  if (reaction.name) AddLine(names_, *reaction.name);
  if (reaction.turnOffCapsLock) ++capsLockSwitchedOff_;
  return reaction.swallow;
}

bool ComparedKeyTester::Agree() const {
  return events_ == plain_.events && names_ == plain_.names && state_.lamps == plain_.lamps &&
         timerRuns_ == plain_.timerRuns && capsLockSwitchedOff_ == plain_.capsLockSwitchedOff;
}

}  // namespace deck
