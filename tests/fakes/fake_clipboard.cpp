#include "tests/fakes/fake_clipboard.h"

#include "platform/text_edits.h"

namespace deck {

bool FakeClipboard::SetText(std::u16string_view text) {
  if (busy) return false;
  content_.emplace();
  for (const char16_t character : text) {
    if (character == u'\n') *content_ += u'\r';
    *content_ += character;
  }
  return true;
}

std::optional<std::u16string> FakeClipboard::Text() const {
  if (busy || !content_) return std::nullopt;
  std::u16string text = BoxText(std::u16string_view(*content_).substr(0, content_->find(u'\0')));
  if (text.empty()) return std::nullopt;
  return text;
}

}  // namespace deck
