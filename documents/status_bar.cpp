#include "documents/status_bar.h"

#include <utility>

#include "platform/strings.h"

namespace deck {

void StatusBar::Set(int panel, std::u16string text) {
  auto& shown = texts_[static_cast<std::size_t>(panel - 1)];
  if (shown == text) return;
  shown = std::move(text);
  view_.SetPanel(panel, shown);
}

const std::u16string& StatusBar::Text(int panel) const {
  return texts_[static_cast<std::size_t>(panel - 1)];
}

bool StatusBar::ShowsCompileResult() const {
  return Message().starts_with(u" Compile");
}

void StatusBar::Hint(std::u16string_view text) {
  if (!ShowsCompileResult() && Message() != text) Say(std::u16string(text));
}

void StatusBar::ShowLine(int line) {
  Set(kLinePanel, u"Line no: " + Decimal(line));
}

}  // namespace deck
