#include "macros/win32/macro_panel_window.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/control_ids.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/fonts.h"
#include "platform/win32/paint_pause.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/subclass.h"
#include "platform/win32/text_drag.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_class.h"

namespace deck {
namespace {

constexpr const wchar_t* kClassName = L"FrameMacros";
constexpr int kHeadingsShownAtOnce = 20;
constexpr int kEdgeStep = 16;  // pixels at 96 dpi, for each press of a key

HWND CreateControl(const wchar_t* name, const wchar_t* text, DWORD style, DWORD extendedStyle,
                   HWND parent, int id) {
  return CreateWindowExW(extendedStyle, name, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                         parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

LPARAM Text(const std::u16string& text) {
  return reinterpret_cast<LPARAM>(Wide(text));
}

POINT PointOf(LPARAM lParam) {
  return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

bool ShiftIsDown() {
  return GetKeyState(VK_SHIFT) < 0;
}

bool ControlIsDown() {
  return GetKeyState(VK_CONTROL) < 0;
}

bool IsHandledAsKey(WPARAM character) {
  return character == VK_TAB || character == VK_RETURN || character == VK_ESCAPE;
}

bool IsFarEnoughForADrag(POINT from, POINT to) {
  return std::abs(from.x - to.x) > GetSystemMetrics(SM_CXDRAG) ||
         std::abs(from.y - to.y) > GetSystemMetrics(SM_CYDRAG);
}

template <class... Arguments>
void Report(const std::function<void(Arguments...)>& event, Arguments... arguments) {
  if (event) event(arguments...);
}

}  // namespace

MacroPanelWindow::MacroPanelWindow(HWND parent) {
  RegisterWindowClass({.name = kClassName, .procedure = Procedure, .background = WindowGround()});
  // The handle is taken from the window's first message.
  CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, L"FrameMacros",
                  WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent,
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId::kFrameMacros)),
                  GetModuleHandleW(nullptr), this);
}

void MacroPanelWindow::CreateControls() {
  label_ = CreateControl(WC_STATICW, L"&Macros", SS_NOTIFY, 0, window_, -1);
  combo_ = CreateControl(WC_COMBOBOXW, L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, window_,
                         static_cast<int>(ControlId::kCombo1));
  list_ = CreateControl(WC_LISTBOXW, L"",
                        WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                        WS_EX_CLIENTEDGE, window_, static_cast<int>(ControlId::kList1));
  Subclass<&MacroPanelWindow::HandleCombo>(combo_, this);
  Subclass<&MacroPanelWindow::HandleList>(list_, this);
  SetAccessibleName(window_, L"Macro panel");
  SetAccessibleName(combo_, L"Macro headings");
  SetAccessibleName(list_, L"Macros");
}

void MacroPanelWindow::SetFont(const LOGFONTW& font, int dpi) {
  FontHandle next = MakeFont(font);
  for (const HWND control : {label_, combo_, list_}) {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(next.Get()), TRUE);
  }
  font_ = std::move(next);
  dpi_ = dpi;
  LayOut();
}

void MacroPanelWindow::Focus() {
  const bool hasMacros = SendMessageW(list_, LB_GETCOUNT, 0, 0) > 0;
  if (hasMacros && SendMessageW(list_, LB_GETCURSEL, 0, 0) == LB_ERR) {
    SendMessageW(list_, LB_SETCURSEL, 0, 0);
  }
  SetFocus(hasMacros ? list_ : combo_);
}

void MacroPanelWindow::ShowHeadings(const std::vector<std::u16string>& headings, int selected) {
  const PaintPause pause(combo_);
  SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
  for (const std::u16string& heading : headings) {
    SendMessageW(combo_, CB_ADDSTRING, 0, Text(heading));
  }
  SendMessageW(combo_, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

void MacroPanelWindow::ShowMacros(const std::vector<std::u16string>& names) {
  const TextMeasure measure(list_, font_.Get());
  int widest = 0;
  // The list's own answer lets its scroll bars be painted whenever they change, the system's lets
  // each item ask to be painted.
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  DefWindowProcW(list_, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list_, LB_RESETCONTENT, 0, 0);
  for (const std::u16string& name : names) {
    SendMessageW(list_, LB_ADDSTRING, 0, Text(name));
    widest = std::max(widest, measure.Width(name));
  }
  // Names begin a little behind the edge; without this the end of the widest would stay hidden.
  const int margin = ScaleToDpi(6, dpi_);
  SendMessageW(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + margin), 0);
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  DefWindowProcW(list_, WM_SETREDRAW, TRUE, 0);
  RedrawWindow(list_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE);
}

// ---- The frame.

LRESULT CALLBACK MacroPanelWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                             LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self =
        static_cast<MacroPanelWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<MacroPanelWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  return InProcedure([&] { return self->Handle(message, wParam, lParam); });
}

