#include "keytest/key_code_table.h"

#include <optional>
#include <utility>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kPrefixes[] = {
    u"",     u"Shift ",     u"Ctrl ",     u"Shift Ctrl ",
    u"Alt ", u"Shift Alt ", u"Ctrl Alt ", u"Shift Ctrl Alt ",
};

std::u16string Prefix(std::int16_t modifiers) {
  return modifiers >= 0 && std::cmp_less(modifiers, std::size(kPrefixes))
             ? std::u16string(kPrefixes[modifiers])
             : std::u16string();
}

std::optional<std::int16_t> ParseCode(std::u16string_view text) {
  text = Trim(text);
  const bool isNegative = text.starts_with(u'-');
  if (isNegative || text.starts_with(u'+')) text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  int number = 0;
  for (const char16_t character : text) {
    if (character < u'0' || character > u'9') return std::nullopt;
    number = 10 * number + (character - u'0');
    if (number > -(INT16_MIN)) return std::nullopt;
  }
  if (isNegative) number = -number;
  if (!std::in_range<std::int16_t>(number)) return std::nullopt;
  return static_cast<std::int16_t>(number);
}

// Takes the first line off the text, with its end.
std::u16string_view TakeLine(std::u16string_view& text) {
  const std::size_t end = text.find_first_of(u"\r\n");
  const std::u16string_view line = text.substr(0, end);
  text.remove_prefix(end == std::u16string_view::npos ? text.size() : end);
  const bool isPair = text.starts_with(u"\r\n");
  if (!text.empty()) text.remove_prefix(isPair ? 2 : 1);
  return line;
}

// Of the character with this number.
std::u16string LowerCaseCharacter(std::int16_t code) {
  if (code == 0) return {};  // no text can hold it
  return std::u16string(1, ToLower(static_cast<char16_t>(code)));
}

}  // namespace

bool KeyCodeTable::Add(std::int16_t code, std::u16string_view name) {
  if (Count() >= kMostEntries) return false;
  codes_.push_back(code);
  names_.emplace_back(name);
  return true;
}

const std::u16string* KeyCodeTable::NameOf(std::int16_t code) const {
  for (std::size_t entry = codes_.size() - 1; entry >= 1; --entry) {
    if (codes_[entry] == code) return &names_[entry];
  }
  return nullptr;
}

KeyCodeTable ParseKeyCodes(std::u16string_view text) {
  KeyCodeTable table;
  while (!text.empty()) {
    const std::u16string_view line = TakeLine(text);
    const std::size_t comma = line.find(u',');
    if (comma == std::u16string_view::npos) continue;
    const std::optional<std::int16_t> code = ParseCode(line.substr(0, comma));
    if (code && !table.Add(*code, line.substr(comma + 1))) break;
  }
  return table;
}

KeyName WhichKey(const KeyCodeTable& table, std::int16_t keyCode, std::int16_t modifiers) {
  if (keyCode == kControlKey || keyCode == kAltKey) return {.name = {}, .modifierOnly = true};
  // An entry without a name counts as none.
  const std::u16string* found = table.NameOf(keyCode);
  const std::u16string name = found != nullptr ? *found : std::u16string();
  if (modifiers == 0) return {.name = name};
  if (!name.empty()) return {.name = Prefix(modifiers) + name};
  if (modifiers >= kControlModifier && keyCode != kShiftKey) {
    return {.name = Prefix(modifiers) + LowerCaseCharacter(keyCode)};
  }
  return {.name = {}, .modifierOnly = true};
}

}  // namespace deck
