#include "platform/win32/dpi.h"

#include <initializer_list>

namespace deck {
namespace {

constexpr int kBaseDpi = 96;
constexpr int kEffectiveDpi = 0;  // MDT_EFFECTIVE_DPI

// The function, or null on systems without it. The libraries are those that every program has, or
// one of the system's folder; they stay loaded.
template <class Function>
Function* Find(const wchar_t* library, const char* name) {
  HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) {
    module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  }
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

template <class Function>
Function* FindInUser(const char* name) {
  return Find<Function>(L"user32.dll", name);
}

int DpiOfScreen() {
  const HDC screen = GetDC(nullptr);
  const int dpi = screen == nullptr ? 0 : GetDeviceCaps(screen, LOGPIXELSY);
  if (screen != nullptr) ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kBaseDpi;
}

// Windows 8.1 knows the resolution of monitors, but not yet of windows.
int DpiOfMonitor(HMONITOR monitor) {
  static const auto get =
      Find<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)>(L"shcore.dll", "GetDpiForMonitor");
  UINT horizontal = 0;
  UINT vertical = 0;
  if (get == nullptr || FAILED(get(monitor, kEffectiveDpi, &horizontal, &vertical))) return 0;
  return static_cast<int>(vertical);
}

NONCLIENTMETRICSW FontsOfSystem(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  static const auto get =
      FindInUser<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
  if (get != nullptr &&
      get(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
    return metrics;
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const int screen = DpiOfScreen();
  for (LOGFONTW* font : {&metrics.lfMessageFont, &metrics.lfStatusFont}) {
    font->lfHeight = MulDiv(font->lfHeight, dpi, screen);
  }
  return metrics;
}

}  // namespace

int DpiOf(HWND window) {
  static const auto get = FindInUser<UINT WINAPI(HWND)>("GetDpiForWindow");
  int dpi = 0;
  if (get != nullptr) {
    dpi = static_cast<int>(get(window));
  } else if (window != nullptr) {
    dpi = DpiOfMonitor(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
  }
  return dpi > 0 ? dpi : DpiOfScreen();
}

int DpiAt(const RECT& place) {
  const int dpi = DpiOfMonitor(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
  return dpi > 0 ? dpi : DpiOfScreen();
}

LOGFONTW MessageFont(int dpi) {
  return FontsOfSystem(dpi).lfMessageFont;
}

LOGFONTW StatusFont(int dpi) {
  return FontsOfSystem(dpi).lfStatusFont;
}

int SystemMetric(int metric, int dpi) {
  static const auto get = FindInUser<int WINAPI(int, UINT)>("GetSystemMetricsForDpi");
  if (get != nullptr) return get(metric, static_cast<UINT>(dpi));
  return MulDiv(GetSystemMetrics(metric), dpi, DpiOfScreen());
}

void ScaleFrameWithDpi(HWND window) {
  static const auto scale = FindInUser<BOOL WINAPI(HWND)>("EnableNonClientDpiScaling");
  if (scale != nullptr) scale(window);
}

}  // namespace deck
