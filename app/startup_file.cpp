#include "app/startup_file.h"

#include "platform/strings.h"

namespace deck {
namespace {

bool IsSpace(char16_t character) {
  return character == u' ' || character == u'\t';
}

// The program's name ends at the first white space outside quotes.
std::u16string_view WithoutProgramName(std::u16string_view commandLine) {
  bool quoted = false;
  std::size_t end = 0;
  while (end < commandLine.size() && (quoted || !IsSpace(commandLine[end]))) {
    if (commandLine[end] == u'"') quoted = !quoted;
    ++end;
  }
  return commandLine.substr(end);
}

std::u16string_view TrimSpace(std::u16string_view text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

std::u16string StartupFileOf(std::u16string_view commandLine) {
  std::u16string_view file = TrimSpace(WithoutProgramName(commandLine));
  if (file.size() >= 2 && file.front() == u'"' && file.back() == u'"') {
    file = file.substr(1, file.size() - 2);
  }
  return std::u16string(file);
}

}  // namespace deck
