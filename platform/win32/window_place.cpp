#include "platform/win32/window_place.h"

namespace deck {
namespace {

MONITORINFO MonitorNear(const RECT& place) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

}  // namespace

RECT NormalPlaceOf(HWND window) {
  if (!IsIconic(window) && !IsZoomed(window)) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
  }
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  RECT place = placement.rcNormalPosition;
  // The system counts this one from the corner of the area that the task bar leaves.
  const MONITORINFO monitor = MonitorNear(place);
  OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left,
             monitor.rcWork.top - monitor.rcMonitor.top);
  return place;
}

RECT WorkAreaNear(const RECT& place) {
  return MonitorNear(place).rcWork;
}

bool IsOnAMonitor(const RECT& place) {
  return MonitorFromRect(&place, MONITOR_DEFAULTTONULL) != nullptr;
}

}  // namespace deck
