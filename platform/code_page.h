// The system's ANSI code page, in which files without a Unicode mark and INI files are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace deck {

class CodePage {
 public:
  virtual ~CodePage() = default;
  // Nothing when the bytes are not valid in the code page.
  virtual std::optional<std::u16string> Decode(std::string_view bytes) const = 0;
  // Nothing when a character has no exact counterpart.
  virtual std::optional<std::string> Encode(std::u16string_view text) const = 0;
};

}  // namespace deck
