#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "tests/window/dark_colours.h"
#include "tests/window/key_test/key_test_fixture.h"

namespace deck {
namespace {

bool IsInMenu() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) &&
         (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE)) != 0;
}

// Leaves every menu that opens, which would keep the test waiting for a user, and counts them.
class MenuWatch {
 public:
  MenuWatch() : timer_(SetTimer(nullptr, 0, 50, Tick)) { opened_ = 0; }
  ~MenuWatch() { KillTimer(nullptr, timer_); }
  MenuWatch(const MenuWatch&) = delete;
  MenuWatch& operator=(const MenuWatch&) = delete;

  int Opened() const { return opened_; }

 private:
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (!IsInMenu()) return;
    ++opened_;
    EndMenu();
  }

  inline static int opened_ = 0;
  UINT_PTR timer_;
};

class KeyTestFormTest : public KeyTestWindowFixture {};

TEST_F(KeyTestFormTest, LogsControlAndALetter) {
  Open();
  Press({VK_CONTROL, 'A'});
  Settle();
  EXPECT_EQ(EventLines(), u"Down: CTL\r\nDown: a\r\nUp: a\r\nUp: CTL\r\n");
  EXPECT_EQ(NameLines(), u"Ctrl a\r\n");
}

TEST_F(KeyTestFormTest, LogsTypedCharactersWithoutANameInTheTable) {
  Open();
  Press({'A'});
  Press({VK_SPACE});
  Settle();
  EXPECT_EQ(EventLines(), u"Down: a\r\nUp: a\r\nDown: 32\r\nUp: 32\r\n");
  EXPECT_EQ(NameLines(), u" a\r\n  \r\n");
}

TEST_F(KeyTestFormTest, LogsTheKeysThatDialogsAndEditBoxesActOn) {
  Open();
  loop.AddDialog(form.Handle());
  for (const int key : {VK_TAB, VK_RETURN, VK_ESCAPE, VK_BACK, VK_DELETE}) {
    Press({static_cast<WORD>(key)});
  }
  Settle();
  loop.RemoveDialog(form.Handle());
  EXPECT_EQ(EventLines(),
            u"Down: TAB\r\nUp: TAB\r\nDown: ENT\r\nUp: ENT\r\nDown: ESC\r\nUp: ESC\r\n"
            u"Down: 8\r\nUp: 8\r\nDown: 46\r\nUp: 46\r\n");
  EXPECT_EQ(NameLines(), u"TAB\r\nENT\r\nESC\r\n");
  EXPECT_TRUE(presenter.IsOpen());
  EXPECT_EQ(GetFocus(), Names());
}

TEST_F(KeyTestFormTest, ShortcutsDoNotAct) {
  Open();
  ACCEL shortcut{FVIRTKEY, VK_F5, static_cast<WORD>(KeyTestCommand::kClose)};
  const AcceleratorsHandle shortcuts(CreateAcceleratorTableW(&shortcut, 1));
  loop.SetShortcuts(form.Handle(), shortcuts.Get());
  Press({VK_F5});
  Settle();
  loop.SetShortcuts(nullptr, nullptr);
  EXPECT_TRUE(presenter.IsOpen());
  EXPECT_EQ(EventLines(), u"Down: F5\r\nUp: F5\r\n");
}

TEST_F(KeyTestFormTest, NoKeyOpensAMenu) {
  Open();
  const MenuWatch menus;
  Press({VK_MENU});
  Settle();
  Press({VK_F10});
  Settle();
  Press({VK_SHIFT, VK_F10});
  Settle();
  Press({VK_APPS});
  Settle();
  Press({VK_MENU, 'F'});
  Settle();
  Press({VK_MENU, VK_SPACE});
  Settle();
  EXPECT_EQ(menus.Opened(), 0);
  EXPECT_EQ(EventLines(),
            u"Down: ALT\r\nUp: ALT\r\nDown: F10\r\nUp: F10\r\n"
            u"Down: SHF\r\nDown: F10\r\nUp: F10\r\nUp: SHF\r\nDown: APPS\r\nUp: APPS\r\n"
            u"Down: ALT\r\nDown: f\r\nUp: f\r\nUp: ALT\r\n"
            u"Down: ALT\r\nDown: 32\r\nUp: 32\r\nUp: ALT\r\n");
  EXPECT_EQ(NameLines(), u"F10\r\nShift F10\r\nAPPS\r\nAlt f\r\nAlt  \r\n");
}

