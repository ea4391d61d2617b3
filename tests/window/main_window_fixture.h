// The real main window with its events written down as lines, driven by the messages that the
// system would send.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/win32/main_window.h"
#include "documents/layout.h"
#include "platform/control_ids.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"

namespace deck {

// For messages of failed tests.
inline std::string Narrow(std::u16string_view text) {
  std::string narrow;
  for (const char16_t character : text) {
    narrow += character < 0x80 ? static_cast<char>(character) : '?';
  }
  return narrow;
}

class MainWindowFixture : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    OleInitialize(nullptr);
    const INITCOMMONCONTROLSEX controls = {
        sizeof controls, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
  }
  static void TearDownTestSuite() { OleUninitialize(); }

  MainWindowFixture() {
    // Out of the way of the places that the tests point at.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    loop.SetShortcuts(window.Handle(), window.Shortcuts());
    WriteDownWindowEvents();
    WriteDownMacroPanelEvents();
  }
  ~MainWindowFixture() override {
    window.events = {};
    window.MacroPanel().events = {};
    // An order to quit would end the pumps of the next test.
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }

  // Shown in the normal state with 900 x 600 pixels at 96 dpi.
  void ShowWindowed() {
    window.Place({750, 750, 13500, 9000, WindowState::kNormal});
    window.Show();
    loop.Pump();
    events.clear();
  }

  HWND Control(ControlId id, HWND parent = nullptr) const {
    return GetDlgItem(parent != nullptr ? parent : window.Handle(), static_cast<int>(id));
  }
  HWND Tabs() const { return Control(ControlId::kTabStrip1); }
  HWND Status() const { return Control(ControlId::kStatusBar1); }
  HWND Frame() const { return Control(ControlId::kFrameMacros); }
  HWND Headings() const { return Control(ControlId::kCombo1, Frame()); }
  HWND Macros() const { return Control(ControlId::kList1, Frame()); }

  // In client coordinates of the main window.
  Rectangle PlaceOf(HWND control) const {
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
  }

  // What is to be seen of a control, row by row.
  static std::vector<COLORREF> Pixels(HWND control) {
    RECT client{};
    GetClientRect(control, &client);
    BITMAPINFO format{};
    format.bmiHeader = {
        sizeof format.bmiHeader, client.right, client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const BitmapHandle bitmap(
        CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    const DeviceContextHandle copy(CreateCompatibleDC(nullptr));
    const HGDIOBJ old = SelectObject(copy.Get(), bitmap.Get());
    const HDC shown = GetDC(control);
    BitBlt(copy.Get(), 0, 0, client.right, client.bottom, shown, 0, 0, SRCCOPY);
    ReleaseDC(control, shown);
    GdiFlush();
    const auto* pixels = static_cast<const COLORREF*>(bits);
    std::vector<COLORREF> result(pixels, pixels + client.right * client.bottom);
    SelectObject(copy.Get(), old);
    return result;
  }

  static void PaintAgain(HWND control) {
    RedrawWindow(control, nullptr, nullptr,
                 RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  }

  static void Mouse(HWND control, UINT message, POINT where, WPARAM keys = 0) {
    SendMessageW(control, message, keys, MAKELPARAM(where.x, where.y));
  }
  static void Click(HWND control, POINT where) {
    Mouse(control, WM_LBUTTONDOWN, where, MK_LBUTTON);
    Mouse(control, WM_LBUTTONUP, where);
  }

  // Whether an event was written down, letter for letter.
  bool Happened(const std::string& event) const {
    return std::find(events.begin(), events.end(), event) != events.end();
  }

  // Pumps until the condition holds; false after five seconds.
  template <class Condition>
  bool WaitFor(Condition condition) {
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
      if (GetTickCount64() - start > 5000) return false;
      loop.Pump();
    }
    return true;
  }

  MainWindow window;
  MessageLoop loop;
  std::vector<std::string> events;
  bool mayClose = true;
  std::u16string textToDrag;  // what a drag out of the macros would carry

 private:
  void Add(const std::string& event) { events.push_back(event); }
  void Add(const std::string& event, int number) { Add(event + ' ' + std::to_string(number)); }

  void WriteDownWindowEvents() {
    MainWindow::Events& e = window.events;
    e.execute = [this](CommandId command) { Add("execute", static_cast<int>(command)); };
    e.menuOpening = [this](Menu menu) { Add("menu", static_cast<int>(menu)); };
    e.tabClicked = [this](int position) { Add("tab clicked", position); };
    e.tabMiddleClicked = [this](int position) { Add("tab middle-clicked", position); };
    e.tabHovered = [this](int position) { Add("tab hovered", position); };
    e.statusBarHovered = [this] { Add("status bar hovered"); };
    e.toolbarHovered = [this](CommandId command) {
      Add("toolbar hovered", static_cast<int>(command));
    };
    e.filesDropped = [this](const std::vector<std::u16string>& paths) {
      for (const std::u16string& path : paths) Add("dropped " + Narrow(path));
    };
    e.timer = [this](TimerId timer) { Add("timer", static_cast<int>(timer)); };
    e.focused = [this] { Add("focused"); };
    e.keysAndClock = [this](bool, const std::u16string& clock) { Add("clock " + Narrow(clock)); };
    e.minimised = [this](bool minimised) { Add(minimised ? "minimised" : "not minimised"); };
    e.lookedAt = [this](bool lookedAt) { Add(lookedAt ? "looked at" : "not looked at"); };
    e.queryUnload = [this] {
      Add("may it close?");
      return mayClose;
    };
    e.unload = [this] { Add("unload"); };
  }

  void WriteDownMacroPanelEvents() {
    MacroPanelWindow::Events& e = window.MacroPanel().events;
    e.headingChosen = [this](int index) { Add("heading", index); };
    e.headingPointer = [this] { Add("heading pointer"); };
    e.macroClicked = [this](int index) { Add("macro clicked", index); };
    e.macroDoubleClicked = [this](int index) { Add("macro double-clicked", index); };
    e.listKey = [this] { Add("list key"); };
    e.listPointer = [this] { Add("list pointer"); };
    e.dragStarted = [this](int index) {
      Add("drag", index);
      return textToDrag;
    };
    e.splitterDragged = [this](int width) { Add("splitter", width); };
  }
};

}  // namespace deck
