#include "platform/win32/tool_tips.h"

#include <commctrl.h>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

TTTOOLINFOW ToolOf(HWND owner, UINT_PTR area) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // the newest one that every version of the control takes
  tool.hwnd = owner;
  tool.uId = area;
  return tool;
}

LPARAM Pointer(TTTOOLINFOW& tool) {
  return reinterpret_cast<LPARAM>(&tool);
}

}  // namespace

ToolTips::ToolTips(HWND owner)
    : owner_(owner),
      tips_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                            WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, owner, nullptr,
                            GetModuleHandleW(nullptr), nullptr)) {}

void ToolTips::Set(UINT_PTR area, const RECT& where, const std::u16string& text) {
  Tip& tip = shown_[area];
  if (tip.text == text && (text.empty() || EqualRect(&tip.where, &where))) return;
  TTTOOLINFOW tool = ToolOf(owner_, area);
  if (!tip.text.empty()) SendMessageW(tips_, TTM_DELTOOLW, 0, Pointer(tool));
  tip = {where, text};
  if (text.empty()) return;
  tool.rect = where;
  tool.lpszText = MutableWide(tip.text);
  SendMessageW(tips_, TTM_ADDTOOLW, 0, Pointer(tool));
}

void ToolTips::Relay(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (message < WM_MOUSEFIRST || message > WM_MOUSELAST) return;
  MSG relayed{};
  relayed.hwnd = owner_;
  relayed.message = message;
  relayed.wParam = wParam;
  relayed.lParam = lParam;
  SendMessageW(tips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace deck
