#include <windows.h>

#include <gtest/gtest.h>

#include "keytest/win32/key_test_form.h"
#include "platform/control_ids.h"
#include "platform/win32/wide_text.h"
#include "tests/contract/key_test_view/key_test_view_world.h"

namespace deck {
namespace {

// As the colours are fixed: blue, green and red parts from the highest byte to the lowest.
constexpr COLORREF kLit = 0x80C0FF;
constexpr COLORREF kGreen = 65280;
constexpr COLORREF kRed = 255;

class Win32KeyTestViewWorld : public KeyTestViewWorld {
 public:
  KeyTestView& View() override { return form_; }

  void PressKey(std::int16_t code) override { SendKey(WM_KEYDOWN, code); }
  void ReleaseKey(std::int16_t code) override { SendKey(WM_KEYUP, code); }
  void Type(char16_t character) override { SendMessageW(Focused(), WM_CHAR, character, 1); }
  void LoseKeyboard() override { SendMessageW(form_.Handle(), WM_ACTIVATE, WA_INACTIVE, 0); }
  void Choose(KeyTestCommand command) override {
    SendMessageW(form_.Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  }
  void ClickMenusLabel() override { Click(Control(ControlId::kLabel1), 1, 1); }
  void ClickModeWarning() override { Click(Control(ControlId::kLblModeWarning), 1, 1); }
  void ClickBox(KeyBox box) override { Click(BoxWindow(box), 10, 2); }
  void SelectLines(KeyBox box, int first, int end) override {
    const HWND window = BoxWindow(box);
    const int row = RowHeight(window);
    Click(window, 10, first * row + 1);
    Click(window, 10, (end - 1) * row + 1, MK_SHIFT);
  }
  void CloseWindow() override { SendMessageW(form_.Handle(), WM_CLOSE, 0, 0); }
  void Wait(int milliseconds) override {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    while (GetTickCount64() < end) loop_.Pump();
  }

  bool IsOpen() const override { return FindWindowW(L"KeyTestForm", nullptr) != nullptr; }
  bool IsVisible() const override { return IsWindowVisible(form_.Handle()); }
  KeyLamps SeenLamps() const override {
    return {.shift = ColourOf(ControlId::kLabelSHIFT) == kLit,
            .control = ColourOf(ControlId::kLabelCTRL) == kLit,
            .alt = ColourOf(ControlId::kLabelALT) == kLit,
            .numLock = ColourOf(ControlId::kLabelNUMLOCK) == kLit};
  }
  KeyTestLook SeenLook() const override {
    const HMENU menu = GetMenu(form_.Handle());
    EXPECT_EQ(ColourOf(ControlId::kLabel1), menu != nullptr ? kGreen : kRed);
    KeyTestLook look{.viewAll = IsShown(ControlId::kRTFKeysText),
                     .heading = TextOf(Control(ControlId::kLabel3)),
                     .menusShown = menu != nullptr,
                     .modeWarning = IsShown(ControlId::kLblModeWarning)};
    if (menu != nullptr) {
      EXPECT_EQ(IsTicked(menu, KeyTestCommand::kViewAll), look.viewAll);
      EXPECT_EQ(GetMenuItemCount(menu), 3);
      look.clearDelay = TickedDelay(menu);
    }
    return look;
  }

 private:
  HWND Control(ControlId id) const { return GetDlgItem(form_.Handle(), static_cast<int>(id)); }
  HWND BoxWindow(KeyBox box) const {
    return Control(box == KeyBox::kEvents ? ControlId::kRTFKeysText : ControlId::kRTFKeysDownText);
  }
  HWND Focused() const {
    const HWND focus = GetFocus();
    EXPECT_TRUE(focus == form_.Handle() || IsChild(form_.Handle(), focus));
    return focus;
  }
  // Past the translation, which would make characters of its own.
  void SendKey(UINT message, std::int16_t code) const {
    const LPARAM released = message == WM_KEYUP ? 0xC0000001 : 1;
    SendMessageW(Focused(), message, static_cast<WPARAM>(code), released);
  }
  static void Click(HWND window, int x, int y, WPARAM keys = 0) {
    if (!IsWindowVisible(window)) return;
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
    SendMessageW(window, WM_LBUTTONUP, keys, MAKELPARAM(x, y));
  }
  static int RowHeight(HWND box) {
    const HDC context = GetDC(box);
    SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(box, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    ReleaseDC(box, context);
    return metrics.tmHeight + metrics.tmExternalLeading;
  }
  static std::u16string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
  }
  // Also while the form itself is hidden.
  bool IsShown(ControlId id) const {
    return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
  }
  COLORREF ColourOf(ControlId id) const {
    const HWND label = Control(id);
    const HDC context = GetDC(label);
    SendMessageW(form_.Handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                 reinterpret_cast<LPARAM>(label));
    const COLORREF colour = GetBkColor(context);
    ReleaseDC(label, context);
    return colour;
  }
  static bool IsTicked(HMENU menu, KeyTestCommand command) {
    const UINT state = GetMenuState(menu, static_cast<UINT>(command), MF_BYCOMMAND);
    return (state & MF_CHECKED) != 0;
  }
  static int TickedDelay(HMENU menu) {
    int ticked = kClearDelayOff;
    for (int index = 0; index < kClearDelays; ++index) {
      const auto item =
          static_cast<KeyTestCommand>(static_cast<int>(KeyTestCommand::kClearDelay0) + index);
      if (!IsTicked(menu, item)) continue;
      EXPECT_EQ(ticked, kClearDelayOff) << "only one is ticked";
      ticked = index;
    }
    return ticked;
  }

  MessageLoop loop_;
  KeyTestForm form_{loop_};
};

}  // namespace

std::unique_ptr<KeyTestViewWorld> MakeKeyTestViewWorld() {
  return std::make_unique<Win32KeyTestViewWorld>();
}

}  // namespace deck
