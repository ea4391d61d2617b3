#include <array>
#include <string>

#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

constexpr int kSplitterMiddle = kSplitterWidth / 2;

class MacroPanelWindowTest : public MainWindowFixture {
 protected:
  MacroPanelWindowTest() {
    ShowWindowed();
    window.PositionControls(300);
    window.MacroPanel().ShowHeadings({u"All", u"Weapons", u"Views"}, 0);
    window.MacroPanel().ShowMacros({u"FIRE", u"GEAR_UP", u"GEAR_DOWN", u"FLAPS"});
    loop.Pump();
    events.clear();
  }

  POINT MiddleOf(int macro) const {
    RECT item{};
    SendMessageW(Macros(), LB_GETITEMRECT, static_cast<WPARAM>(macro),
                 reinterpret_cast<LPARAM>(&item));
    return {20, (item.top + item.bottom) / 2};
  }
  static void Key(HWND control, WORD key) {
    SendMessageW(control, WM_KEYDOWN, key, 1);
    SendMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  static void ControlKey(HWND control, WORD key) {
    std::array<BYTE, 256> keys{};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys.data());
    SendMessageW(control, WM_KEYDOWN, key, 1);
    keys = {};
    SetKeyboardState(keys.data());
  }
  void DragEdge(int byPixels) {
    const int edge = PlaceOf(Frame()).width - kSplitterMiddle;
    Mouse(Frame(), WM_LBUTTONDOWN, {edge, 100}, MK_LBUTTON);
    Mouse(Frame(), WM_MOUSEMOVE, {edge + byPixels, 110}, MK_LBUTTON);
  }
  int FrameWidth() const { return PlaceOf(Frame()).width; }
};

TEST_F(MacroPanelWindowTest, FillingReportsNothingAndSelectsNoMacro) {
  window.MacroPanel().ShowHeadings({u"All", u"Other"}, 1);
  window.MacroPanel().ShowMacros({u"A", u"B"});
  loop.Pump();
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(SendMessageW(Headings(), CB_GETCOUNT, 0, 0), 2);
  EXPECT_EQ(SendMessageW(Headings(), CB_GETCURSEL, 0, 0), 1);
  EXPECT_EQ(SendMessageW(Macros(), LB_GETCOUNT, 0, 0), 2);
  EXPECT_EQ(SendMessageW(Macros(), LB_GETCURSEL, 0, 0), LB_ERR);
}

TEST_F(MacroPanelWindowTest, NothingOfTheFormerContentsIsStillToBeSeenAfterFilling) {
  std::vector<std::u16string> many;
  for (int i = 0; i < 300; ++i) many.push_back(u"A_LONG_MACRO_NAME_WHICH_NEEDS_A_SCROLL_BAR");
  for (const auto& names : {many, std::vector<std::u16string>{u"FIRE"}, many, {}}) {
    const std::vector<COLORREF> before = Pixels(Frame());
    window.MacroPanel().ShowHeadings({names.empty() ? u"None" : u"All " + names[0]}, 0);
    window.MacroPanel().ShowMacros(names);
    loop.Pump();
    const std::vector<COLORREF> shown = Pixels(Frame());
    EXPECT_NE(shown, before);
    PaintAgain(Frame());
    EXPECT_EQ(shown, Pixels(Frame()));
  }
}

TEST_F(MacroPanelWindowTest, FillingAHiddenPanelLeavesItHidden) {
  window.PositionControls(0);
  window.MacroPanel().ShowHeadings({u"All"}, 0);
  window.MacroPanel().ShowMacros({u"FIRE"});
  loop.Pump();
  EXPECT_FALSE(IsWindowVisible(Frame()));
  window.PositionControls(300);
  loop.Pump();
  EXPECT_TRUE(IsWindowVisible(Macros()));
  const std::vector<COLORREF> shown = Pixels(Frame());
  PaintAgain(Frame());
  EXPECT_EQ(shown, Pixels(Frame()));
}

TEST_F(MacroPanelWindowTest, NothingIsSelectedAmongHeadingsWhenThereIsNone) {
  window.MacroPanel().ShowHeadings({}, -1);
  EXPECT_EQ(SendMessageW(Headings(), CB_GETCURSEL, 0, 0), CB_ERR);
}

TEST_F(MacroPanelWindowTest, LongNamesCanBeScrolledTo) {
  window.MacroPanel().ShowMacros({u"SHORT", std::u16string(200, u'W')});
  const auto extent = static_cast<int>(SendMessageW(Macros(), LB_GETHORIZONTALEXTENT, 0, 0));
  EXPECT_GT(extent, PlaceOf(Macros()).width);
  window.MacroPanel().ShowMacros({u"SHORT"});
  EXPECT_LT(SendMessageW(Macros(), LB_GETHORIZONTALEXTENT, 0, 0), extent);
}

TEST_F(MacroPanelWindowTest, HeadingChosenByKeyIsReported) {
  SetFocus(Headings());
  Key(Headings(), VK_DOWN);
  EXPECT_TRUE(Happened("heading 1"));
}

