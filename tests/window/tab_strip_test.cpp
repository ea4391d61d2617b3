#include <array>
#include <string>

#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

class TabStripTest : public MainWindowFixture {
 protected:
  TabStripTest() {
    ShowWindowed();
    window.InsertTab(1, u"one.tmj");
    window.InsertTab(2, u"three.tmj");
    window.InsertTab(2, u"two.tmm");
    window.SelectTab(1);
    loop.Pump();
    events.clear();
  }

  int Count() const { return static_cast<int>(SendMessageW(Tabs(), TCM_GETITEMCOUNT, 0, 0)); }
  int Selected() const { return static_cast<int>(SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0)) + 1; }
  std::string Caption(int position) const {
    std::array<wchar_t, 300> text{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(Tabs(), TCM_GETITEMW, static_cast<WPARAM>(position - 1),
                 reinterpret_cast<LPARAM>(&item));
    const std::wstring caption = item.pszText;
    return {caption.begin(), caption.end()};
  }
  // What the tool tips have to show when the pointer has come to the tab.
  std::wstring ToolTip(int position) {
    Mouse(Tabs(), WM_MOUSEMOVE, MiddleOf(position));
    std::array<wchar_t, 1000> text{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = Tabs();
    tool.lpszText = text.data();
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
      if (GetWindowThreadProcessId(tips, nullptr) != GetCurrentThreadId() ||
          !SendMessageW(tips, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool))) {
        continue;
      }
      EXPECT_TRUE(PtInRect(&tool.rect, MiddleOf(position)));
      EXPECT_NE(GetWindowLongPtrW(tips, GWL_STYLE) & TTS_NOPREFIX, 0);
      return text.data();
    }
    return L"no tool tip";
  }
  POINT MiddleOf(int position) const {
    RECT tab{};
    SendMessageW(Tabs(), TCM_GETITEMRECT, static_cast<WPARAM>(position - 1),
                 reinterpret_cast<LPARAM>(&tab));
    return {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
  }
};

TEST_F(TabStripTest, TabsStandAtThePositionsAskedFor) {
  ASSERT_EQ(Count(), 3);
  EXPECT_EQ(Caption(1), "one.tmj");
  EXPECT_EQ(Caption(2), "two.tmm");
  EXPECT_EQ(Caption(3), "three.tmj");
}

TEST_F(TabStripTest, RemovingATabKeepsTheOthersWithTheirToolTips) {
  window.SetTab(3, u"three.tmj", u"C:\\three.tmj");
  window.RemoveTab(2);
  ASSERT_EQ(Count(), 2);
  EXPECT_EQ(Caption(2), "three.tmj");
  EXPECT_EQ(ToolTip(2), L"C:\\three.tmj");
}

TEST_F(TabStripTest, CaptionShowsAmpersandsInsteadOfUnderliningTheNextLetter) {
  window.SetTab(2, u"R&D.tmm", u"C:\\R&D.tmm");
  EXPECT_EQ(Caption(2), "R&&D.tmm");
}

TEST_F(TabStripTest, ToolTipIsTheFullPathLetterForLetter) {
  const std::u16string path = u"C:\\R&D\\" + std::u16string(200, u'x') + u"\\f\u00e4.tmm";
  window.SetTab(2, u"f\u00e4.tmm", path);
  EXPECT_EQ(ToolTip(2), std::wstring(path.begin(), path.end()));
  EXPECT_EQ(ToolTip(1), L"no tool tip") << "an untitled document has no path";
}

TEST_F(TabStripTest, SelectionByTheProgramIsNotReported) {
  window.SelectTab(3);
  EXPECT_EQ(Selected(), 3);
  EXPECT_TRUE(events.empty());
}

TEST_F(TabStripTest, ClickSelectsATabAndIsReported) {
  Click(Tabs(), MiddleOf(2));
  EXPECT_EQ(Selected(), 2);
  EXPECT_TRUE(Happened("tab clicked 2"));
}

TEST_F(TabStripTest, ClickLeavesTheFocusWhereItIs) {
  SetFocus(Macros());
  Click(Tabs(), MiddleOf(2));
  EXPECT_EQ(GetFocus(), Macros());
}

TEST_F(TabStripTest, MiddleClickIsReportedWithItsTabAndSelectsNothingByItself) {
  Mouse(Tabs(), WM_MBUTTONDOWN, MiddleOf(3), MK_MBUTTON);
  Mouse(Tabs(), WM_MBUTTONUP, MiddleOf(3));
  EXPECT_EQ(events, std::vector<std::string>{"tab middle-clicked 3"});
  EXPECT_EQ(Selected(), 1);
}

TEST_F(TabStripTest, MiddleButtonReleasedOnAnotherTabDoesNothing) {
  Mouse(Tabs(), WM_MBUTTONDOWN, MiddleOf(3), MK_MBUTTON);
  Mouse(Tabs(), WM_MBUTTONUP, MiddleOf(2));
  Mouse(Tabs(), WM_MBUTTONUP, MiddleOf(3));
  EXPECT_TRUE(events.empty());
}

TEST_F(TabStripTest, HoverNamesTheTabUnderThePointer) {
  Mouse(Tabs(), WM_MOUSEMOVE, MiddleOf(3));
  EXPECT_EQ(events, std::vector<std::string>{"tab hovered 3"});
}

TEST_F(TabStripTest, HoverBesideTheTabsReportsNothing) {
  Mouse(Tabs(), WM_MOUSEMOVE, {PlaceOf(Tabs()).width - 2, 5});
  EXPECT_TRUE(events.empty());
}

TEST_F(TabStripTest, TabsThatDoNotFitScrollInsteadOfMakingASecondRow) {
  for (int tab = 4; tab <= 60; ++tab) window.InsertTab(tab, u"long file name.tmj");
  EXPECT_EQ(SendMessageW(Tabs(), TCM_GETROWCOUNT, 0, 0), 1);
  window.SelectTab(60);
  const POINT last = MiddleOf(60);
  EXPECT_GT(last.x, 0);
  EXPECT_LT(last.x, PlaceOf(Tabs()).width);
}

TEST_F(TabStripTest, PositionsWithoutATabAreIgnored) {
  window.RemoveTab(0);
  window.RemoveTab(4);
  window.SetTab(4, u"x", u"y");
  EXPECT_EQ(Count(), 3);
}

}  // namespace
}  // namespace deck
