#include <windows.h>

#include <cstring>
#include <stdexcept>
#include <string>

#include "tests/desktop/probe/readers.h"

namespace deck::probe {
namespace {

// A moment is enough for a program to read or fill it.
constexpr int kAttempts = 100;
constexpr DWORD kPause = 10;  // milliseconds

// Opened for a window that goes away with it: a window that stayed would be sent messages that
// nobody answers.
class OpenedClipboard {
 public:
  OpenedClipboard()
      : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                GetModuleHandleW(nullptr), nullptr)) {
    for (int attempt = 0; OpenClipboard(window_) == FALSE; ++attempt) {
      if (attempt == kAttempts) throw std::runtime_error("the clipboard is in use");
      Sleep(kPause);
    }
  }
  ~OpenedClipboard() {
    CloseClipboard();
    DestroyWindow(window_);
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

 private:
  HWND window_;
};

void Put(UINT format, const void* bytes, std::size_t size) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  std::memcpy(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  if (SetClipboardData(format, memory) == nullptr) throw std::runtime_error("it was refused");
}

void PutPicture() {
  BITMAPINFOHEADER picture{};
  picture.biSize = sizeof picture;
  picture.biWidth = picture.biHeight = 1;
  picture.biPlanes = 1;
  picture.biBitCount = 32;
  picture.biSizeImage = 4;
  std::string bytes(sizeof picture + picture.biSizeImage, '\0');
  std::memcpy(bytes.data(), &picture, sizeof picture);
  Put(CF_DIB, bytes.data(), bytes.size());
}

bool Begins(const std::string& word, std::string_view start) {
  return word.compare(0, start.size(), start) == 0;
}

void PutPart(const std::string& part) {
  if (part == "picture") {
    PutPicture();
  } else if (Begins(part, "text=")) {
    const std::wstring text(part.begin() + 5, part.end());
    Put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  } else if (Begins(part, "rtf=")) {
    Put(RegisterClipboardFormatW(L"Rich Text Format"), part.c_str() + 4, part.size() - 3);
  } else {
    throw std::runtime_error("no such part: " + part);
  }
}

}  // namespace

void ReadClipboard(JsonWriter& json) {
  const OpenedClipboard opened;
  json.BeginObject();
  json.Key("empty").Flag(CountClipboardFormats() == 0);
  if (const HGLOBAL memory = GetClipboardData(CF_UNICODETEXT)) {
    json.Key("text").Text(static_cast<const wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
  }
  json.EndObject();
}

void FillClipboard(const std::vector<std::string>& parts, JsonWriter& json) {
  const OpenedClipboard opened;
  EmptyClipboard();
  for (const std::string& part : parts) PutPart(part);
  json.BeginObject().EndObject();
}

}  // namespace deck::probe