TEST_F(MacroPanelWindowTest, MacroClickedIsReportedWithItsIndex) {
  Click(Macros(), MiddleOf(2));
  EXPECT_TRUE(Happened("macro clicked 2"));
  EXPECT_EQ(SendMessageW(Macros(), LB_GETCURSEL, 0, 0), 2);
}

TEST_F(MacroPanelWindowTest, MacroChosenByKeyIsReportedAsAClickAndThenAsAKey) {
  SetFocus(Macros());
  Key(Macros(), VK_DOWN);
  EXPECT_TRUE(Happened("macro clicked 0"));
  EXPECT_EQ(events.back(), "list key");
}

TEST_F(MacroPanelWindowTest, DoubleClickIsReportedAfterItsClick) {
  Click(Macros(), MiddleOf(1));
  Mouse(Macros(), WM_LBUTTONDBLCLK, MiddleOf(1), MK_LBUTTON);
  Mouse(Macros(), WM_LBUTTONUP, MiddleOf(1));
  ASSERT_TRUE(Happened("macro double-clicked 1"));
  EXPECT_EQ(events.front(), "macro clicked 1");
}

TEST_F(MacroPanelWindowTest, ReturnOnAMacroIsADoubleClick) {
  SetFocus(Macros());
  Key(Macros(), VK_DOWN);
  Key(Macros(), VK_RETURN);
  EXPECT_TRUE(Happened("macro double-clicked 0"));
}

TEST_F(MacroPanelWindowTest, EscapeLeavesThePanelForTheText) {
  SetFocus(Macros());
  events.clear();
  SendMessageW(Macros(), WM_KEYDOWN, VK_ESCAPE, 1);
  EXPECT_EQ(events, std::vector<std::string>{"focused"});
}