TEST_F(KeyTestFormTest, TheMenuKeysOpenNoMenuAlsoWhereTheyAreNotInTheTable) {
  files.AddFile(u"C:\\Host\\KeyCodes.txt", "");
  Open();
  const MenuWatch menus;
  Press({VK_F10});
  Settle();
  Press({VK_MENU});
  Settle();
  EXPECT_EQ(menus.Opened(), 0);
  EXPECT_EQ(EventLines(), u"Down: 121\r\nUp: 121\r\nDown: ALT\r\nUp: ALT\r\n");
}

TEST_F(KeyTestFormTest, AltAndF4Closes) {
  Open();
  Press({VK_MENU, VK_F4});
  EXPECT_TRUE(WaitFor([this] { return !presenter.IsOpen(); }));
  EXPECT_EQ(form.Handle(), nullptr);
}

TEST_F(KeyTestFormTest, AltGrIsLoggedAsControlAndAlt) {
  Open();
  Down(VK_LCONTROL);
  Down(VK_RMENU, true);
  Press({'Q'});
  Up(VK_LCONTROL);
  Up(VK_RMENU, true);
  Settle();
  EXPECT_EQ(EventLines(), u"Down: CTL\r\nDown: ALT\r\nDown: q\r\nUp: q\r\nUp: CTL\r\nUp: ALT\r\n");
  EXPECT_EQ(NameLines(), u"Ctrl Alt q\r\n");
}

TEST_F(KeyTestFormTest, BothKeysOfAModifierAreTheSameKey) {
  Open();
  Down(VK_RCONTROL, true);
  Up(VK_RCONTROL, true);
  Down(VK_RSHIFT);
  Up(VK_RSHIFT);
  Down(VK_LMENU);
  Up(VK_LMENU);
  Settle();
  EXPECT_EQ(EventLines(),
            u"Down: CTL\r\nUp: CTL\r\nDown: SHF\r\nUp: SHF\r\nDown: ALT\r\nUp: ALT\r\n");
}

TEST_F(KeyTestFormTest, ExtendedKeysHaveTheNameOfTheirCode) {
  Open();
  Down(VK_LEFT, true);
  Up(VK_LEFT, true);
  Down(VK_RETURN, true);  // of the keypad
  Up(VK_RETURN, true);
  Settle();
  EXPECT_EQ(EventLines(), u"Down: LARROW\r\nUp: LARROW\r\nDown: ENT\r\nUp: ENT\r\n");
}

TEST_F(KeyTestFormTest, AHeldKeyIsLoggedAtEachRepeat) {
  Open();
  for (int repeat = 0; repeat < 3; ++repeat) Down('A');
  Up('A');
  Settle();
  EXPECT_EQ(EventLines(), u"Down: a\r\nDown: a\r\nDown: a\r\nUp: a\r\n");
  EXPECT_EQ(NameLines(), u" a\r\n a\r\n a\r\n");
}

TEST_F(KeyTestFormTest, AKeyThatOnlyComesUpIsLogged) {
  Open();
  PostMessageW(Names(), WM_KEYUP, VK_SNAPSHOT, static_cast<LPARAM>(0xC0000001));
  Settle();
  EXPECT_EQ(EventLines(), u"Up: PRTSC\r\n");
}

TEST_F(KeyTestFormTest, HelpIsNotCalled) {
  Open();
  Press({VK_F1});
  SendMessageW(form.Handle(), WM_HELP, 0, 0);
  Settle();
  EXPECT_EQ(EventLines(), u"Down: F1\r\nUp: F1\r\n");
  EXPECT_EQ(NameLines(), u"F1\r\n");
}

