// The border between the program's UTF-16 text and the system's, which is the same under another
// name.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace deck {

// Valid as long as `text` is; ends at the first U+0000.
inline const wchar_t* Wide(const std::u16string& text) {
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

// For members of structures that the system only reads, but does not say so.
inline wchar_t* MutableWide(std::u16string& text) {
  return reinterpret_cast<wchar_t*>(text.data());
}

inline std::u16string FromWide(std::wstring_view text) {
  return {text.begin(), text.end()};
}

}  // namespace deck
