#include "app/win32/tab_strip.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/control_ids.h"
#include "platform/strings.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/subclass.h"
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

}  // namespace

TabStrip::TabStrip(HWND parent, Events events)
    : window_(CreateWindowExW(
          0, WC_TABCONTROLW, L"TabStrip1", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FOCUSNEVER,
          0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId::kTabStrip1)),
          GetModuleHandleW(nullptr), nullptr)),
      events_(std::move(events)),
      tips_(window_) {
  Subclass<&TabStrip::OnMessage>(window_, this);
  SetAccessibleName(window_, L"Open files");
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
  ShowToolTipOf(0);
  std::u16string shown = DoubleAmpersands(caption);
  TCITEMW item = ItemWith(shown);
  SendMessageW(window_, TCM_INSERTITEMW, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&item));
}

void TabStrip::Remove(int position) {
  if (position < 1 || position > static_cast<int>(toolTips_.size())) return;
  toolTips_.erase(toolTips_.begin() + position - 1);
  SendMessageW(window_, TCM_DELETEITEM, static_cast<WPARAM>(position - 1), 0);
  ShowToolTipOf(0);
}

void TabStrip::Set(int position, const std::u16string& caption, const std::u16string& toolTip) {
  if (position < 1 || position > static_cast<int>(toolTips_.size())) return;
  toolTips_[static_cast<std::size_t>(position - 1)] = toolTip;
  ShowToolTipOf(0);
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
  return false;
}

int TabStrip::PositionAt(LPARAM point) const {
  TCHITTESTINFO test{};
  test.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  return static_cast<int>(SendMessageW(window_, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&test))) +
         1;
}

// The control's own tool tips never show under Wine, which does not tell them where the tabs are.
// The tip of the next tab pointed at takes the place of this one.
void TabStrip::ShowToolTipOf(int position) {
  if (std::exchange(pointed_, position) == position) return;
  RECT tab{};
  std::u16string text;
  if (position > 0) {
    SendMessageW(window_, TCM_GETITEMRECT, static_cast<WPARAM>(position - 1),
                 reinterpret_cast<LPARAM>(&tab));
    text = toolTips_[static_cast<std::size_t>(position - 1)];
  }
  tips_.Set(0, tab, text);
}

LRESULT TabStrip::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE:
      ShowToolTipOf(PositionAt(lParam));
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
  tips_.Relay(message, wParam, lParam);
  return CallSubclassed(window, message, wParam, lParam);
}

}  // namespace deck
