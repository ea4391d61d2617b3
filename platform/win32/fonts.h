// Fonts and the sizes of text in them.
#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/handles.h"

namespace deck {

FontHandle MakeFont(const LOGFONTW& description);

// Measures while it lives, in pixels, as `window` would draw.
class TextMeasure {
 public:
  TextMeasure(HWND window, HFONT font);
  ~TextMeasure();
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  int Width(const std::u16string& text) const;
  int LineHeight() const;

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ previous_;
};

}  // namespace deck