TEST_F(KeyTestFormTest, CapsLockIsOffAgainAfterEachPress) {
  Open();
  // Twice: what the form turns off is its own view of the key. The system's, from which other
  // windows take theirs, is left as it was only by a second press.
  std::u16string lines;
  for (int press = 0; press < 2; ++press) {
    Press({VK_CAPITAL});
    Settle();
    EXPECT_FALSE(keyboard.IsOn(ToggleKey::kCapsLock));
    EXPECT_EQ(EventLines(), lines += u"Down: 20\r\nUp: 20\r\n");
  }
}

TEST_F(KeyTestFormTest, TheNumLockLampFollowsItsKey) {
  Open();
  const auto isLit = [this] {
    const HDC context = GetDC(nullptr);
    SendMessageW(form.Handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                 reinterpret_cast<LPARAM>(Control(ControlId::kLabelNUMLOCK)));
    const COLORREF colour = GetBkColor(context);
    ReleaseDC(nullptr, context);
    return colour == 0x80C0FF;
  };
  const bool before = keyboard.IsOn(ToggleKey::kNumLock);
  EXPECT_EQ(isLit(), before);
  Press({VK_NUMLOCK});
  Settle();
  EXPECT_EQ(isLit(), !before);
  Press({VK_NUMLOCK});
  Settle();
  EXPECT_EQ(isLit(), before);
}

TEST_F(KeyTestFormTest, LampsGoOutWhenAnotherWindowTakesTheKeyboard) {
  const WindowHandle other(CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW, 0, 0, 200,
                                           100, nullptr, nullptr, GetModuleHandleW(nullptr),
                                           nullptr));
  Open();
  const auto isLit = [this] {
    const HDC context = GetDC(nullptr);
    SendMessageW(form.Handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                 reinterpret_cast<LPARAM>(Control(ControlId::kLabelSHIFT)));
    const COLORREF colour = GetBkColor(context);
    ReleaseDC(nullptr, context);
    return colour == 0x80C0FF;
  };
  Down(VK_SHIFT);
  ASSERT_TRUE(WaitFor(isLit));
  ShowWindow(other.Get(), SW_SHOW);
  SetForegroundWindow(other.Get());
  EXPECT_TRUE(WaitFor([&] { return !isLit(); }));
  Up(VK_SHIFT);
  Settle();
  SetForegroundWindow(form.Handle());
  Settle();
  EXPECT_FALSE(isLit());
  EXPECT_EQ(EventLines(), u"Down: SHF\r\n");
}

// A message box of the main window runs a loop of the system's, which knows no filters.
TEST_F(KeyTestFormTest, KeysAreLoggedInEveryMessageLoop) {
  Open();
  const MenuWatch menus;
  Press({VK_MENU});
  Press({VK_F10});
  Press({'A'});
  const ULONGLONG end = GetTickCount64() + 1000;
  MSG message{};
  while (GetTickCount64() < end) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    Sleep(1);
  }
  EXPECT_EQ(EventLines(), u"Down: ALT\r\nUp: ALT\r\nDown: F10\r\nUp: F10\r\nDown: a\r\nUp: a\r\n");
  EXPECT_EQ(NameLines(), u"F10\r\n a\r\n");
  EXPECT_EQ(menus.Opened(), 0);
}

TEST_F(KeyTestFormTest, AClickIntoTheLogLeavesTheKeyboardWithTheNames) {
  Open();
  Press({VK_F5});
  Settle();
  SendMessageW(Events(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 2));
  SendMessageW(Events(), WM_LBUTTONUP, 0, MAKELPARAM(10, 2));
  EXPECT_EQ(GetFocus(), Names());
  Press({VK_DELETE});
  Settle();
  EXPECT_EQ(EventLines(), u"Down: F5\r\nUp: F5\r\nDown: 46\r\nUp: 46\r\n");
}

