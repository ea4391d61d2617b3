#include "keytest/win32/key_test_form.h"

#include <commdlg.h>
#include <imm.h>

#include <algorithm>
#include <utility>

#include "keytest/win32/key_test_menus.h"
#include "platform/control_ids.h"
#include "platform/scope_value.h"
#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_class.h"
#include "platform/win32/window_front.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

constexpr const wchar_t* kClassName = L"KeyTestForm";
constexpr const wchar_t* kTitle = L"Key Tester";

// Blue, green and red parts in this order, from the highest byte to the lowest.
constexpr COLORREF kBlue = 0xFF0000;
constexpr COLORREF kLit = 0x80C0FF;
constexpr COLORREF kMenusShown = 0x00FF00;
constexpr COLORREF kMenusHidden = 0x0000FF;
constexpr COLORREF kWarningColour = 0xC0FFFF;

constexpr UINT_PTR kTimer1 = 1;

// Short enough for the least width of the window.
constexpr const wchar_t* kWarningText = L"The controllers are not in programmed mode. Click here.";

HWND CreateLabel(HWND parent, ControlId id, const wchar_t* text, DWORD style) {
  return CreateWindowExW(0, L"STATIC", text,
                         WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE | SS_NOPREFIX | style, 0, 0, 0, 0,
                         parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

std::u16string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

}  // namespace

KeyTestForm::KeyTestForm(MessageLoop& loop) : eventsBox_(kBlue), namesBox_(kSystemColour) {
  RegisterWindowClass({.name = kClassName, .procedure = Procedure, .background = WindowGround()});
  JoinBox(KeyBox::kEvents);
  JoinBox(KeyBox::kNames);
  loop.AddFilter([this](MSG& message) { return Filter(message); });
}

KeyTestForm::~KeyTestForm() {
  KeyTestForm::Close();
}

void KeyTestForm::JoinBox(KeyBox box) {
  KeyLogBox::Events& boxEvents = Box(box).events;
  boxEvents.key = [this](UINT message, WPARAM wParam, LPARAM) { return OnKey(message, wParam); };
  boxEvents.clicked = [this] { SetFocus(namesBox_.Handle()); };
  boxEvents.entered = [this] { Report(events.boxEntered); };
  boxEvents.menuWanted = [this, box](POINT where) { OnBoxMenu(box, where); };
}

// ---- KeyTestView.

void KeyTestForm::Open() {
  look_ = {};
  menuBar_ = MakeKeyTestMenuBar();
  CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, menuBar_,
                  GetModuleHandleW(nullptr), this);
}

void KeyTestForm::Show() {
  ShowInFront(window_);
}

void KeyTestForm::Close() {
  if (window_ == nullptr) return;
  // A window that is not known any more reports nothing.
  const HWND window = std::exchange(window_, nullptr);
  windowsBeside_.OnEnable(window, true);  // a box in front of it ends with it
  ShowMenuBar(window, true);              // so that the menus end with it
  DestroyWindow(window);
}

void KeyTestForm::Append(KeyBox box, const std::u16string& line) {
  Box(box).Append(line);
}

void KeyTestForm::Clear(KeyBox box) {
  Box(box).Clear();
}

std::u16string KeyTestForm::Text(KeyBox box) const {
  return Box(box).Log().Text();
}

std::u16string KeyTestForm::SelectedText(KeyBox box) const {
  return std::u16string(Box(box).SelectedText());
}

void KeyTestForm::SetLamps(const KeyLamps& lamps) {
  ColourLabel(kShift, lamps.shift ? kLit : kSystemColour);
  ColourLabel(kControl, lamps.control ? kLit : kSystemColour);
  ColourLabel(kAlt, lamps.alt ? kLit : kSystemColour);
  ColourLabel(kNumLock, lamps.numLock ? kLit : kSystemColour);
}

void KeyTestForm::SetLook(const KeyTestLook& look) {
  look_ = look;
  TickKeyTestMenus(menuBar_, look);
  ShowMenuBar(window_, look.menusShown);
  ColourLabel(kMenus, look.menusShown ? kMenusShown : kMenusHidden);
  SetWindowTextW(labels_[kHeading], Wide(look.heading));
  ShowWindow(labels_[kWarning], look.modeWarning ? SW_SHOWNA : SW_HIDE);
  ShowWindow(eventsBox_.Handle(), look.viewAll ? SW_SHOWNA : SW_HIDE);
  Arrange();
}

void KeyTestForm::SetTimer1(int milliseconds) {
  if (milliseconds > 0) {
    SetTimer(window_, kTimer1, static_cast<UINT>(milliseconds), nullptr);
  } else {
    KillTimer(window_, kTimer1);
  }
}

WindowPlacement KeyTestForm::Placement() const {
  const Rectangle place = NormalPlaceOf(window_);
  return {.left = TwipsFromPixels(place.left, dpi_),
          .top = TwipsFromPixels(place.top, dpi_),
          .width = TwipsFromPixels(place.width, dpi_),
          .height = TwipsFromPixels(place.height, dpi_)};
}

