#include "platform/win32/window_place.h"

#include "platform/twips.h"
#include "platform/win32/dpi.h"

namespace deck {
namespace {

MONITORINFO InfoOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  return info;
}

MONITORINFO MonitorNear(const RECT& place) {
  return InfoOf(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
}

Rectangle PixelsOf(const WindowPlacement& twips, int dpi) {
  return {PixelsFromTwips(twips.left, dpi), PixelsFromTwips(twips.top, dpi),
          PixelsFromTwips(twips.width, dpi), PixelsFromTwips(twips.height, dpi)};
}

Rectangle OntoAMonitor(const Rectangle& place) {
  const RECT rect = ToRect(place);
  const bool isOnOne = MonitorFromRect(&rect, MONITOR_DEFAULTTONULL) != nullptr;
  return isOnOne ? place : MovedInto(place, WorkAreaAt(place));
}

}  // namespace

Rectangle FromRect(const RECT& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

RECT ToRect(const Rectangle& rectangle) {
  return {rectangle.left, rectangle.top, rectangle.right(), rectangle.bottom()};
}

Rectangle PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return FromRect(place);
}

void MoveTo(HWND window, const Rectangle& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

Rectangle NormalPlaceOf(HWND window) {
  if (!IsIconic(window) && !IsZoomed(window)) return PlaceOf(window);
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  RECT place = placement.rcNormalPosition;
  // The system counts this one from the corner of the area that the task bar leaves.
  const MONITORINFO monitor = MonitorNear(place);
  OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left,
             monitor.rcWork.top - monitor.rcMonitor.top);
  return FromRect(place);
}

Rectangle MonitorAt(HWND window) {
  return FromRect(InfoOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)).rcMonitor);
}

Rectangle WorkAreaAt(const Rectangle& place) {
  return FromRect(MonitorNear(ToRect(place)).rcWork);
}

Rectangle PlaceOnAMonitor(const WindowPlacement& twips, int dpi) {
  const Rectangle guess = OntoAMonitor(PixelsOf(twips, dpi));
  return OntoAMonitor(PixelsOf(twips, DpiAt(ToRect(guess))));
}

}  // namespace deck
