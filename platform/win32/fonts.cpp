#include "platform/win32/fonts.h"

#include "platform/win32/wide_text.h"

namespace deck {

FontHandle MakeFont(const LOGFONTW& description) {
  return FontHandle(CreateFontIndirectW(&description));
}

TextMeasure::TextMeasure(HWND window, HFONT font)
    : window_(window), context_(GetDC(window)), previous_(SelectObject(context_, font)) {}

TextMeasure::~TextMeasure() {
  SelectObject(context_, previous_);
  ReleaseDC(window_, context_);
}

int TextMeasure::Width(const std::u16string& text) const {
  SIZE size{};
  GetTextExtentPoint32W(context_, Wide(text), static_cast<int>(text.size()), &size);
  return size.cx;
}

int TextMeasure::LineHeight() const {
  TEXTMETRICW metrics{};
  GetTextMetricsW(context_, &metrics);
  return metrics.tmHeight;
}

}  // namespace deck