LRESULT MacroPanelWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateControls();
      return 0;
    case WM_SIZE:
      LayOut();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_SETCURSOR:
      if (POINT where{}; GetCursorPos(&where) && ScreenToClient(window_, &where) &&
                         reinterpret_cast<HWND>(wParam) == window_ && IsOnSplitter(where)) {
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
      }
      break;
    case WM_LBUTTONDOWN:
      if (IsOnSplitter(PointOf(lParam))) BeginEdgeDrag(GET_X_LPARAM(lParam));
      return 0;
    case WM_MOUSEMOVE:
      if (edge_.active) MoveEdge(GET_X_LPARAM(lParam));
      return 0;
    case WM_LBUTTONUP:
      EndEdgeDrag(true);
      return 0;
    case WM_CAPTURECHANGED:
      EndEdgeDrag(false);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void MacroPanelWindow::LayOut() {
  RECT client{};
  GetClientRect(window_, &client);
  RECT combo{};
  GetWindowRect(combo_, &combo);
  const TextMeasure measure(label_, font_.Get());
  layout_ = LayOutMacroFrame({.width = client.right,
                              .height = client.bottom,
                              .labelHeight = measure.LineHeight(),
                              .headingsHeight = combo.bottom - combo.top,
                              .dpi = dpi_});
  // The height given to a combo box is the one with its list dropped down.
  const auto itemHeight = static_cast<int>(SendMessageW(combo_, CB_GETITEMHEIGHT, 0, 0));
  const int dropped = layout_.headings.height + kHeadingsShownAtOnce * itemHeight;
  const auto place = [](HDWP moves, HWND control, const Rectangle& where, int height) {
    return DeferWindowPos(moves, control, nullptr, where.left, where.top, where.width, height,
                          SWP_NOZORDER | SWP_NOACTIVATE);
  };
  HDWP moves = BeginDeferWindowPos(3);
  moves = place(moves, label_, layout_.label, layout_.label.height);
  moves = place(moves, combo_, layout_.headings, dropped);
  moves = place(moves, list_, layout_.macros, layout_.macros.height);
  EndDeferWindowPos(moves);
}

void MacroPanelWindow::OnCommand(WORD control, WORD code) {
  if (control == static_cast<WORD>(ControlId::kCombo1) && code == CBN_SELCHANGE) {
    Report(events.headingChosen, static_cast<int>(SendMessageW(combo_, CB_GETCURSEL, 0, 0)));
  }
  if (control != static_cast<WORD>(ControlId::kList1)) return;
  const auto macro = static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
  if (code == LBN_SELCHANGE && !dragged_) Report(events.macroClicked, macro);
  if (code == LBN_DBLCLK) Report(events.macroDoubleClicked, macro);
}

// ---- The headings.

LRESULT MacroPanelWindow::HandleCombo(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSEMOVE && HasPointerMoved(combo_, lParam)) Report(events.headingPointer);
  if (message == WM_KEYDOWN && (OnEdgeKey(wParam) || OnComboKey(wParam))) return 0;
  if (message == WM_CHAR && IsHandledAsKey(wParam)) return 0;
  return CallSubclassed(window, message, wParam, lParam);
}

bool MacroPanelWindow::OnComboKey(WPARAM key) {
  const bool isDropped = SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (key == VK_TAB && !ShiftIsDown()) {
    SetFocus(list_);
    return true;
  }
  if (key == VK_TAB || (key == VK_ESCAPE && !isDropped)) {
    Report(events.left);
    return true;
  }
  return false;
}

