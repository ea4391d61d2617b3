// What only the real window has: keys, its two controls, hints, and the screen around it.
#include "help/win32/info_window.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <richedit.h>

#include <array>
#include <string>
#include <vector>

#include "help/info_window_layout.h"
#include "platform/control_ids.h"
#include "platform/strings.h"
#include "platform/win32/dpi.h"
#include "platform/win32/wide_text.h"
#include "tests/window/dark_colours.h"

namespace deck {
namespace {

constexpr InfoWindowPlace kPlace{.top = 900, .left = 1500, .height = 6000, .width = 7500};

class InfoWindowTest : public testing::Test {
 protected:
  InfoWindowTest() {
    LoadLibraryW(L"msftedit.dll");
    // Away from the controls, so that no pointer is over them by chance.
    SetCursorPos(0, 0);
    window.events = {.closeWanted = [this] { events.emplace_back("close"); },
                     .overOk = [this] { events.emplace_back("over OK"); },
                     .overText = [this] { events.emplace_back("over the text"); }};
    window.Load(kPlace);
    window.Show();
    loop.Pump();
    events.clear();
  }

  HWND Control(ControlId id) const { return GetDlgItem(window.Handle(), static_cast<int>(id)); }
  HWND Text() const { return Control(ControlId::kInfoText); }
  HWND Ok() const { return Control(ControlId::kInfoCommand1); }

  void Press(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    loop.Pump();
  }
  Rectangle PlaceOf(HWND control) const {
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
  }

  using Lines = std::vector<std::string>;

