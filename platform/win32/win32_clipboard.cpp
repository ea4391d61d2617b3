#include "platform/win32/win32_clipboard.h"

#include <cstring>
#include <string_view>

#include "platform/text_edits.h"
#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

using MemoryHandle = Handle<HandleKind<HGLOBAL, GlobalFree>>;

// Another program may hold the clipboard for a moment.
constexpr int kAttempts = 10;
constexpr DWORD kPause = 10;  // milliseconds

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int attempt = 0; !opened_ && attempt < kAttempts; ++attempt) {
      if (attempt > 0) Sleep(kPause);
      opened_ = OpenClipboard(owner) != FALSE;
    }
  }
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

  explicit operator bool() const { return opened_; }

 private:
  bool opened_ = false;
};

std::u16string WithSystemLineBreaks(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (const char16_t character : text) {
    if (character == u'\n') result += u'\r';
    result += character;
  }
  return result;
}

// Null when there is no memory left.
MemoryHandle MemoryWith(const std::u16string& text) {
  const std::size_t size = (text.size() + 1) * sizeof(char16_t);
  MemoryHandle memory(GlobalAlloc(GMEM_MOVEABLE, size));
  if (!memory) return memory;
  void* const bytes = GlobalLock(memory.Get());
  if (bytes == nullptr) return {};
  std::memcpy(bytes, text.c_str(), size);
  GlobalUnlock(memory.Get());
  return memory;
}

std::u16string FromSystemCodePage(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length);
  return FromWide(text);
}

}  // namespace

bool Win32Clipboard::SetText(std::u16string_view text) {
  // All that can fail without the clipboard comes before its content goes.
  MemoryHandle memory = MemoryWith(WithSystemLineBreaks(text));
  if (!memory) return false;
  const OpenedClipboard clipboard(owner_());
  if (!clipboard || !EmptyClipboard()) return false;
  if (SetClipboardData(CF_UNICODETEXT, memory.Get()) == nullptr) return false;
  static_cast<void>(memory.Release());  // it belongs to the clipboard now
  return true;
}

std::optional<std::u16string> Win32Clipboard::Text() const {
  const OpenedClipboard clipboard(owner_());
  if (!clipboard) return std::nullopt;
  for (const UINT format : kTextFormats) {
    const HGLOBAL memory = GetClipboardData(format);
    if (memory == nullptr) continue;
    std::u16string text = TextInMemory(memory, format);
    if (text.empty()) return std::nullopt;
    return text;
  }
  return std::nullopt;
}

bool ClipboardOffersText() {
  return IsClipboardFormatAvailable(CF_UNICODETEXT) || IsClipboardFormatAvailable(CF_TEXT);
}

std::u16string TextInMemory(HGLOBAL memory, UINT format) {
  const void* const bytes = GlobalLock(memory);
  if (bytes == nullptr) return {};
  const std::size_t size = GlobalSize(memory);
  std::u16string text;
  if (format == CF_UNICODETEXT) {
    const std::u16string_view all(static_cast<const char16_t*>(bytes), size / sizeof(char16_t));
    text = all.substr(0, all.find(u'\0'));
  } else {
    const std::string_view all(static_cast<const char*>(bytes), size);
    text = FromSystemCodePage(all.substr(0, all.find('\0')));
  }
  GlobalUnlock(memory);
  return BoxText(text);
}

}  // namespace deck
