// What the system tells the key tester's window, turned into one call each.
#include <windowsx.h>

#include "keytest/win32/key_test_form.h"
#include "keytest/win32/key_test_menus.h"
#include "platform/control_ids.h"
#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

constexpr UINT kDpiChanged = 0x02E0;       // WM_DPICHANGED, which Windows 7 does not send
constexpr UINT kF1Pressed = 0x004D;        // what the system makes of F1 by itself; WM_HELP follows
constexpr WPARAM kSystemCommand = 0xFFF0;  // the lower bits are the system's own

// Pixels at 96 dpi, the frame included.
constexpr int kLeastWidth = 480;
constexpr int kLeastHeight = 240;

bool IsKeyMessage(UINT message) {
  return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == kF1Pressed;
}

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

std::int16_t HeldModifiers() {
  return static_cast<std::int16_t>((IsDown(VK_SHIFT) ? kShiftModifier : 0) +
                                   (IsDown(VK_CONTROL) ? kControlModifier : 0) +
                                   (IsDown(VK_MENU) ? kAltModifier : 0));
}

bool IsIn(HWND window, POINT onScreen) {
  RECT area{};
  GetWindowRect(window, &area);
  return IsWindowVisible(window) && PtInRect(&area, onScreen);
}

}  // namespace

LRESULT CALLBACK KeyTestForm::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    ScaleFrameWithDpi(window);
    auto* self =
        static_cast<KeyTestForm*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<KeyTestForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // Close forgets the window before it is destroyed: nothing that happens then is reported.
  if (self == nullptr || self->window_ != window) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return InProcedure([&] {
    const std::optional<LRESULT> answer = self->Handle(message, wParam, lParam);
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
  });
}

// The window may be gone when an event returns.
std::optional<LRESULT> KeyTestForm::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsKeyMessage(message)) {
    return OnKey(message, wParam) ? std::optional<LRESULT>(0) : std::nullopt;
  }
  switch (message) {
    case WM_CREATE:
      OnCreate();
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Arrange();
      return 0;
    case WM_GETMINMAXINFO:
      OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case kDpiChanged:
      OnDpiChanged(HIWORD(wParam), *reinterpret_cast<RECT*>(lParam));
      return 0;
    case WM_SETTINGCHANGE:
      SetFonts();
      Arrange();
      return std::nullopt;
    case WM_CTLCOLORSTATIC:
      return OnLabelColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR:
      return OnSetCursor(reinterpret_cast<HWND>(wParam));
    case WM_COMMAND:
      OnCommand(wParam, lParam);
      return 0;
    case WM_SYSCOMMAND:
      // Alt, F10 and Alt with a letter are keys to be logged: they open no menu.
      if ((wParam & kSystemCommand) == SC_KEYMENU) return 0;
      return std::nullopt;
    case WM_HELP:
      return TRUE;
    case WM_ENABLE:
      windowsBeside_.OnEnable(window_, wParam != 0);
      return 0;
    case WM_SETFOCUS:
      SetFocus(namesBox_.Handle());
      return 0;
    case WM_ACTIVATE:
      Report(events.keysUnseen, LOWORD(wParam) == WA_INACTIVE ? std::int16_t{0} : HeldModifiers());
      return std::nullopt;
    case WM_EXITMENULOOP:
    case WM_EXITSIZEMOVE:
      Report(events.keysUnseen, HeldModifiers());
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(wParam, lParam);
      return 0;
    case WM_TIMER:
      Report(events.timer1);
      return 0;
    case WM_CLOSE:
      Report(events.closing);
      return 0;
    default:
      return std::nullopt;
  }
}

bool KeyTestForm::Filter(MSG& message) {
  if (window_ == nullptr || !IsKeyMessage(message.message)) return false;
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

// True when the system must not see the message.
bool KeyTestForm::OnKey(UINT message, WPARAM wParam) {
  if (window_ == nullptr) return true;
  const auto report = [this](const auto& event, auto... arguments) {
    return event && event(arguments...);
  };
  const auto code = static_cast<std::int16_t>(wParam);
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return report(events.keyDown, code, HeldModifiers());
    case WM_KEYUP:
    case WM_SYSKEYUP:
      return report(events.keyUp, code, HeldModifiers());
    case WM_CHAR:
      return report(events.keyPress, static_cast<char16_t>(wParam));
    default:
      // Characters with Alt open menus, or sound where there is none; dead keys are no characters.
      return true;
  }
}

void KeyTestForm::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (lParam != 0) {
    const bool isClick = HIWORD(wParam) == STN_CLICKED || HIWORD(wParam) == STN_DBLCLK;
    if (isClick) OnLabelClicked(LOWORD(wParam));
    return;
  }
  const auto command = static_cast<KeyTestCommand>(LOWORD(wParam));
  if (command == KeyTestCommand::kForFonts) {
    ChooseFonts();
  } else {
    Report(events.command, command, KeyBox::kNames);
  }
}

void KeyTestForm::OnLabelClicked(int control) {
  if (control == static_cast<int>(ControlId::kLabel1)) Report(events.menusLabelClicked);
  if (control == static_cast<int>(ControlId::kLblModeWarning)) Report(events.modeWarningClicked);
}

void KeyTestForm::OnBoxMenu(KeyBox box, POINT where) {
  const KeyTestCommand command =
      ChooseFromKeyBoxMenu(window_, where, Box(box).HasSelection(), Box(box).Log().LineCount() > 0);
  if (command != KeyTestCommand::kNone && window_ != nullptr) Report(events.command, command, box);
}

// To the box under the pointer, which is not the one that has the focus.
void KeyTestForm::OnWheel(WPARAM wParam, LPARAM lParam) {
  const HWND box = eventsBox_.Handle();
  const POINT pointer{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  if (IsIn(box, pointer)) SendMessageW(box, WM_MOUSEWHEEL, wParam, lParam);
}

std::optional<LRESULT> KeyTestForm::OnSetCursor(HWND over) const {
  if (over != labels_[kMenus] && over != labels_[kWarning]) return std::nullopt;
  SetCursor(LoadCursorW(nullptr, IDC_HAND));
  return TRUE;
}

std::optional<LRESULT> KeyTestForm::OnLabelColour(HDC context, HWND label) {
  for (std::size_t index = 0; index < labels_.size(); ++index) {
    if (labels_[index] != label || colours_[index] == kSystemColour) continue;
    SetBkColor(context, colours_[index]);
    SetTextColor(context, RGB(0, 0, 0));  // all these colours are bright ones
    return reinterpret_cast<LRESULT>(brushes_[index].Get());
  }
  return std::nullopt;
}

void KeyTestForm::OnMinMaxInfo(MINMAXINFO& info) const {
  info.ptMinTrackSize = {ScaleToDpi(kLeastWidth, dpi_), ScaleToDpi(kLeastHeight, dpi_)};
}

void KeyTestForm::OnDpiChanged(int dpi, const RECT& suggested) {
  dpi_ = dpi;
  SetFonts();
  icons_.Set(window_, dpi_);
  if (!placing_) MoveTo(window_, FromRect(suggested));
  Arrange();
}

}  // namespace deck