TEST_F(KeyTestFormTest, TheTextOfABoxIsItsLog) {
  Open();
  Press({VK_F5});
  Settle();
  wchar_t text[64] = L"";
  EXPECT_EQ(GetWindowTextLengthW(Events()), 18);
  EXPECT_EQ(SendMessageW(Events(), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(text)), 18);
  EXPECT_STREQ(text, L"Down: F5\r\nUp: F5\r\n");
  EXPECT_EQ(SendMessageW(Events(), WM_GETTEXT, 5, reinterpret_cast<LPARAM>(text)), 4);
  EXPECT_STREQ(text, L"Down");
  EXPECT_EQ(SendMessageW(Events(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"x")), FALSE);
  EXPECT_EQ(EventLines(), u"Down: F5\r\nUp: F5\r\n");
}

// ---- Drawing and scrolling.

// Pixels of exactly this colour.
int CountPixels(HWND window, COLORREF colour) {
  RECT client{};
  GetClientRect(window, &client);
  const HDC context = GetDC(window);
  int count = 0;
  for (int y = 0; y < std::min<int>(client.bottom, 60); ++y) {
    for (int x = 0; x < std::min<int>(client.right, 60); ++x) {
      count += GetPixel(context, x, y) == colour ? 1 : 0;
    }
  }
  ReleaseDC(window, context);
  return count;
}

SCROLLINFO ScrollOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return info;
}

constexpr COLORREF kBlue = 0xFF0000;

TEST_F(KeyTestFormTest, EventsAreDrawnInBlueAndNamesInTheColourOfText) {
  Open();
  EXPECT_EQ(CountPixels(Events(), kBlue), 0);
  Press({VK_F5});
  Settle();
  EXPECT_GT(CountPixels(Events(), kBlue), 0);
  EXPECT_EQ(CountPixels(Names(), kBlue), 0);
  EXPECT_GT(CountPixels(Names(), GetSysColor(COLOR_WINDOWTEXT)), 0);
  form.Clear(KeyBox::kEvents);
  Settle();
  EXPECT_EQ(CountPixels(Events(), kBlue), 0);
}

TEST_F(KeyTestFormTest, EventsAreBrighterOnADarkGround) {
  const DarkColours dark;
  Open();
  Press({VK_F5});
  Settle();
  EXPECT_EQ(CountPixels(Events(), kBlue), 0);
  EXPECT_GT(CountPixels(Events(), RGB(115, 115, 242)), 0);
}

TEST_F(KeyTestFormTest, LinesThatCameWhileTheBoxWasHiddenAreDrawnWithIt) {
  Open();
  form.SetLook({.viewAll = false});
  Press({VK_F5});
  Settle();
  form.SetLook({.viewAll = true});
  Settle();
  EXPECT_GT(CountPixels(Events(), kBlue), 0);
}

TEST_F(KeyTestFormTest, SelectedLinesAreSeen) {
  Open();
  Press({VK_F5});
  Settle();
  const COLORREF selected = GetSysColor(COLOR_HIGHLIGHT);
  EXPECT_EQ(CountPixels(Names(), selected), 0);
  SendMessageW(Names(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 2));
  SendMessageW(Names(), WM_LBUTTONUP, 0, MAKELPARAM(10, 2));
  Settle();
  EXPECT_GT(CountPixels(Names(), selected), 0);
  EXPECT_EQ(form.SelectedText(KeyBox::kNames), u"F5\r\n");
  SendMessageW(Names(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 200));
  SendMessageW(Names(), WM_LBUTTONUP, 0, MAKELPARAM(10, 200));
  Settle();
  EXPECT_EQ(form.SelectedText(KeyBox::kNames), u"");
}

TEST_F(KeyTestFormTest, TheNewestLineIsAlwaysInView) {
  Open();
  for (int line = 0; line < 500; ++line) form.Append(KeyBox::kEvents, u"line");
  Settle();
  SCROLLINFO scroll = ScrollOf(Events(), SB_VERT);
  EXPECT_EQ(scroll.nMax, 499);
  EXPECT_EQ(scroll.nPos + static_cast<int>(scroll.nPage), 500);
  SendMessageW(Events(), WM_VSCROLL, SB_TOP, 0);
  Settle();
  EXPECT_EQ(ScrollOf(Events(), SB_VERT).nPos, 0);
  SendMessageW(Events(), WM_VSCROLL, SB_LINEUP, 0);
  SendMessageW(Events(), WM_VSCROLL, SB_PAGEDOWN, 0);
  Settle();
  EXPECT_GT(ScrollOf(Events(), SB_VERT).nPos, 0);
  form.Append(KeyBox::kEvents, u"newest");
  Settle();
  scroll = ScrollOf(Events(), SB_VERT);
  EXPECT_EQ(scroll.nPos + static_cast<int>(scroll.nPage), 501);
  form.Clear(KeyBox::kEvents);
  Settle();
  EXPECT_EQ(ScrollOf(Events(), SB_VERT).nPos, 0);
}

