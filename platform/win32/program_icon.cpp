#include "platform/win32/program_icon.h"

#include <utility>

#include "platform/win32/dpi.h"

namespace deck {
namespace {

IconHandle LoadImageOfSize(int widthMetric, int heightMetric, int dpi) {
  return IconHandle(static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kProgramIcon), IMAGE_ICON,
                 SystemMetric(widthMetric, dpi), SystemMetric(heightMetric, dpi), 0)));
}

}  // namespace

void FrameIcons::Set(HWND window, int dpi) {
  IconHandle large = LoadImageOfSize(SM_CXICON, SM_CYICON, dpi);
  IconHandle small = LoadImageOfSize(SM_CXSMICON, SM_CYSMICON, dpi);
  SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large.Get()));
  SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  // Only now are the old ones out of use.
  large_ = std::move(large);
  small_ = std::move(small);
}

}  // namespace deck
