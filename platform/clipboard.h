// The system's clipboard, as far as it holds text. A line break is one '\n' here, whatever other
// programs see. The real one is owned by the program's entry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace deck {

class Clipboard {
 public:
  virtual ~Clipboard() = default;

  // Replaces whatever the clipboard held. False when the text did not get there, for instance
  // because another program keeps the clipboard open.
  [[nodiscard]] virtual bool SetText(std::u16string_view text) = 0;
  // Nothing when the clipboard holds no text, or an empty one, or cannot be read.
  virtual std::optional<std::u16string> Text() const = 0;
};

}  // namespace deck