TEST_F(KeyTestFormTest, TheNewestLineStaysInViewAtEverySize) {
  Open();
  for (int line = 0; line < 500; ++line) form.Append(KeyBox::kEvents, u"line");
  Settle();
  RECT place{};
  GetWindowRect(form.Handle(), &place);
  const auto resize = [&](LONG taller) {
    SetWindowPos(form.Handle(), nullptr, 0, 0, place.right - place.left,
                 place.bottom - place.top + taller, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Settle();
    return ScrollOf(Events(), SB_VERT);
  };
  const UINT page = ScrollOf(Events(), SB_VERT).nPage;
  SCROLLINFO scroll = resize(100);
  EXPECT_GT(scroll.nPage, page);
  EXPECT_EQ(scroll.nPos + static_cast<int>(scroll.nPage), 500);
  scroll = resize(0);
  EXPECT_EQ(scroll.nPage, page);
  EXPECT_EQ(scroll.nPos + static_cast<int>(scroll.nPage), 500);
  SendMessageW(Events(), WM_VSCROLL, SB_TOP, 0);
  SendMessageW(Events(), WM_VSCROLL, SB_PAGEDOWN, 0);
  Settle();
  const int first = ScrollOf(Events(), SB_VERT).nPos;
  EXPECT_GT(first, 0);
  EXPECT_EQ(resize(100).nPos, first) << "what is read stays where it is";
  EXPECT_EQ(resize(0).nPos, first);
}

// The bar that comes with it takes the place of the last line.
TEST_F(KeyTestFormTest, ANewestLineThatIsTooLongIsInViewAboveItsScrollBar) {
  Open();
  for (int line = 0; line < 500; ++line) form.Append(KeyBox::kEvents, u"line");
  Settle();
  const UINT page = ScrollOf(Events(), SB_VERT).nPage;
  form.Append(KeyBox::kEvents, std::u16string(2000, u'x'));
  Settle();
  const SCROLLINFO scroll = ScrollOf(Events(), SB_VERT);
  EXPECT_LT(scroll.nPage, page);
  EXPECT_EQ(scroll.nPos + static_cast<int>(scroll.nPage), 501);
  EXPECT_NE(GetWindowLongPtrW(Events(), GWL_STYLE) & WS_HSCROLL, 0);
  form.Clear(KeyBox::kEvents);
  Settle();
  EXPECT_EQ(GetWindowLongPtrW(Events(), GWL_STYLE) & WS_HSCROLL, 0);
}

TEST_F(KeyTestFormTest, ScrollingPastAnEndBeforeItIsPaintedIsNotCounted) {
  Open();
  for (int line = 0; line < 500; ++line) form.Append(KeyBox::kEvents, std::u16string(2000, u'x'));
  Settle();
  const auto scroll = [this](UINT message, int past, int back) {
    for (int request = 0; request < 5; ++request) {
      SendMessageW(Events(), message, static_cast<WPARAM>(past), 0);
    }
    SendMessageW(Events(), message, static_cast<WPARAM>(back), 0);
    Settle();
    return ScrollOf(Events(), message == WM_VSCROLL ? SB_VERT : SB_HORZ);
  };
  SCROLLINFO place = scroll(WM_VSCROLL, SB_PAGEDOWN, SB_LINEUP);
  EXPECT_EQ(place.nPos, 500 - static_cast<int>(place.nPage) - 1);
  SendMessageW(Events(), WM_VSCROLL, SB_TOP, 0);
  place = scroll(WM_VSCROLL, SB_PAGEUP, SB_LINEDOWN);
  EXPECT_EQ(place.nPos, 1);
  const int step = scroll(WM_HSCROLL, SB_PAGELEFT, SB_LINERIGHT).nPos;
  EXPECT_GT(step, 0);
  place = scroll(WM_HSCROLL, SB_RIGHT, SB_LINELEFT);
  const int beforeLast = place.nPos;
  SendMessageW(Events(), WM_HSCROLL, SB_RIGHT, 0);
  Settle();
  EXPECT_EQ(ScrollOf(Events(), SB_HORZ).nPos, beforeLast + step);
}

TEST_F(KeyTestFormTest, LongLinesAreReachedSideways) {
  Open();
  form.Append(KeyBox::kNames, std::u16string(2000, u'x'));
  Settle();
  const SCROLLINFO scroll = ScrollOf(Names(), SB_HORZ);
  EXPECT_GT(scroll.nMax, static_cast<int>(scroll.nPage));
  SendMessageW(Names(), WM_HSCROLL, SB_RIGHT, 0);
  Settle();
  EXPECT_GT(ScrollOf(Names(), SB_HORZ).nPos, 0);
}

// ---- Size and place.

RECT InForm(HWND form, HWND control) {
  RECT rect{};
  GetWindowRect(control, &rect);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

TEST_F(KeyTestFormTest, EverySizeKeepsTheMargins) {
  Open();
  const int dpi = DpiOf(form.Handle());
  for (const SIZE size : {SIZE{900, 600}, SIZE{700, 420}, SIZE{1100, 800}}) {
    SetWindowPos(form.Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    Settle();
    RECT client{};
    GetClientRect(form.Handle(), &client);
    const RECT left = InForm(form.Handle(), Events());
    const RECT right = InForm(form.Handle(), Names());
    EXPECT_EQ(left.left, PixelsFromTwips(60, dpi));
    EXPECT_EQ(left.top, PixelsFromTwips(630, dpi));
    EXPECT_EQ(right.top, PixelsFromTwips(630, dpi));
    EXPECT_EQ(client.right - right.right, PixelsFromTwips(60, dpi));
    EXPECT_EQ(client.bottom - right.bottom, PixelsFromTwips(60, dpi));
    EXPECT_EQ(client.bottom - left.bottom, PixelsFromTwips(60, dpi));
  }
}

LONG FontHeightOf(HWND control) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font,
             &font);
  return font.lfHeight;
}

TEST_F(KeyTestFormTest, NewResolutionScalesFontsMarginsAndTheLeastSize) {
  Open();
  const HWND lamp = Control(ControlId::kLabelSHIFT);
  const LONG labelBefore = FontHeightOf(lamp);
  const LONG boxBefore = FontHeightOf(Names());
  for (const int dpi : {192, 144, 96}) {
    RECT suggested{40, 30, 1040, 730};
    SendMessageW(form.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&suggested));
    RECT place{};
    GetWindowRect(form.Handle(), &place);
    EXPECT_EQ(place.right - place.left, 1000) << dpi;
    EXPECT_EQ(place.bottom - place.top, 700) << dpi;
    EXPECT_NEAR(FontHeightOf(lamp), MulDiv(labelBefore, dpi, 96), 1) << dpi;
    EXPECT_NEAR(FontHeightOf(Names()), MulDiv(boxBefore, dpi, 96), 1) << dpi;
    RECT client{};
    GetClientRect(form.Handle(), &client);
    const RECT names = InForm(form.Handle(), Names());
    EXPECT_EQ(InForm(form.Handle(), Events()).left, PixelsFromTwips(60, dpi)) << dpi;
    EXPECT_GE(names.top, PixelsFromTwips(630, dpi)) << dpi;
    EXPECT_EQ(client.right - names.right, PixelsFromTwips(60, dpi)) << dpi;
    EXPECT_EQ(client.bottom - names.bottom, PixelsFromTwips(60, dpi)) << dpi;
    MINMAXINFO least{};
    SendMessageW(form.Handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&least));
    EXPECT_EQ(least.ptMinTrackSize.x, 480 * dpi / 96) << dpi;
  }
}