// ---- The macros.

LRESULT MacroPanelWindow::HandleList(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      dragged_ = false;
      if (OnEdgeKey(wParam) || OnListKey(wParam)) return 0;
      break;
    case WM_CHAR:
      if (IsHandledAsKey(wParam)) return 0;
      break;
    case WM_KEYUP:
      Report(events.listKey);
      break;
    case WM_LBUTTONDOWN:
      dragged_ = false;
      press_ = {MacroAt(PointOf(lParam)), PointOf(lParam)};
      break;
    case WM_MOUSEMOVE:
      if (OnListMouseMove(wParam, PointOf(lParam), HasPointerMoved(list_, lParam))) return 0;
      break;
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_CAPTURECHANGED:
      press_ = {};
      break;
    default:
      break;
  }
  return CallSubclassed(window, message, wParam, lParam);
}

bool MacroPanelWindow::OnListKey(WPARAM key) {
  switch (key) {
    case VK_RETURN:
      Report(events.macroDoubleClicked, static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0)));
      return true;
    case VK_TAB:
      if (ShiftIsDown()) {
        SetFocus(combo_);
        return true;
      }
      Report(events.left);
      return true;
    case VK_ESCAPE:
      Report(events.left);
      return true;
    default:
      return false;
  }
}

// The list itself must not see the moves of a press on a macro: it would let the choice follow the
// pointer.
bool MacroPanelWindow::OnListMouseMove(WPARAM keys, POINT where, bool moved) {
  if ((keys & MK_LBUTTON) == 0 || press_.index < 0) {
    if (moved) Report(events.listPointer);
    return false;
  }
  if (IsFarEnoughForADrag(press_.where, where)) BeginDrag();
  return true;
}

void MacroPanelWindow::BeginDrag() {
  const int index = std::exchange(press_, {}).index;
  dragged_ = true;
  ReleaseCapture();
  const std::u16string text = events.dragStarted ? events.dragStarted(index) : std::u16string();
  if (!text.empty()) DragText(text);
}

int MacroPanelWindow::MacroAt(POINT where) const {
  const LRESULT found = SendMessageW(list_, LB_ITEMFROMPOINT, 0, MAKELPARAM(where.x, where.y));
  const bool isOutside = HIWORD(found) != 0;
  const bool isEmpty = SendMessageW(list_, LB_GETCOUNT, 0, 0) <= 0;
  return isOutside || isEmpty ? -1 : LOWORD(found);
}

// ---- The edge.

bool MacroPanelWindow::IsOnSplitter(POINT where) const {
  return where.x >= layout_.splitter.left && where.x < layout_.splitter.right();
}

int MacroPanelWindow::Width() const {
  RECT frame{};
  GetWindowRect(window_, &frame);
  return ScaleFromDpi(frame.right - frame.left, dpi_);
}

void MacroPanelWindow::BeginEdgeDrag(int x) {
  edge_ = {true, layout_.splitter.right() - x, Width()};
  SetCapture(window_);
}

void MacroPanelWindow::MoveEdge(int x) const {
  Report(events.splitterMoved, ScaleFromDpi(std::max(x + edge_.offset, 1), dpi_));
}

// Ctrl with an arrow, which means nothing else to the headings and the macros.
bool MacroPanelWindow::OnEdgeKey(WPARAM key) const {
  if (!ControlIsDown() || (key != VK_LEFT && key != VK_RIGHT)) return false;
  const int before = Width();
  const int wanted = key == VK_LEFT ? before - kEdgeStep : before + kEdgeStep;
  Report(events.splitterMoved, std::max(wanted, 1));
  if (Width() != before) {
    Report(events.splitterDragged, Width());
  } else {
    Report(events.splitterMoved, before);
  }
  return true;
}

void MacroPanelWindow::EndEdgeDrag(bool keep) {
  if (!std::exchange(edge_.active, false)) return;
  if (keep) {
    ReleaseCapture();
    if (Width() != edge_.oldWidth) Report(events.splitterDragged, Width());
  } else {
    Report(events.splitterMoved, edge_.oldWidth);
  }
}

}  // namespace deck
