#include "platform/win32/tool_tips.h"

#include <commctrl.h>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

TTTOOLINFOW ToolOf(HWND owner, UINT_PTR area) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // the newest one that every version of the control takes
  tool.uFlags = TTF_SUBCLASS;
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
  TTTOOLINFOW tool = ToolOf(owner_, area);
  SendMessageW(tips_, TTM_DELTOOLW, 0, Pointer(tool));
  if (text.empty()) return;
  std::u16string shown = text;
  tool.rect = where;
  tool.lpszText = MutableWide(shown);
  SendMessageW(tips_, TTM_ADDTOOLW, 0, Pointer(tool));
}

}  // namespace deck
