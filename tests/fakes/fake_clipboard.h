// A clipboard of its own, which other programs may use and keep open.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/clipboard.h"

namespace deck {

class FakeClipboard : public Clipboard {
 public:
  bool SetText(std::u16string_view text) override;
  std::optional<std::u16string> Text() const override;

  // Another program puts text there, with whatever line breaks, or something that is no text.
  void PutByOthers(std::u16string_view text) { content_ = text; }
  void PutPicture() { content_.reset(); }
  const std::optional<std::u16string>& SeenByOthers() const { return content_; }

  // Another program keeps the clipboard open.
  bool busy = false;

 private:
  std::optional<std::u16string> content_;  // as other programs see it
};

}  // namespace deck