  // Hidden: a window manager would hand the keyboard to a visible one a moment later.
  WindowHandle owner{CreateWindowExW(0, WC_STATICW, L"owner", WS_OVERLAPPEDWINDOW, 100, 100, 700,
                                     500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)};
  MessageLoop loop;
  Lines events;
  InfoWindow window{owner.Get(), loop};
};

TEST_F(InfoWindowTest, HasItsCaptionAndIsOwnedByTheMainWindow) {
  std::array<wchar_t, 50> caption{};
  GetWindowTextW(window.Handle(), caption.data(), static_cast<int>(caption.size()));
  EXPECT_STREQ(caption.data(), L"Deck Quick Help");
  EXPECT_EQ(GetWindow(window.Handle(), GW_OWNER), owner.Get());
  EXPECT_TRUE(IsWindowEnabled(owner.Get())) << "the editor stays usable";
}

TEST_F(InfoWindowTest, WindowAndControlsHaveTheClassesThatScriptsLookFor) {
  const HWND found = FindWindowW(L"InfoWindow", L"Deck Quick Help");
  EXPECT_EQ(found, window.Handle());
  int controls = 0;
  for (const ControlRow& row : kControls) {
    if (row.window != u"InfoWindow") continue;
    ++controls;
    std::array<wchar_t, 100> name{};
    GetClassNameW(Control(row.id), name.data(), static_cast<int>(name.size()));
    EXPECT_TRUE(EqualsIgnoringCase(FromWide(name.data()), row.windowClass));
  }
  EXPECT_EQ(controls, 2);
}

TEST_F(InfoWindowTest, ItsFrameShowsTheProgramsIcon) {
  for (const WPARAM kind : {ICON_BIG, ICON_SMALL}) {
    EXPECT_NE(SendMessageW(window.Handle(), WM_GETICON, kind, 0), 0);
  }
}

TEST_F(InfoWindowTest, EscapeReturnOkAndTheCloseBoxAskForTheEnd) {
  Press(VK_ESCAPE);
  EXPECT_EQ(events, Lines{"close"});
  Press(VK_RETURN);
  EXPECT_EQ(events, (Lines{"close", "close"}));
  SendMessageW(Ok(), BM_CLICK, 0, 0);
  EXPECT_EQ(events, (Lines{"close", "close", "close"}));
  SendMessageW(window.Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events, (Lines{"close", "close", "close", "close"}));
}

TEST_F(InfoWindowTest, TabGoesBetweenTheTextAndTheButton) {
  EXPECT_EQ(GetFocus(), Text());
  Press(VK_TAB);
  EXPECT_EQ(GetFocus(), Ok());
  Press(VK_TAB);
  EXPECT_EQ(GetFocus(), Text());
}

TEST_F(InfoWindowTest, ControlsFollowTheSizeOfTheWindow) {
  for (const SIZE size : {SIZE{500, 400}, SIZE{800, 300}, SIZE{260, 700}}) {
    SetWindowPos(window.Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    loop.Pump();
    RECT client{};
    GetClientRect(window.Handle(), &client);
    const InfoWindowLayout layout =
        LayOutInfoWindow(client.right, client.bottom, DpiOf(window.Handle()));
    EXPECT_EQ(PlaceOf(Text()), layout.text);
    EXPECT_EQ(PlaceOf(Ok()), layout.ok);
  }
}

TEST_F(InfoWindowTest, PointerThatMovesOverAControlIsReported) {
  SendMessageW(Text(), WM_MOUSEMOVE, 0, MAKELPARAM(20, 20));
  EXPECT_EQ(events, Lines{"over the text"});
  SendMessageW(Ok(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(events, (Lines{"over the text", "over OK"}));
}

TEST_F(InfoWindowTest, PointerThatRestsWhileTheWindowChangesUnderItIsNotReported) {
  SendMessageW(Text(), WM_MOUSEMOVE, 0, MAKELPARAM(20, 20));
  events.clear();
  SendMessageW(Text(), WM_MOUSEMOVE, 0, MAKELPARAM(20, 20));
  EXPECT_EQ(events, Lines{});
}

TEST_F(InfoWindowTest, TextIsReadOnlyAndBeginsAtItsTop) {
  std::string page = "{\\rtf1 first\\par";
  for (int line = 0; line < 200; ++line) page += " more\\par";
  window.ShowPage(page + "}");
  EXPECT_NE(GetWindowLongW(Text(), GWL_STYLE) & ES_READONLY, 0);
  EXPECT_EQ(SendMessageW(Text(), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
}

TEST_F(InfoWindowTest, PageIsPaperWhateverTheColoursOfTheSystem) {
  window.Unload();
  const DarkColours dark;
  window.Load(kPlace);
  window.Show();
  loop.Pump();
  UpdateWindow(Text());
  const HDC context = GetDC(Text());
  const COLORREF ground = GetPixel(context, 30, 30);
  ReleaseDC(Text(), context);
  EXPECT_EQ(ground, RGB(255, 255, 255));
}

TEST_F(InfoWindowTest, PlaceOutsideEveryScreenIsMovedOntoOne) {
  window.Unload();
  window.Load({.top = 900'000, .left = 900'000, .height = 6000, .width = 7500});
  RECT rect{};
  GetWindowRect(window.Handle(), &rect);
  EXPECT_LE(rect.right, GetSystemMetrics(SM_CXVIRTUALSCREEN));
  EXPECT_LE(rect.bottom, GetSystemMetrics(SM_CYVIRTUALSCREEN));
  EXPECT_EQ(window.Place().width, 7500);
}

TEST_F(InfoWindowTest, CannotBeMadeSmallerThanTheButtonNeeds) {
  SetWindowPos(window.Handle(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  const Rectangle ok = PlaceOf(Ok());
  RECT client{};
  GetClientRect(window.Handle(), &client);
  EXPECT_GE(ok.left, 0);
  EXPECT_LE(ok.right(), client.right);
  EXPECT_GT(PlaceOf(Text()).height, 0);
}

TEST_F(InfoWindowTest, NewResolutionScalesControlsFontsAndThePage) {
  window.ShowPage(R"({\rtf1{\fonttbl{\f0\fswiss Tahoma;}}\f0\fs24 one\par two\par three\par})");
  const auto lineHeight = [this] {
    POINTL first{};
    POINTL second{};
    SendMessageW(Text(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&first), 0);
    SendMessageW(Text(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&second), 4);
    return second.y - first.y;
  };
  const auto pageMargin = [this] {
    RECT page{};
    SendMessageW(Text(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&page));
    return page.left;
  };
  const auto fontHeight = [this] {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(Ok(), WM_GETFONT, 0, 0)), sizeof font, &font);
    return font.lfHeight;
  };
  const Rectangle before = PlaceOf(Ok());
  const LONG lineBefore = lineHeight();
  const LONG marginBefore = pageMargin();
  const LONG fontBefore = fontHeight();
  RECT suggested{200, 100, 1000, 800};
  SendMessageW(window.Handle(), 0x02E0, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  RECT rect{};
  GetWindowRect(window.Handle(), &rect);
  EXPECT_EQ(rect.right - rect.left, 800);
  EXPECT_EQ(PlaceOf(Ok()).width, 2 * before.width);
  EXPECT_EQ(PlaceOf(Ok()).height, 2 * before.height);
  EXPECT_NEAR(lineHeight(), 2 * lineBefore, 2);
  EXPECT_NEAR(pageMargin(), 2 * marginBefore, 2);
  EXPECT_NEAR(fontHeight(), 2 * fontBefore, 1);
  // And back.
  SendMessageW(window.Handle(), 0x02E0, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(PlaceOf(Ok()).width, before.width);
  EXPECT_EQ(lineHeight(), lineBefore);
}

}  // namespace
}  // namespace deck
