// The system's clipboard, and its formats of text wherever else they appear. Other programs see the
// line breaks of the system, CR LF. Owned by the program's entry.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/clipboard.h"

namespace deck {

class Win32Clipboard : public Clipboard {
 public:
  // `owner` tells the window in whose name the clipboard is opened; it must not be null when text
  // is set.
  explicit Win32Clipboard(std::function<HWND()> owner) : owner_(std::move(owner)) {}

  bool SetText(std::u16string_view text) override;
  std::optional<std::u16string> Text() const override;

 private:
  std::function<HWND()> owner_;
};

// Whether there is something to paste, asked without opening the clipboard.
bool ClipboardOffersText();

// The text formats, the best one first.
inline constexpr UINT kTextFormats[] = {CF_UNICODETEXT, CF_TEXT};

// From memory that holds one of the two formats: up to its first zero or its end. Empty when it
// cannot be read.
std::u16string TextInMemory(HGLOBAL memory, UINT format);

}  // namespace deck
