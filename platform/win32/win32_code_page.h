// The system's ANSI code page. Owned by the program's entry.
#pragma once

#include "platform/code_page.h"

namespace deck {

class Win32CodePage : public CodePage {
 public:
  std::optional<std::u16string> Decode(std::string_view bytes) const override;
  std::optional<std::string> Encode(std::u16string_view text) const override;
};

}  // namespace deck
