#include <windows.h>

#include <commctrl.h>

#include "help/win32/info_window.h"
#include "platform/control_ids.h"
#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/wide_text.h"
#include "tests/contract/info_window/info_window_world.h"

namespace deck {
namespace {

// Hidden: a window manager would hand the keyboard to a visible one a moment later.
HWND MakeOwner() {
  return CreateWindowExW(0, WC_STATICW, L"owner", WS_OVERLAPPEDWINDOW, 100, 100, 700, 500, nullptr,
                         nullptr, GetModuleHandleW(nullptr), nullptr);
}

class RealInfoWindowWorld : public InfoWindowWorld {
 public:
  RealInfoWindowWorld() { LoadLibraryW(L"msftedit.dll"); }

  InfoWindowView& View() override { return view_; }

  void MoveTo(const InfoWindowPlace& place) override {
    const int dpi = DpiOf(view_.Handle());
    const auto pixels = [dpi](int twips) {
      return PixelsFromTwips(static_cast<float>(twips), dpi);
    };
    MoveWindow(view_.Handle(), pixels(place.left), pixels(place.top), pixels(place.width),
               pixels(place.height), TRUE);
    loop_.Pump();
  }
  void Type(char16_t character) override {
    PostMessageW(TextBox(), WM_CHAR, character, 1);
    loop_.Pump();
  }

  bool IsVisible() const override { return IsWindowVisible(view_.Handle()) != 0; }
  bool IsMinimised() const override { return IsIconic(view_.Handle()) != 0; }
  std::u16string Text() const override {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(TextBox())) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(TextBox(), text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
  }

 private:
  HWND TextBox() const {
    return GetDlgItem(view_.Handle(), static_cast<int>(ControlId::kInfoText));
  }

  MessageLoop loop_;
  WindowHandle owner_{MakeOwner()};
  InfoWindow view_{owner_.Get(), loop_};
};

}  // namespace

std::unique_ptr<InfoWindowWorld> MakeInfoWindowWorld() {
  return std::make_unique<RealInfoWindowWorld>();
}

}  // namespace deck
