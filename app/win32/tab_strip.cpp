#include "app/win32/tab_strip.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/control_ids.h"
#include "platform/strings.h"
#include "platform/twips.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// Pixels at 96 dpi: with these the tabs end where the edit boxes begin.
constexpr int kTabHeight = 20;
constexpr int kTabPadding = 8;

TCITEMW ItemWith(std::u16string& caption) {
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = MutableWide(caption);
  return item;
}

TTTOOLINFOW ToolOf(HWND tabs, int index) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // the newest one that every version of the control takes
  tool.hwnd = tabs;
  tool.uId = static_cast<UINT_PTR>(index);
  return tool;
}

}  // namespace

TabStrip::TabStrip(HWND parent, Events events)
    : window_(CreateWindowExW(
          0, WC_TABCONTROLW, L"TabStrip1",
          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FOCUSNEVER | TCS_TOOLTIPS, 0, 0, 0, 0,
          parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId::kTabStrip1)),
          GetModuleHandleW(nullptr), nullptr)),
      events_(std::move(events)) {
  SetWindowSubclass(window_, Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
  // Without this style an "&" in a path would not show.
  const HWND tips = ToolTips();
  SetWindowLongPtrW(tips, GWL_STYLE, GetWindowLongPtrW(tips, GWL_STYLE) | TTS_NOPREFIX);
}

HWND TabStrip::ToolTips() const {
  return reinterpret_cast<HWND>(SendMessageW(window_, TCM_GETTOOLTIPS, 0, 0));
}

void TabStrip::SetFont(HFONT font, int dpi) {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  SendMessageW(window_, TCM_SETPADDING, 0, MAKELPARAM(ScaleToDpi(kTabPadding, dpi), 3));
  // The width counts only for tabs of equal width, which these are not.
  SendMessageW(window_, TCM_SETITEMSIZE, 0, MAKELPARAM(0, ScaleToDpi(kTabHeight, dpi)));
}

void TabStrip::Insert(int position, const std::u16string& caption) {
  const int index = std::clamp(position - 1, 0, static_cast<int>(toolTips_.size()));
  toolTips_.insert(toolTips_.begin() + index, std::u16string());
  std::u16string shown = DoubleAmpersands(caption);
  TCITEMW item = ItemWith(shown);
  SendMessageW(window_, TCM_INSERTITEMW, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&item));
}

void TabStrip::Remove(int position) {
  if (position < 1 || position > static_cast<int>(toolTips_.size())) return;
  toolTips_.erase(toolTips_.begin() + position - 1);
  SendMessageW(window_, TCM_DELETEITEM, static_cast<WPARAM>(position - 1), 0);
  TTTOOLINFOW last = ToolOf(window_, static_cast<int>(toolTips_.size()));
  SendMessageW(ToolTips(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&last));
}

void TabStrip::Set(int position, const std::u16string& caption, const std::u16string& toolTip) {
  if (position < 1 || position > static_cast<int>(toolTips_.size())) return;
  toolTips_[static_cast<std::size_t>(position - 1)] = toolTip;
  std::u16string shown = DoubleAmpersands(caption);
  TCITEMW item = ItemWith(shown);
  SendMessageW(window_, TCM_SETITEMW, static_cast<WPARAM>(position - 1),
               reinterpret_cast<LPARAM>(&item));
}

void TabStrip::Select(int position) {
  SendMessageW(window_, TCM_SETCURSEL, static_cast<WPARAM>(position - 1), 0);
}

bool TabStrip::OnNotify(NMHDR& header) {
  if (header.hwndFrom == window_ && header.code == TCN_SELCHANGE) {
    const auto selected = static_cast<int>(SendMessageW(window_, TCM_GETCURSEL, 0, 0));
    if (events_.clicked) events_.clicked(selected + 1);
    return true;
  }
  if (header.hwndFrom == ToolTips() && header.code == TTN_GETDISPINFOW &&
      header.idFrom < toolTips_.size()) {
    reinterpret_cast<NMTTDISPINFOW&>(header).lpszText = MutableWide(toolTips_[header.idFrom]);
    return true;
  }
  return false;
}

int TabStrip::PositionAt(LPARAM point) const {
  TCHITTESTINFO test{};
  test.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  return static_cast<int>(SendMessageW(window_, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&test))) +
         1;
}

// Wine's tab control passes on to its tool tips where the pointer is, but has never told them where
// the tabs are.
void TabStrip::PlaceToolTips() {
  const HWND tips = ToolTips();
  for (int index = 0; index < static_cast<int>(toolTips_.size()); ++index) {
    TTTOOLINFOW tool = ToolOf(window_, index);
    const bool isKnown =
        SendMessageW(tips, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
    SendMessageW(window_, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&tool.rect));
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tips, isKnown ? TTM_NEWTOOLRECTW : TTM_ADDTOOLW, 0,
                 reinterpret_cast<LPARAM>(&tool));
  }
}

LRESULT TabStrip::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE:
      PlaceToolTips();
      if (const int position = PositionAt(lParam);
          HasPointerMoved(window_, lParam) && position > 0 && events_.hovered) {
        events_.hovered(position);
      }
      break;
    case WM_MBUTTONDOWN:
      pressed_ = PositionAt(lParam);
      break;
    case WM_MBUTTONUP:
      if (const int pressed = std::exchange(pressed_, 0);
          pressed > 0 && pressed == PositionAt(lParam) && events_.middleClicked) {
        events_.middleClicked(pressed);
      }
      break;
    default:
      break;
  }
  return DefSubclassProc(window_, message, wParam, lParam);
}

LRESULT CALLBACK TabStrip::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR id, DWORD_PTR self) {
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(window, Procedure, id);
    return DefSubclassProc(window, message, wParam, lParam);
  }
  return InProcedure(
      [&] { return reinterpret_cast<TabStrip*>(self)->Handle(message, wParam, lParam); });
}

}  // namespace deck
