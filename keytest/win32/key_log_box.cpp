#include "keytest/win32/key_log_box.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_class.h"

namespace deck {
namespace {

// Pixels at 96 dpi.
constexpr int kTextMargin = 4;   // left of the text
constexpr int kScrollStep = 20;  // sideways
constexpr int kWheelLinesUsual = 3;

RECT ClientOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return client;
}

POINT PointOf(LPARAM lParam) {
  return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

constexpr UINT kF1Pressed = 0x004D;  // what the system makes of F1 by itself; WM_HELP follows

bool IsKeyMessage(UINT message) {
  return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == kF1Pressed;
}

void SetScrollBar(HWND window, int bar, int count, int page, int position, UINT flags) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | flags;
  info.nMax = std::max(count - 1, 0);
  info.nPage = static_cast<UINT>(std::max(page, 0));
  info.nPos = position;
  SetScrollInfo(window, bar, &info, TRUE);
}

// Where the bar's thumb is while the user drags it; the message itself carries 16 bits only.
int ThumbPosition(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(window, bar, &info);
  return info.nTrackPos;
}

int WheelLines(int page) {
  UINT lines = kWheelLinesUsual;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  return lines == WHEEL_PAGESCROLL ? page : static_cast<int>(lines);
}

bool IsPointerOver(HWND window) {
  POINT pointer{};
  GetCursorPos(&pointer);
  return WindowFromPoint(pointer) == window;
}

void Fill(HDC context, const RECT& area, int systemColour) {
  if (area.left < area.right && area.top < area.bottom) {
    FillRect(context, &area, GetSysColorBrush(systemColour));
  }
}

int Brightness(COLORREF colour) {
  return 2 * GetRValue(colour) + 5 * GetGValue(colour) + GetBValue(colour);
}

// The colours are for a bright ground; on a dark one they need some of the text's own brightness.
COLORREF Between(COLORREF one, COLORREF other) {
  return RGB((GetRValue(one) + GetRValue(other)) / 2, (GetGValue(one) + GetGValue(other)) / 2,
             (GetBValue(one) + GetBValue(other)) / 2);
}

template <class... Arguments>
void Report(const std::function<void(Arguments...)>& event, Arguments... arguments) {
  if (event) event(arguments...);
}

}  // namespace

void KeyLogBox::Create(HWND parent, int id, const wchar_t* name) {
  RegisterWindowClass({.name = kKeyLogBoxClass, .procedure = Procedure});
  Clear();
  isInvalid_ = false;
  window_ = CreateWindowExW(WS_EX_CLIENTEDGE, kKeyLogBoxClass, L"",
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleW(nullptr), this);
  SetAccessibleName(window_, name);
}

void KeyLogBox::SetFont(HFONT font, int dpi) {
  font_ = font;
  dpi_ = dpi;
  const HDC context = GetDC(window_);
  const HGDIOBJ previous = SelectObject(context, font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  SelectObject(context, previous);
  ReleaseDC(window_, context);
  rowHeight_ = std::max<int>(metrics.tmHeight + metrics.tmExternalLeading, 1);
  widest_ = 0;
  left_ = 0;
  Invalidate();
}

void KeyLogBox::Append(std::u16string_view line) {
  log_.Append(line);
  toEnd_ = true;
  Invalidate();
}

void KeyLogBox::Clear() {
  log_.Clear();
  selection_.reset();
  top_ = 0;
  left_ = 0;
  widest_ = 0;
  toEnd_ = false;
  Invalidate();
}

std::u16string_view KeyLogBox::SelectedText() const {
  if (!selection_) return {};
  const auto [first, last] = std::minmax(selection_->anchor, selection_->active);
  return log_.Lines(first, last + 1);
}

bool KeyLogBox::IsSelected(int line) const {
  if (!selection_) return false;
  const auto [first, last] = std::minmax(selection_->anchor, selection_->active);
  return line >= first && line <= last;
}

void KeyLogBox::Invalidate() {
  // Once is enough until the next WM_PAINT.
  if (window_ == nullptr || std::exchange(isInvalid_, true)) return;
  InvalidateRect(window_, nullptr, FALSE);
}

// ---- Messages.

LRESULT CALLBACK KeyLogBox::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<KeyLogBox*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<KeyLogBox*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (self->window_ == window) self->window_ = nullptr;
  }
  return InProcedure([&] { return self->Handle(window, message, wParam, lParam); });
}