void KeyTestForm::Place(const WindowPlacement& placement) {
  const Rectangle place = PlaceOnAMonitor(placement, dpi_);
  const ScopeValue placing(placing_, true);
  MoveTo(window_, place);
}

// ---- Parts of the window.

void KeyTestForm::OnCreate() {
  dpi_ = DpiOf(window_);
  constexpr DWORD kLamp = SS_CENTER | SS_SUNKEN;
  labels_ = {CreateLabel(window_, ControlId::kLabelSHIFT, L"SHIFT", kLamp),
             CreateLabel(window_, ControlId::kLabelCTRL, L"CTRL", kLamp),
             CreateLabel(window_, ControlId::kLabelALT, L"ALT", kLamp),
             CreateLabel(window_, ControlId::kLabelNUMLOCK, L"NUM LOCK", kLamp),
             CreateLabel(window_, ControlId::kLabel1, L"Menus", SS_CENTER | SS_NOTIFY),
             CreateLabel(window_, ControlId::kLabel3, L"", 0),
             CreateLabel(window_, ControlId::kLblModeWarning, kWarningText,
                         SS_CENTER | SS_NOTIFY | SS_ENDELLIPSIS)};
  colours_.fill(kSystemColour);
  ColourLabel(kWarning, kWarningColour);
  eventsBox_.Create(window_, static_cast<int>(ControlId::kRTFKeysText), L"Key events");
  namesBox_.Create(window_, static_cast<int>(ControlId::kRTFKeysDownText), L"Keys pressed");
  // Keys are to arrive as they are, and not as parts of a composition.
  ImmAssociateContextEx(window_, nullptr, IACE_CHILDREN);
  SetFonts();
  icons_.Set(window_, dpi_);
}

void KeyTestForm::SetFonts() {
  FontHandle labelFont = MakeFont(MessageFont(dpi_));
  LOGFONTW box = chosenFont_ ? *chosenFont_ : MessageFont(dpi_);
  if (chosenFont_) box.lfHeight = -MulDiv(chosenSize_, dpi_, 720);
  FontHandle boxFont = MakeFont(box);
  for (const HWND label : labels_) {
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(labelFont.Get()), TRUE);
  }
  eventsBox_.SetFont(boxFont.Get(), dpi_);
  namesBox_.SetFont(boxFont.Get(), dpi_);
  // Only now are the old ones out of use.
  labelFont_ = std::move(labelFont);
  boxFont_ = std::move(boxFont);
}

void KeyTestForm::ChooseFonts() {
  const HWND window = window_;
  LOGFONTW font{};
  GetObjectW(boxFont_.Get(), sizeof font, &font);
  CHOOSEFONTW choice{};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = window;
  choice.lpLogFont = &font;
  choice.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_NOVERTFONTS;
  // The window may be closed while its dialog is open.
  if (!ChooseFontW(&choice) || window_ != window) return;
  chosenFont_ = font;
  chosenSize_ = choice.iPointSize;
  SetFonts();
  Arrange();
}

void KeyTestForm::ShowMenuBar(HWND window, bool shown) {
  const HMENU wanted = shown ? menuBar_ : nullptr;
  if (GetMenu(window) != wanted) SetMenu(window, wanted);
}

void KeyTestForm::ColourLabel(Label label, COLORREF colour) {
  if (colours_[label] == colour) return;
  colours_[label] = colour;
  brushes_[label] = BrushHandle(colour == kSystemColour ? nullptr : CreateSolidBrush(colour));
  InvalidateRect(labels_[label], nullptr, TRUE);
}

void KeyTestForm::Arrange() {
  // A minimised window has no room; what was laid out before comes back with it.
  if (IsIconic(window_)) return;
  RECT client{};
  GetClientRect(window_, &client);
  const TextMeasure measure(window_, labelFont_.Get());
  const auto width = [&](Label label) { return measure.Width(TextOf(labels_[label])); };
  const KeyTestLayout layout =
      ResizeStuff({.clientWidth = client.right,
                   .clientHeight = client.bottom,
                   .lineHeight = measure.LineHeight(),
                   .lampWidths = {width(kShift), width(kControl), width(kAlt), width(kNumLock)},
                   .menusWidth = width(kMenus),
                   .headingWidth = width(kHeading),
                   .warningWidth = width(kWarning),
                   .viewAll = look_.viewAll,
                   .dpi = dpi_});
  for (std::size_t lamp = 0; lamp < layout.lamps.size(); ++lamp) {
    MoveTo(labels_[lamp], layout.lamps[lamp]);
  }
  MoveTo(labels_[kMenus], layout.menus);
  MoveTo(labels_[kHeading], layout.heading);
  MoveTo(labels_[kWarning], layout.warning);
  MoveTo(eventsBox_.Handle(), layout.events);
  MoveTo(namesBox_.Handle(), layout.names);
}

}  // namespace deck
