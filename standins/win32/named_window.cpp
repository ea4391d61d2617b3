#include "standins/win32/named_window.h"

namespace deck {
namespace {

constexpr wchar_t kClassName[] = L"WrenDeckStandIn";
constexpr int kWidth = 380;
constexpr int kHeight = 140;
constexpr int kMargin = 16;
constexpr int kLabel = 1;

void PlaceLabel(HWND window, int width, int height) noexcept {
  MoveWindow(GetDlgItem(window, kLabel), kMargin, kMargin, width - 2 * kMargin,
             height - 2 * kMargin, TRUE);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept {
  switch (message) {
    case WM_SIZE:
      PlaceLabel(window, LOWORD(second), HIWORD(second));
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

bool RegisterWindow(HINSTANCE instance) {
  WNDCLASSW kind{};
  kind.lpfnWndProc = WindowProcedure;
  kind.hInstance = instance;
  kind.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = kClassName;
  return RegisterClassW(&kind) != 0;
}

void AddLabel(HWND window, HINSTANCE instance, const std::wstring& line) {
  HWND label =
      CreateWindowExW(0, L"STATIC", line.c_str(), WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 0, 0, 0, 0,
                      window, reinterpret_cast<HMENU>(INT_PTR{kLabel}), instance, nullptr);
  SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
}

int RunMessageLoop() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace

int ShowNamedWindow(HINSTANCE instance, const std::wstring& title, const std::wstring& line,
                    int show) {
  if (!RegisterWindow(instance)) return 1;
  HWND window =
      CreateWindowExW(0, kClassName, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                      CW_USEDEFAULT, kWidth, kHeight, nullptr, nullptr, instance, nullptr);
  if (!window) return 1;
  AddLabel(window, instance, line);
  RECT client{};
  GetClientRect(window, &client);
  PlaceLabel(window, client.right, client.bottom);
  ShowWindow(window, show);
  return RunMessageLoop();
}

}  // namespace deck
