#include "tests/desktop/probe/json_writer.h"

#include <windows.h>

namespace deck::probe {
namespace {

std::string ToUtf8(std::wstring_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

}  // namespace

void JsonWriter::Separate() {
  if (needsComma_) written_ += ',';
  needsComma_ = true;
}

void JsonWriter::Quote(std::string_view utf8) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  written_ += '"';
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      written_ += '\\';
      written_ += c;
    } else if (byte < 0x20) {
      written_ += "\\u00";
      written_ += kDigits[byte >> 4U];
      written_ += kDigits[byte & 15U];
    } else {
      written_ += c;
    }
  }
  written_ += '"';
}

JsonWriter& JsonWriter::BeginObject() {
  Separate();
  written_ += '{';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::EndObject() {
  written_ += '}';
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::BeginArray() {
  Separate();
  written_ += '[';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::EndArray() {
  written_ += ']';
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
  Separate();
  Quote(name);
  written_ += ':';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::Number(long long value) {
  Separate();
  written_ += std::to_string(value);
  return *this;
}

JsonWriter& JsonWriter::Flag(bool value) {
  Separate();
  written_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::Text(std::wstring_view value) {
  Separate();
  Quote(ToUtf8(value));
  return *this;
}

}  // namespace deck::probe
