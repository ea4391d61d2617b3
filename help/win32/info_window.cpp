#include "help/win32/info_window.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "documents/layout.h"
#include "help/info_window_layout.h"
#include "platform/control_ids.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/owned_window.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/subclass.h"
#include "platform/win32/window_class.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

constexpr const wchar_t* kClassName = L"InfoWindow";
// Pixels at 96 dpi.
constexpr int kSmallestWidth = 240;
constexpr int kSmallestHeight = 160;
constexpr int kPageMargin = 10;

HWND CreateControl(const wchar_t* name, const wchar_t* text, DWORD style, HWND parent,
                   ControlId id) {
  return CreateWindowExW(0, name, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0,
                         parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

DWORD CALLBACK ReadPage(DWORD_PTR cookie, BYTE* buffer, LONG size, LONG* read) {
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const std::size_t taken = std::min(rest.size(), static_cast<std::size_t>(size));
  std::memcpy(buffer, rest.data(), taken);
  rest.remove_prefix(taken);
  *read = static_cast<LONG>(taken);
  return 0;
}

// By itself the control draws pages for the resolution of the first screen, whatever screen the
// window is on.
void ZoomPage(HWND text, int dpi) {
  const HDC screen = GetDC(nullptr);
  const int usual = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  // The control takes no number above 64. Sixteenths hit every resolution that the system offers.
  constexpr int kParts = 16;
  const int zoom = std::clamp(MulDiv(dpi, kParts, usual), 1, 64);
  SendMessageW(text, EM_SETZOOM, static_cast<WPARAM>(zoom), kParts);
}

// `point` as WM_MOUSEMOVE of the control tells it.
void ReportPointer(HWND control, LPARAM point, const std::function<void()>& over) {
  if (HasPointerMoved(control, point) && over) over();
}

}  // namespace

void InfoWindow::Load(const InfoWindowPlace& place) {
  RegisterWindowClass({.name = kClassName, .procedure = Procedure, .background = WindowGround()});
  dpi_ = DpiOf(owner_);
  const auto pixels = [this](int twips) {
    return PixelsFromTwips(static_cast<float>(twips), dpi_);
  };
  const Rectangle wanted{pixels(place.left), pixels(place.top),
                         std::max(pixels(place.width), ScaleToDpi(kSmallestWidth, dpi_)),
                         std::max(pixels(place.height), ScaleToDpi(kSmallestHeight, dpi_))};
  const Rectangle at = MovedInto(wanted, WorkAreaAt(wanted));
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, L"Deck Quick Help",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, at.left, at.top, at.width,
                            at.height, owner_, nullptr, GetModuleHandleW(nullptr), this);
  loop_.AddDialog(window_);
}

void InfoWindow::Show() {
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOWNORMAL);
  SetForegroundWindow(window_);
}

void InfoWindow::ShowPage(std::string_view rtf) {
  if (!rtf.starts_with("{\\rtf")) return;
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rtf);
  stream.pfnCallback = ReadPage;
  SendMessageW(text_, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  SendMessageW(text_, EM_SETSEL, 0, 0);
  SendMessageW(text_, EM_SCROLLCARET, 0, 0);
}

InfoWindowPlace InfoWindow::Place() const {
  const Rectangle normal = NormalPlaceOf(window_);
  const auto twips = [this](int length) { return static_cast<int>(TwipsFromPixels(length, dpi_)); };
  return {.top = twips(normal.top),
          .left = twips(normal.left),
          .height = twips(normal.height),
          .width = twips(normal.width)};
}

void InfoWindow::Minimise() {
  if (window_ != nullptr) MinimiseOwned(window_);
}

void InfoWindow::Unload() {
  if (window_ == nullptr) return;
  loop_.RemoveDialog(window_);
  ForgetAccessibleName(text_);
  DestroyWindow(std::exchange(window_, nullptr));
}

void InfoWindow::CreateControls() {
  text_ = CreateControl(MSFTEDIT_CLASS, L"", WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_NOHIDESEL,
                        window_, ControlId::kInfoText);
  Subclass<&InfoWindow::OnTextMessage>(text_, this);
  SetAccessibleName(text_, L"Help page");
  // Pages bring colours of their own, which are made for paper.
  SendMessageW(text_, EM_SETBKGNDCOLOR, FALSE, static_cast<LPARAM>(RGB(255, 255, 255)));
  SendMessageW(text_, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
  ok_ = CreateControl(WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON, window_, ControlId::kInfoCommand1);
  Subclass<&InfoWindow::OnOkMessage>(ok_, this);
  SetLooks();
}

void InfoWindow::SetLooks() {
  FontHandle font = MakeFont(MessageFont(dpi_));
  SendMessageW(ok_, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  // Only now is the old one out of use.
  font_ = std::move(font);
  ZoomPage(text_, dpi_);
  icons_.Set(window_, dpi_);
}

void InfoWindow::LayOut() {
  RECT client{};
  GetClientRect(window_, &client);
  const InfoWindowLayout layout = LayOutInfoWindow(client.right, client.bottom, dpi_);
  MoveTo(text_, layout.text);
  MoveTo(ok_, layout.ok);
  const int margin = ScaleToDpi(kPageMargin, dpi_);
  RECT page{margin, margin, layout.text.width - margin, layout.text.height};
  SendMessageW(text_, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&page));
}

void InfoWindow::OnDpiChanged(int dpi, const RECT& suggested) {
  dpi_ = dpi;
  SetLooks();
  MoveTo(window_, FromRect(suggested));
  LayOut();  // the size may be the same as before
}

LRESULT InfoWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      dpi_ = DpiOf(window_);
      CreateControls();
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) LayOut();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {ScaleToDpi(kSmallestWidth, dpi_),
                                                               ScaleToDpi(kSmallestHeight, dpi_)};
      return 0;
    case WM_DPICHANGED:
      OnDpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) SetFocus(text_);
      return 0;
    case DM_GETDEFID:
      return MAKELRESULT(static_cast<WORD>(ControlId::kInfoCommand1), DC_HASDEFID);
    case WM_COMMAND:
      if (LOWORD(wParam) != static_cast<WORD>(ControlId::kInfoCommand1) &&
          LOWORD(wParam) != IDCANCEL) {
        break;
      }
      [[fallthrough]];
    case WM_CLOSE:
      // The window may be gone when this returns.
      if (events.closeWanted) events.closeWanted();
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK InfoWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<InfoWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    ScaleFrameWithDpi(window);
  }
  auto* self = reinterpret_cast<InfoWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // Unload forgets the window before it is destroyed: nothing that happens then is reported.
  if (self == nullptr || self->window_ != window) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return InProcedure([&] { return self->Handle(message, wParam, lParam); });
}

// The text only scrolls: Tab, Return and Escape belong to the window. Neither control tells its
// parent of a pointer over it in a way that every system does.
LRESULT InfoWindow::OnTextMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
  if (message == WM_GETDLGCODE) return DLGC_WANTARROWS;
  if (message == WM_MOUSEMOVE) ReportPointer(window, lParam, events.overText);
  return CallSubclassed(window, message, wParam, lParam);
}

LRESULT InfoWindow::OnOkMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
  if (message == WM_MOUSEMOVE) ReportPointer(window, lParam, events.overOk);
  return CallSubclassed(window, message, wParam, lParam);
}

}  // namespace deck
