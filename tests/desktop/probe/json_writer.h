// Writes one JSON value piece by piece into a string. Commas and quotes are its business, the
// balance of Begin and End is the caller's.
#pragma once

#include <string>
#include <string_view>

namespace deck::probe {

class JsonWriter {
 public:
  JsonWriter& BeginObject();
  JsonWriter& EndObject();
  JsonWriter& BeginArray();
  JsonWriter& EndArray();
  JsonWriter& Key(std::string_view name);
  JsonWriter& Number(long long value);
  JsonWriter& Flag(bool value);
  // UTF-16; a lone surrogate becomes U+FFFD.
  JsonWriter& Text(std::wstring_view value);

  const std::string& Written() const { return written_; }

 private:
  void Separate();
  void Quote(std::string_view utf8);

  std::string written_;
  bool needsComma_ = false;
};

}  // namespace deck::probe
