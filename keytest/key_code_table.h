// The names under which programming files know the keys, by virtual-key code: the contents of
// KeyCodes.txt, and the names that key events get from it. Held by the key tester while it is open.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

// Modifiers of a key event, to be added up.
inline constexpr std::int16_t kShiftModifier = 1;
inline constexpr std::int16_t kControlModifier = 2;
inline constexpr std::int16_t kAltModifier = 4;

// Virtual-key codes that mean something to the key tester.
inline constexpr std::int16_t kShiftKey = 16;
inline constexpr std::int16_t kControlKey = 17;
inline constexpr std::int16_t kAltKey = 18;
inline constexpr std::int16_t kCapsLockKey = 20;
inline constexpr std::int16_t kMenuKey = 93;
inline constexpr std::int16_t kF1Key = 112;
inline constexpr std::int16_t kF10Key = 121;

class KeyCodeTable {
 public:
  // Further entries are left out, since their number is one of 16 bits.
  static constexpr int kMostEntries = 32767;

  // False when the table is full.
  bool Add(std::int16_t code, std::u16string_view name);
  // The name of the last entry with this code; null when there is none.
  const std::u16string* NameOf(std::int16_t code) const;
  int Count() const { return static_cast<int>(codes_.size()) - 1; }

 private:
  // Entry 0 is no key, so that the entries count from 1.
  std::vector<std::int16_t> codes_ = {-1};
  std::vector<std::u16string> names_ = {u" "};
};

// One entry a line: the code as a decimal number that fits 16 bits with its sign, a comma, and
// behind this first comma the name, unchanged. Lines without a comma, and those that begin with
// anything else, are passed over. A line ends with CR LF, LF or CR.
KeyCodeTable ParseKeyCodes(std::u16string_view text);

struct KeyName {
  std::u16string name;        // empty when there is none
  bool modifierOnly = false;  // a modifier by itself: the character that follows means nothing

  friend bool operator==(const KeyName&, const KeyName&) = default;
};

// What a key is called in a programming file together with the modifiers held (a sum of the
// constants above). Ctrl and Alt are not looked up, Shift is.
KeyName WhichKey(const KeyCodeTable& table, std::int16_t keyCode, std::int16_t modifiers);

}  // namespace deck
