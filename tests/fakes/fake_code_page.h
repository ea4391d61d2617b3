// Windows code page 1252. Its five holes (81 8D 8F 90 9D) stand for the control characters of the
// same number, as the system has it.
#pragma once

#include "platform/code_page.h"

namespace deck {

class FakeCodePage : public CodePage {
 public:
  std::optional<std::u16string> Decode(std::string_view bytes) const override;
  std::optional<std::string> Encode(std::u16string_view text) const override;
};

}  // namespace deck
