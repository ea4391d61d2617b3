#include "app/command_table.h"

#include "platform/strings.h"

namespace deck {
namespace {

std::u16string KeyText(std::uint16_t key) {
  if (key >= FunctionKey(1) && key <= FunctionKey(24)) return u"F" + Decimal(key - FunctionKey(0));
  if (key == kKeyTab) return u"Tab";
  if (key == kKeyDelete) return u"Del";
  return std::u16string(1, static_cast<char16_t>(key));
}

}  // namespace

std::u16string ShortcutText(const Shortcut& shortcut) {
  if (shortcut.key == 0) return {};
  std::u16string text;
  if (shortcut.control) text += u"Ctrl+";
  if (shortcut.alt) text += u"Alt+";
  if (shortcut.shift) text += u"Shift+";
  return text + KeyText(shortcut.key);
}

}  // namespace deck
