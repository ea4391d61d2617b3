#include "platform/win32/win32_code_page.h"

#include <windows.h>

#include <limits>

namespace deck {
namespace {

constexpr std::size_t kLongest = std::numeric_limits<int>::max() / 4;

}  // namespace

std::optional<std::u16string> Win32CodePage::Decode(std::string_view bytes) const {
  if (bytes.empty()) return std::u16string();
  if (bytes.size() > kLongest) return std::nullopt;
  const int size = static_cast<int>(bytes.size());
  // No code page makes more UTF-16 units than it has bytes.
  std::u16string text(bytes.size(), u'\0');
  const int length = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), size,
                                         reinterpret_cast<wchar_t*>(text.data()), size);
  if (length <= 0) return std::nullopt;
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::optional<std::string> Win32CodePage::Encode(std::u16string_view text) const {
  if (text.empty()) return std::string();
  if (text.size() > kLongest) return std::nullopt;
  // Where UTF-8 is the system's code page, other flags are wanted and no default is ever used.
  const bool isUtf8 = GetACP() == CP_UTF8;
  const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
  BOOL usedDefault = FALSE;
  BOOL* const reported = isUtf8 ? nullptr : &usedDefault;
  const auto* const wide = reinterpret_cast<const wchar_t*>(text.data());
  const int size = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(CP_ACP, flags, wide, size, nullptr, 0, nullptr, reported);
  if (length <= 0 || usedDefault) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, flags, wide, size, bytes.data(), length, nullptr, reported);
  if (usedDefault) return std::nullopt;
  return bytes;
}

}  // namespace deck