TEST_F(MacroPanelWindowTest, TabGoesFromHeadingsToMacrosToTheText) {
  SetFocus(Headings());
  SendMessageW(Headings(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_EQ(GetFocus(), Macros());
  events.clear();
  SendMessageW(Macros(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_TRUE(Happened("focused"));
}

TEST_F(MacroPanelWindowTest, MnemonicOfTheLabelBringsTheFocusToTheMacros) {
  SetFocus(window.Handle());
  const LRESULT answer = SendMessageW(window.Handle(), WM_MENUCHAR, MAKEWPARAM('m', 0),
                                      reinterpret_cast<LPARAM>(GetMenu(window.Handle())));
  EXPECT_EQ(HIWORD(answer), MNC_CLOSE);
  loop.Pump();
  EXPECT_EQ(GetFocus(), Macros());
}

TEST_F(MacroPanelWindowTest, MnemonicIsNoneWhileThePanelIsHidden) {
  window.PositionControls(0);
  const LRESULT answer = SendMessageW(window.Handle(), WM_MENUCHAR, MAKEWPARAM('m', 0),
                                      reinterpret_cast<LPARAM>(GetMenu(window.Handle())));
  EXPECT_EQ(HIWORD(answer), MNC_IGNORE);
}

TEST_F(MacroPanelWindowTest, PointerOverHeadingsAndMacrosIsReported) {
  Mouse(Headings(), WM_MOUSEMOVE, {10, 5});
  Mouse(Macros(), WM_MOUSEMOVE, {10, 5});
  EXPECT_EQ(events, (std::vector<std::string>{"heading pointer", "list pointer"}));
}

TEST_F(MacroPanelWindowTest, PointerThatRestsIsNotReported) {
  Mouse(Macros(), WM_MOUSEMOVE, {10, 5});
  Mouse(Macros(), WM_MOUSEMOVE, {10, 5});
  EXPECT_EQ(events, std::vector<std::string>{"list pointer"});
}

TEST_F(MacroPanelWindowTest, PressedMacroMovedFarEnoughBecomesADragOnce) {
  const POINT start = MiddleOf(3);
  Mouse(Macros(), WM_LBUTTONDOWN, start, MK_LBUTTON);
  Mouse(Macros(), WM_MOUSEMOVE, {start.x + 1, start.y}, MK_LBUTTON);
  EXPECT_TRUE(events.empty());
  Mouse(Macros(), WM_MOUSEMOVE, {start.x + 30, start.y}, MK_LBUTTON);
  Mouse(Macros(), WM_MOUSEMOVE, {start.x + 60, start.y}, MK_LBUTTON);
  EXPECT_EQ(std::count(events.begin(), events.end(), "drag 3"), 1);
}

TEST_F(MacroPanelWindowTest, DragThatStaysInTheListDoesNotChangeTheChoice) {
  const POINT start = MiddleOf(3);
  Mouse(Macros(), WM_LBUTTONDOWN, start, MK_LBUTTON);
  Mouse(Macros(), WM_MOUSEMOVE, MiddleOf(0), MK_LBUTTON);
  EXPECT_EQ(SendMessageW(Macros(), LB_GETCURSEL, 0, 0), 3);
}

TEST_F(MacroPanelWindowTest, EndOfADragIsNoClickButTheNextPressIs) {
  const POINT start = MiddleOf(3);
  Mouse(Macros(), WM_LBUTTONDOWN, start, MK_LBUTTON);
  Mouse(Macros(), WM_MOUSEMOVE, {start.x + 30, start.y}, MK_LBUTTON);
  Mouse(Macros(), WM_LBUTTONUP, {start.x + 30, start.y});
  EXPECT_EQ(events, std::vector<std::string>{"drag 3"});
  Click(Macros(), MiddleOf(1));
  EXPECT_TRUE(Happened("macro clicked 1"));
}

TEST_F(MacroPanelWindowTest, PressBelowTheLastMacroIsNoDrag) {
  const POINT below{20, PlaceOf(Macros()).height - 30};
  Mouse(Macros(), WM_LBUTTONDOWN, below, MK_LBUTTON);
  Mouse(Macros(), WM_MOUSEMOVE, {below.x + 60, below.y}, MK_LBUTTON);
  EXPECT_FALSE(Happened("drag 3"));
}

TEST_F(MacroPanelWindowTest, EdgeMovesThePanelWhileDraggedAndIsReportedAtTheEnd) {
  DragEdge(80);
  EXPECT_EQ(FrameWidth(), 380);
  EXPECT_EQ(PlaceOf(Tabs()).left, 380);
  EXPECT_TRUE(events.empty());
  Mouse(Frame(), WM_LBUTTONUP, {380 - kSplitterMiddle, 110});
  EXPECT_EQ(events, std::vector<std::string>{"splitter 380"});
}

TEST_F(MacroPanelWindowTest, EdgeStopsWhereThePanelIsNarrowestAndWhereTheTextNeedsItsRoom) {
  DragEdge(-290);
  EXPECT_EQ(FrameWidth(), kNarrowestMacroFrame);
  Mouse(Frame(), WM_LBUTTONUP, {});
  EXPECT_EQ(events, std::vector<std::string>{"splitter 100"});
  DragEdge(3000);
  EXPECT_EQ(PlaceOf(Tabs()).width, kNarrowestTabStrip);
}

TEST_F(MacroPanelWindowTest, CtrlWithAnArrowMovesTheEdgeAStepAndReportsItAsADrag) {
  for (const HWND control : {Macros(), Headings()}) {
    const auto chosen =
        SendMessageW(control, control == Macros() ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
    events.clear();
    const int before = FrameWidth();
    ControlKey(control, VK_RIGHT);
    EXPECT_EQ(FrameWidth(), before + 16);
    EXPECT_EQ(PlaceOf(Tabs()).left, before + 16);
    EXPECT_EQ(events, std::vector<std::string>{"splitter " + std::to_string(before + 16)});
    ControlKey(control, VK_LEFT);
    EXPECT_EQ(FrameWidth(), before);
    EXPECT_EQ(SendMessageW(control, control == Macros() ? LB_GETCURSEL : CB_GETCURSEL, 0, 0),
              chosen);
  }
}

TEST_F(MacroPanelWindowTest, KeysStopTheEdgeWhereTheMouseStopsIt) {
  window.PositionControls(kNarrowestMacroFrame + 10);
  ControlKey(Macros(), VK_LEFT);
  EXPECT_EQ(FrameWidth(), kNarrowestMacroFrame);
  events.clear();
  ControlKey(Macros(), VK_LEFT);
  EXPECT_EQ(FrameWidth(), kNarrowestMacroFrame);
  EXPECT_EQ(events, std::vector<std::string>{});
  window.PositionControls(3000);
  ControlKey(Macros(), VK_RIGHT);
  EXPECT_EQ(PlaceOf(Tabs()).width, kNarrowestTabStrip);
  EXPECT_EQ(events, std::vector<std::string>{});
}

TEST_F(MacroPanelWindowTest, ArrowsWithoutCtrlLeaveTheEdge) {
  Key(Macros(), VK_RIGHT);
  Key(Headings(), VK_LEFT);
  EXPECT_EQ(FrameWidth(), 300);
}

TEST_F(MacroPanelWindowTest, LosingTheMouseWhileDraggingPutsTheEdgeBack) {
  DragEdge(80);
  ReleaseCapture();
  EXPECT_EQ(FrameWidth(), 300);
  EXPECT_TRUE(events.empty());
}

TEST_F(MacroPanelWindowTest, PressBesideTheEdgeDragsNothing) {
  Mouse(Frame(), WM_LBUTTONDOWN, {100, 2}, MK_LBUTTON);
  Mouse(Frame(), WM_MOUSEMOVE, {200, 2}, MK_LBUTTON);
  Mouse(Frame(), WM_LBUTTONUP, {200, 2});
  EXPECT_EQ(FrameWidth(), 300);
  EXPECT_TRUE(events.empty());
}

TEST_F(MacroPanelWindowTest, PointerOverTheEdgeShowsThatItCanBeDragged) {
  POINT edge{FrameWidth() - kSplitterMiddle, 100};
  ClientToScreen(Frame(), &edge);
  SetCursorPos(edge.x, edge.y);
  SendMessageW(Frame(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Frame()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
  SetCursorPos(edge.x - 100, edge.y);
  SendMessageW(Frame(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Frame()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

}  // namespace
}  // namespace deck
