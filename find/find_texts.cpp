#include "find/find_texts.h"

#include "platform/strings.h"

namespace deck {
namespace {

std::u16string Quoted(const std::u16string& text) {
  return u"\"" + text + u"\"";
}

std::u16string NoText(const std::u16string& file) {
  return file + u" has no text to highlight.";
}

}  // namespace

Message NothingToSearchFor() {
  return {u"You haven't specified the text to search for", u"Please enter text to search",
          BoxStyle::kExclamation};
}

Message NoTextInFile(const std::u16string& file) {
  return {NoText(file), u"No text in file", BoxStyle::kExclamation};
}

Message NoTextInJoystickFile(const std::u16string& file) {
  return {NoText(file), u"No text in joystick file", BoxStyle::kExclamation};
}

Message TextNotFound(const std::u16string& text, const std::u16string& file) {
  return {Quoted(text) + u" not found in " + Quoted(file), u"Text not found",
          BoxStyle::kExclamation};
}

Message NoFurtherInstances(const std::u16string& text, const std::u16string& file) {
  return {u"No further instances of " + Quoted(text) + u" found in " + Quoted(file),
          u"You found 'em all!", BoxStyle::kExclamation};
}

Message ReplacementsMade(std::int16_t count, const std::u16string& file) {
  return {Decimal(count) + u" replacements were made in " + file,
          u"Replaced 'em all for you. Now buy me a drink", BoxStyle::kInformation};
}

Message InvalidLineNumber() {
  return {u"The line number is invalid", u"Check the value you entered!", BoxStyle::kExclamation};
}

Message GotoLineNotFound() {
  return {u"Line not found", u"Oops!", BoxStyle::kExclamation};
}

}  // namespace deck
