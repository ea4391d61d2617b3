#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_clipboard.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

WindowHandle MakeWindow() {
  return WindowHandle(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      GetModuleHandleW(nullptr), nullptr));
}

class RealClipboardWorld : public ClipboardWorld {
 public:
  Clipboard& Port() override { return clipboard_; }

  void PutByOthers(std::u16string_view text) override {
    const std::size_t size = text.size() * sizeof(char16_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size + sizeof(char16_t));
    std::memcpy(GlobalLock(memory), text.data(), size);
    GlobalUnlock(memory);
    Put(CF_UNICODETEXT, memory);
  }
  void PutPicture() override {
    Put(RegisterClipboardFormatW(L"DeckTestPicture"), GlobalAlloc(GMEM_MOVEABLE, 16));
  }
  std::u16string SeenByOthers() const override {
    Open();
    const HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
    if (memory == nullptr) std::abort();
    std::u16string text = FromWide(static_cast<const wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    CloseClipboard();
    return text;
  }
  void KeepOpen(bool open) override {
    if (open) {
      Open();
    } else {
      CloseClipboard();
    }
  }

 private:
  void Open() const {
    if (!OpenClipboard(others_.Get())) std::abort();
  }
  void Put(UINT format, HGLOBAL memory) const {
    Open();
    EmptyClipboard();
    SetClipboardData(format, memory);
    CloseClipboard();
  }

  WindowHandle own_ = MakeWindow();
  WindowHandle others_ = MakeWindow();
  Win32Clipboard clipboard_{[this] { return own_.Get(); }};
};

}  // namespace

std::unique_ptr<ClipboardWorld> MakeClipboardWorld() {
  return std::make_unique<RealClipboardWorld>();
}

}  // namespace deck
