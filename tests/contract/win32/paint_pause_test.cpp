#include "platform/win32/paint_pause.h"

#include <gtest/gtest.h>

#include "platform/win32/handles.h"

namespace deck {
namespace {

constexpr int kSide = 200;

// A window with a child that fills its lower half; both count how often they
// paint.
class PaintPauseTest : public testing::Test {
 protected:
  PaintPauseTest() {
    ShowWindow(window_.Get(), SW_SHOWNA);
    PaintAll();
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
      SetWindowLongPtrW(window, GWLP_USERDATA, GetWindowLongPtrW(window, GWLP_USERDATA) + 1);
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }
  static HWND Make(HWND parent, RECT place) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"DeckPaintPauseTest";
    RegisterClassW(&description);
    return CreateWindowExW(0, description.lpszClassName, L"",
                           parent != nullptr ? WS_CHILD | WS_VISIBLE : WS_POPUP, place.left,
                           place.top, place.right - place.left, place.bottom - place.top, parent,
                           nullptr, description.hInstance, nullptr);
  }
  static LONG_PTR Paints(HWND window) { return GetWindowLongPtrW(window, GWLP_USERDATA); }
  static RECT StillToPaint(HWND window) {
    RECT area{};
    GetUpdateRect(window, &area, FALSE);
    return area;
  }
  static bool IsWhole(const RECT& area, HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return EqualRect(&area, &client) != 0;
  }
  void PaintAll() {
    RedrawWindow(window_.Get(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }

  const WindowHandle window_{Make(nullptr, {0, 0, kSide, kSide})};
  const HWND child_ = Make(window_.Get(), {0, kSide / 2, kSide, kSide});
};

TEST_F(PaintPauseTest, NothingIsPaintedWhileItLasts) {
  const PaintPause pause(window_.Get());
  InvalidateRect(window_.Get(), nullptr, TRUE);
  PaintAll();
  EXPECT_EQ(Paints(window_.Get()), 1);
}

TEST_F(PaintPauseTest, AfterwardsTheWholeWindowAndAllInItIsPainted) {
  const LONG_PTR childBefore = Paints(child_);
  { const PaintPause pause(window_.Get()); }
  EXPECT_TRUE(IsWindowVisible(window_.Get()));
  EXPECT_TRUE(IsWhole(StillToPaint(child_), child_));
  EXPECT_EQ(StillToPaint(window_.Get()).top, 0);
  EXPECT_EQ(StillToPaint(window_.Get()).right, kSide);
  PaintAll();
  EXPECT_EQ(Paints(window_.Get()), 2);
  EXPECT_EQ(Paints(child_), childBefore + 1);
  const RECT left = StillToPaint(window_.Get());
  EXPECT_TRUE(IsRectEmpty(&left));
}

TEST_F(PaintPauseTest, WhatIsShownChangesOnlyAtTheEndOfTheOutermostPause) {
  {
    const PaintPause outer(window_.Get());
    { const PaintPause inner(window_.Get()); }
    PaintAll();
    EXPECT_EQ(Paints(window_.Get()), 1);
  }
  PaintAll();
  EXPECT_EQ(Paints(window_.Get()), 2);
}

TEST_F(PaintPauseTest, AnAreaIsAllThatIsPaintedAgain) {
  const RECT area{10, 20, 50, 60};
  { const PaintPause pause(window_.Get(), area); }
  const RECT left = StillToPaint(window_.Get());
  EXPECT_TRUE(EqualRect(&left, &area));
  const RECT ofChild = StillToPaint(child_);
  EXPECT_TRUE(IsRectEmpty(&ofChild));
}

TEST_F(PaintPauseTest, HiddenWindowStaysHidden) {
  ShowWindow(window_.Get(), SW_HIDE);
  { const PaintPause pause(window_.Get()); }
  { const PaintPause pause(window_.Get(), RECT{0, 0, 10, 10}); }
  EXPECT_FALSE(IsWindowVisible(window_.Get()));
  EXPECT_FALSE((GetWindowLongPtrW(window_.Get(), GWL_STYLE) & WS_VISIBLE) != 0);
}

}  // namespace
}  // namespace deck
