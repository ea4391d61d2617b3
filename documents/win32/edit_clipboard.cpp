#include "documents/win32/edit_clipboard.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/text_edits.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

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

std::u16string FromCodePage(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length);
  return FromWide(text);
}

// Memory of one of the two text formats, which ends at its first zero or at its size.
std::optional<std::u16string> TextOf(HGLOBAL memory, UINT format) {
  const void* const bytes = GlobalLock(memory);
  if (bytes == nullptr) return std::nullopt;
  const std::size_t size = GlobalSize(memory);
  std::u16string text;
  if (format == CF_UNICODETEXT) {
    const std::u16string_view all(static_cast<const char16_t*>(bytes), size / sizeof(char16_t));
    text = all.substr(0, all.find(u'\0'));
  } else {
    const std::string_view all(static_cast<const char*>(bytes), size);
    text = FromCodePage(all.substr(0, all.find('\0')));
  }
  GlobalUnlock(memory);
  return BoxText(text);
}

std::u16string WithSystemLineBreaks(const std::u16string& text) {
  std::u16string result;
  result.reserve(text.size());
  for (const char16_t character : text) {
    if (character == u'\n') result += u'\r';
    result += character;
  }
  return result;
}

FORMATETC InMemory(UINT format) {
  return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

}  // namespace

bool ClipboardHasText() {
  return IsClipboardFormatAvailable(CF_UNICODETEXT) || IsClipboardFormatAvailable(CF_TEXT);
}

std::optional<std::u16string> ClipboardText(HWND owner) {
  const OpenedClipboard clipboard(owner);
  if (!clipboard) return std::nullopt;
  for (const UINT format : {CF_UNICODETEXT, CF_TEXT}) {
    const HANDLE memory = GetClipboardData(format);
    if (memory != nullptr) return TextOf(memory, format);
  }
  return std::nullopt;
}

bool SetClipboardText(HWND owner, const std::u16string& text) {
  const std::u16string outside = WithSystemLineBreaks(text);
  const std::size_t size = (outside.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return false;
  std::memcpy(GlobalLock(memory), outside.c_str(), size);
  GlobalUnlock(memory);
  const OpenedClipboard clipboard(owner);
  const bool taken =
      clipboard && EmptyClipboard() != FALSE && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  // What the clipboard took belongs to it.
  if (!taken) GlobalFree(memory);
  return taken;
}

bool HasText(IDataObject& data) {
  for (const UINT format : {CF_UNICODETEXT, CF_TEXT}) {
    FORMATETC wanted = InMemory(format);
    if (data.QueryGetData(&wanted) == S_OK) return true;
  }
  return false;
}

std::optional<std::u16string> TextOf(IDataObject& data) {
  for (const UINT format : {CF_UNICODETEXT, CF_TEXT}) {
    FORMATETC wanted = InMemory(format);
    STGMEDIUM medium{};
    if (FAILED(data.GetData(&wanted, &medium))) continue;
    std::optional<std::u16string> text = TextOf(medium.hGlobal, format);
    ReleaseStgMedium(&medium);
    return text;
  }
  return std::nullopt;
}

}  // namespace deck