TEST_F(KeyTestFormTest, ThereIsALeastSize) {
  Open();
  SetWindowPos(form.Handle(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  RECT rect{};
  GetWindowRect(form.Handle(), &rect);
  EXPECT_GE(rect.right - rect.left, 480);
  EXPECT_GE(rect.bottom - rect.top, 240);
  const RECT names = InForm(form.Handle(), Names());
  EXPECT_GT(names.bottom - names.top, 50);
}

TEST_F(KeyTestFormTest, TheWarningIsNotCutAtTheLeastSize) {
  report.buttons = 0;
  Open();
  SetWindowPos(form.Handle(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  const HWND warning = Control(ControlId::kLblModeWarning);
  ASSERT_TRUE(IsWindowVisible(warning));
  wchar_t text[100] = L"";
  const int length = GetWindowTextW(warning, text, 100);
  const HDC context = GetDC(warning);
  const HGDIOBJ previous =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(warning, WM_GETFONT, 0, 0)));
  SIZE needed{};
  GetTextExtentPoint32W(context, text, length, &needed);
  SelectObject(context, previous);
  ReleaseDC(warning, context);
  const RECT room = InForm(form.Handle(), warning);
  EXPECT_LE(needed.cx, room.right - room.left);
  EXPECT_LE(needed.cy, room.bottom - room.top);
}

TEST_F(KeyTestFormTest, TheWindowComesBackWhereItWas) {
  SetSettings(
      u"KeyTopAtStartup=1200\r\nKeyLeftAtStartup=1500\r\nKeyWidthAtStartup=10500\r\n"
      u"KeyHeightAtStartup=7500\r\n");
  Open();
  RECT rect{};
  GetWindowRect(form.Handle(), &rect);
  const int dpi = DpiOf(form.Handle());
  EXPECT_EQ(rect.right - rect.left, PixelsFromTwips(10500, dpi));
  EXPECT_EQ(rect.bottom - rect.top, PixelsFromTwips(7500, dpi));
  ShowWindow(form.Handle(), SW_MAXIMIZE);
  Settle();
  presenter.Unload();
  EXPECT_EQ(profiles.Value(settings.HostPath, u"Key Tester", u"KeyWidthAtStartup"), u"10500");
  EXPECT_EQ(profiles.Value(settings.HostPath, u"Key Tester", u"KeyHeightAtStartup"), u"7500");
}

TEST_F(KeyTestFormTest, AWindowOutsideEveryMonitorIsMovedOntoOne) {
  SetSettings(u"KeyTopAtStartup=-900000\r\nKeyLeftAtStartup=900000\r\n");
  Open();
  EXPECT_NE(MonitorFromWindow(form.Handle(), MONITOR_DEFAULTTONULL), nullptr);
}

TEST_F(KeyTestFormTest, AMinimisedWindowIsRestoredByTheCommand) {
  Open();
  ShowWindow(form.Handle(), SW_MINIMIZE);
  Settle();
  presenter.Show();
  EXPECT_TRUE(WaitFor([this] { return !IsIconic(form.Handle()); }));
}

TEST_F(KeyTestFormTest, HidingTheMenusGivesTheBoxesTheirRoom) {
  Open();
  const RECT with = InForm(form.Handle(), Names());
  SendMessageW(Control(ControlId::kLabel1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
  SendMessageW(Control(ControlId::kLabel1), WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
  Settle();
  EXPECT_EQ(GetMenu(form.Handle()), nullptr);
  const RECT without = InForm(form.Handle(), Names());
  EXPECT_GT(without.bottom, with.bottom);
  Press({VK_F5});
  Settle();
  EXPECT_EQ(NameLines(), u"F5\r\n");
}

TEST_F(KeyTestFormTest, ManyOpeningsLeaveNoSystemObjectsBehind) {
  Open();
  presenter.Unload();
  Settle();
  const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  for (int opening = 0; opening < 20; ++opening) {
    presenter.Show();
    if (opening % 2 == 0) form.SetLook({.menusShown = false});
    presenter.Unload();
    Settle();
  }
  EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi + 5);
  EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user + 5);
}

}  // namespace
}  // namespace deck