// `window` and not window_: an event may have ended the window, and even made the next one.
LRESULT KeyLogBox::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsKeyMessage(message) && events.key && events.key(message, wParam, lParam)) return 0;
  switch (message) {
    case WM_PAINT:
      OnPaint(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_DESTROY:
      ForgetAccessibleName(window);
      return 0;
    case WM_SIZE:
      // The end stays in view when it was.
      toEnd_ = toEnd_ || top_ + shownRows_ >= log_.LineCount();
      Invalidate();
      return 0;
    case WM_GETTEXT:
      return GetText(wParam, lParam);
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(log_.Text().size());
    case WM_SETTEXT:
      return FALSE;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(font_);
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTTAB;
    case WM_SETFOCUS:
      Report(events.entered);
      return 0;
    case WM_VSCROLL:
      OnVerticalScroll(LOWORD(wParam));
      return 0;
    case WM_HSCROLL:
      OnHorizontalScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      // The wheel's messages come to the focus; they are meant for what the pointer is over.
      if (!IsPointerOver(window)) break;
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_LBUTTONDOWN:
      OnButtonDown(PointOf(lParam), (wParam & MK_SHIFT) != 0);
      return 0;
    case WM_MOUSEMOVE:
      if (GetCapture() == window) OnDrag(PointOf(lParam));
      return 0;
    case WM_LBUTTONUP:
      if (GetCapture() == window) ReleaseCapture();
      return 0;
    case WM_RBUTTONDOWN:
      Report(events.clicked);
      return 0;
    case WM_CONTEXTMENU:
      // Without a place it comes from a key, and keys open nothing here.
      if (lParam != -1) Report(events.menuWanted, PointOf(lParam));
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT KeyLogBox::GetText(WPARAM room, LPARAM buffer) const {
  if (room == 0) return 0;
  const std::size_t length = std::min<std::size_t>(log_.Text().size(), room - 1);
  auto* const target = reinterpret_cast<wchar_t*>(buffer);
  std::copy_n(Wide(log_.Text()), length, target);
  target[length] = L'\0';
  return static_cast<LRESULT>(length);
}

// ---- Drawing.

int KeyLogBox::RowsIn(const RECT& client) const {
  return std::max<int>(client.bottom / rowHeight_, 1);
}

int KeyLogBox::LastTop(const RECT& client) const {
  return std::max(log_.LineCount() - RowsIn(client), 0);
}

int KeyLogBox::LastLeft(const RECT& client) const {
  return std::max<int>(widest_ - client.right, 0);
}

void KeyLogBox::OnPaint(HWND window) {
  ShowScrollBars(window);
  const RECT client = ClientOf(window);
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(window, &paint);
  isInvalid_ = false;
  const HGDIOBJ previous = SelectObject(context, font_);
  PaintLines(context, client);
  SelectObject(context, previous);
  EndPaint(window, &paint);
}

void KeyLogBox::ShowScrollBars(HWND window) {
  RECT client = ClientOf(window);
  LONG height = 0;
  do {
    height = client.bottom;
    if (std::exchange(toEnd_, false)) top_ = log_.LineCount();
    shownRows_ = RowsIn(client);
    top_ = std::clamp(top_, 0, LastTop(client));
    left_ = std::clamp(left_, 0, LastLeft(client));
    // A bar that comes and goes would move the lines.
    SetScrollBar(window, SB_VERT, log_.LineCount(), shownRows_, top_, SIF_DISABLENOSCROLL);
    SetScrollBar(window, SB_HORZ, widest_, client.right, left_, 0);
    client = ClientOf(window);
  } while (client.bottom != height);  // the bar below may have come or gone
}

void KeyLogBox::PaintLines(HDC context, const RECT& client) {
  const int widestBefore = widest_;
  RECT row{0, 0, client.right, rowHeight_};
  for (int line = top_; line < log_.LineCount() && row.top < client.bottom; ++line) {
    PaintLine(context, line, row);
    OffsetRect(&row, 0, rowHeight_);
  }
  Fill(context, {0, row.top, client.right, client.bottom}, COLOR_WINDOW);
  // Only now is it known how far sideways one may have to go.
  if (widest_ > widestBefore && widest_ > client.right) Invalidate();
}

COLORREF KeyLogBox::TextColour() const {
  const COLORREF usual = GetSysColor(COLOR_WINDOWTEXT);
  if (textColour_ == kSystemColour) return usual;
  const bool isDark = Brightness(usual) > Brightness(GetSysColor(COLOR_WINDOW));
  return isDark ? Between(textColour_, usual) : textColour_;
}

void KeyLogBox::PaintLine(HDC context, int line, const RECT& row) {
  const std::u16string_view text = log_.Line(line);
  const auto* const characters = reinterpret_cast<const wchar_t*>(text.data());
  const int length = static_cast<int>(text.size());
  SIZE size{};
  GetTextExtentPoint32W(context, characters, length, &size);
  widest_ = std::max<int>(widest_, size.cx + 2 * ScaleToDpi(kTextMargin, dpi_));
  const bool selected = IsSelected(line);
  SetTextColor(context, selected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : TextColour());
  SetBkColor(context, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  ExtTextOutW(context, ScaleToDpi(kTextMargin, dpi_) - left_, row.top, ETO_OPAQUE | ETO_CLIPPED,
              &row, characters, static_cast<UINT>(length), nullptr);
}

// ---- Scrolling.

// Several requests may come before the box is painted: none counts further than the text goes.
void KeyLogBox::ScrollTo(int line) {
  top_ = std::clamp(line, 0, LastTop(ClientOf(window_)));
  Invalidate();
}

void KeyLogBox::ScrollSideways(int left) {
  left_ = std::clamp(left, 0, LastLeft(ClientOf(window_)));
  Invalidate();
}

void KeyLogBox::OnVerticalScroll(int request) {
  const int page = RowsIn(ClientOf(window_));
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(top_ - 1);
    case SB_LINEDOWN:
      return ScrollTo(top_ + 1);
    case SB_PAGEUP:
      return ScrollTo(top_ - page);
    case SB_PAGEDOWN:
      return ScrollTo(top_ + page);
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(log_.LineCount());
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(ThumbPosition(window_, SB_VERT));
    default:
      return;
  }
}

void KeyLogBox::OnHorizontalScroll(int request) {
  const int step = ScaleToDpi(kScrollStep, dpi_);
  const int page = ClientOf(window_).right;
  switch (request) {
    case SB_LINELEFT:
      return ScrollSideways(left_ - step);
    case SB_LINERIGHT:
      return ScrollSideways(left_ + step);
    case SB_PAGELEFT:
      return ScrollSideways(left_ - page);
    case SB_PAGERIGHT:
      return ScrollSideways(left_ + page);
    case SB_LEFT:
      return ScrollSideways(0);
    case SB_RIGHT:
      return ScrollSideways(widest_);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollSideways(ThumbPosition(window_, SB_HORZ));
    default:
      return;
  }
}

void KeyLogBox::OnWheel(int delta) {
  const int lines = WheelLines(RowsIn(ClientOf(window_)));
  if (lines <= 0) return;
  wheel_ += delta * lines;
  ScrollTo(top_ - wheel_ / WHEEL_DELTA);
  wheel_ %= WHEEL_DELTA;
}

// ---- Selecting with the mouse.

int KeyLogBox::LineAt(int y) const {
  const int row = y >= 0 ? y / rowHeight_ : -1;
  return top_ + row;
}

void KeyLogBox::OnButtonDown(POINT where, bool extend) {
  const int line = LineAt(where.y);
  if (line >= log_.LineCount()) {
    selection_.reset();
  } else if (extend && selection_) {
    selection_->active = line;
  } else {
    selection_ = Selection{line, line};
  }
  if (selection_) SetCapture(window_);
  Invalidate();
  Report(events.clicked);
}

void KeyLogBox::OnDrag(POINT where) {
  if (!selection_ || log_.LineCount() == 0) return;
  const RECT client = ClientOf(window_);
  const int line = std::clamp(LineAt(where.y), 0, log_.LineCount() - 1);
  selection_->active = line;
  if (where.y < 0) return ScrollTo(line);
  if (where.y >= client.bottom) return ScrollTo(top_ + 1);
  Invalidate();
}

}  // namespace deck
