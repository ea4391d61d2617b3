#include "keytest/key_tester.h"

#include "platform/strings.h"

namespace deck {
namespace {

// Characters below this one are left to the window: Enter, Backspace and Tab among them.
constexpr char16_t kFirstShownCharacter = 19;

bool IsDigitKey(std::int16_t code) {
  return code >= 48 && code <= 57;
}

bool IsLetterKey(std::int16_t code) {
  return code >= 65 && code <= 90;
}

// By these the system opens its menus and its help, whatever the table calls them.
bool OpensMenusOrHelp(std::int16_t code) {
  return code == kAltKey || code == kF1Key || code == kF10Key || code == kMenuKey;
}

// The key in the log of events, without modifiers: digits and letters never come from the table.
std::u16string EventKey(const KeyCodeTable& table, std::int16_t code) {
  switch (code) {
    case kShiftKey:
      return u"SHF";
    case kControlKey:
      return u"CTL";
    case kAltKey:
      return u"ALT";
    default:
      break;
  }
  if (IsDigitKey(code)) return std::u16string(1, static_cast<char16_t>(code));
  if (IsLetterKey(code)) return std::u16string(1, ToLower(static_cast<char16_t>(code)));
  const std::u16string name = WhichKey(table, code, 0).name;
  return name.empty() ? Decimal(code) : name;
}

void LightHeld(KeyLamps& lamps, std::int16_t modifiers) {
  lamps.shift |= (modifiers & kShiftModifier) != 0;
  lamps.control |= (modifiers & kControlModifier) != 0;
  lamps.alt |= (modifiers & kAltModifier) != 0;
}

void UnlightReleased(KeyLamps& lamps, std::int16_t modifiers) {
  lamps.shift &= (modifiers & kShiftModifier) != 0;
  lamps.control &= (modifiers & kControlModifier) != 0;
  lamps.alt &= (modifiers & kAltModifier) != 0;
}

// The modifier that the key is, as a mask; 0 for every other key.
std::int16_t ModifierOf(std::int16_t code) {
  switch (code) {
    case kShiftKey:
      return kShiftModifier;
    case kControlKey:
      return kControlModifier;
    case kAltKey:
      return kAltModifier;
    default:
      return 0;
  }
}

}  // namespace

KeyReaction OnKeyDown(KeyTesterState& state, const KeyCodeTable& table, const KeyStroke& stroke) {
  if (state.skipNextKeyDown) {
    state.skipNextKeyDown = false;
    return {};
  }
  KeyReaction reaction{.clearBoxes = state.clearPending, .timer = Timer1Action::kStop};
  state.handled = false;
  state.clearPending = false;
  LightHeld(state.lamps, stroke.modifiers);
  reaction.turnOffCapsLock = stroke.code == kCapsLockKey;
  reaction.event = u"Down: " + EventKey(table, stroke.code);

  const KeyName key = WhichKey(table, stroke.code, stroke.modifiers);
  state.handled = key.modifierOnly;
  reaction.swallow = OpensMenusOrHelp(stroke.code);
  if (!key.name.empty()) {
    reaction.name = key.name;
    state.handled = true;
    if (key.name == u"F10" || key.name == u"F1") reaction.swallow = true;
  }
  return reaction;
}

KeyReaction OnKeyUp(KeyTesterState& state, const KeyCodeTable& table, const KeyStroke& stroke) {
  const bool clears = state.clearDelay < kClearDelayOff;
  KeyReaction reaction{.timer = clears ? Timer1Action::kStart : Timer1Action::kStop};
  state.clearPending = false;
  // The other one of the two equal keys may still be held.
  const std::int16_t released = ModifierOf(stroke.code);
  UnlightReleased(state.lamps, static_cast<std::int16_t>(~released | stroke.modifiers));
  state.lamps.numLock = stroke.numLockOn;
  reaction.turnOffCapsLock = stroke.code == kCapsLockKey;
  reaction.event = u"Up: " + EventKey(table, stroke.code);
  reaction.swallow = OpensMenusOrHelp(stroke.code);
  return reaction;
}

KeyReaction OnKeyPress(KeyTesterState& state, char16_t character) {
  if (state.handled) {
    state.handled = false;
    return {};
  }
  if (character < kFirstShownCharacter) return {};
  return {.name = u" " + std::u16string(1, character), .swallow = true};
}

KeyReaction OnTimer1(KeyTesterState& state) {
  state.clearPending = true;
  return {.timer = Timer1Action::kStop};
}

void OnKeysUnseen(KeyTesterState& state, std::int16_t modifiers, bool numLockOn) {
  UnlightReleased(state.lamps, modifiers);
  state.lamps.numLock = numLockOn;
}

}  // namespace deck
