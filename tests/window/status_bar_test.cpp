#include <array>
#include <string>

#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

struct TipSearch {
  HWND owner;
  HWND found;
};

class StatusBarTest : public MainWindowFixture {
 protected:
  StatusBarTest() {
    ShowWindowed();
    events.clear();
  }

  std::wstring Panel(int panel) const {
    std::array<wchar_t, 500> text{};
    SendMessageW(Status(), SB_GETTEXTW, static_cast<WPARAM>(panel - 1),
                 reinterpret_cast<LPARAM>(text.data()));
    return text.data();
  }
  RECT PanelPlace(int panel) const {
    RECT place{};
    SendMessageW(Status(), SB_GETRECT, static_cast<WPARAM>(panel - 1),
                 reinterpret_cast<LPARAM>(&place));
    return place;
  }
  int WidthOf(int panel) const { return PanelPlace(panel).right - PanelPlace(panel).left; }
  int TextWidth(const std::wstring& text) const {
    const HDC context = GetDC(Status());
    const auto font = reinterpret_cast<HFONT>(SendMessageW(Status(), WM_GETFONT, 0, 0));
    const HGDIOBJ old = SelectObject(context, font);
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(context, old);
    ReleaseDC(Status(), context);
    return size.cx;
  }

  // Empty when the panel has none.
  std::wstring ToolTip(int panel) const {
    TipSearch search{Status(), nullptr};
    EnumThreadWindows(GetCurrentThreadId(), FindTips, reinterpret_cast<LPARAM>(&search));
    std::array<wchar_t, 1000> text{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = Status();
    tool.uId = static_cast<UINT_PTR>(panel - 1);
    tool.lpszText = text.data();
    SendMessageW(search.found, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
    return text.data();
  }

 private:
  static BOOL CALLBACK FindTips(HWND candidate, LPARAM wanted) {
    auto* search = reinterpret_cast<TipSearch*>(wanted);
    std::array<wchar_t, 50> name{};
    GetClassNameW(candidate, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != TOOLTIPS_CLASSW) return TRUE;
    if (GetWindow(candidate, GW_OWNER) == GetAncestor(search->owner, GA_ROOT) &&
        SendMessageW(candidate, TTM_GETTOOLCOUNT, 0, 0) > 0) {
      TTTOOLINFOW tool{};
      tool.cbSize = TTTOOLINFOW_V2_SIZE;
      if (SendMessageW(candidate, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)) != 0 &&
          tool.hwnd == search->owner) {
        search->found = candidate;
      }
    }
    return TRUE;
  }
};

TEST_F(StatusBarTest, EightPanelsShowTheirTexts) {
  EXPECT_EQ(SendMessageW(Status(), SB_GETPARTS, 0, 0), 8);
  for (int panel = 1; panel <= 8; ++panel) {
    window.SetPanel(panel, u"text " + std::u16string(1, static_cast<char16_t>(u'0' + panel)));
  }
  EXPECT_EQ(Panel(1), L"text 1");
  EXPECT_EQ(Panel(8), L"text 8");
}

TEST_F(StatusBarTest, TextsAreShownWhole) {
  const std::pair<int, std::u16string> texts[] = {
      {2, u"Line no: 70000"},
      {3, u"New file"},
      {3, u"Modified"},
      {4, u"INS"},
      {5, u"CAPS"},
      {6, u"NUM"},
      {7, u"12:59 PM"},
      {8, u"No macro file analysed"},
      {8, u"a long macro file name.tmm"},
  };
  for (const auto& [panel, text] : texts) {
    window.SetPanel(panel, text);
    EXPECT_LT(TextWidth(std::wstring(text.begin(), text.end())), WidthOf(panel)) << panel;
  }
}

TEST_F(StatusBarTest, MessagePanelTakesWhatTheOthersLeaveAndGrowsWithTheWindow) {
  int others = 0;
  for (int panel = 2; panel <= 8; ++panel) others += WidthOf(panel);
  EXPECT_GT(WidthOf(1), PlaceOf(Status()).width - others - 60);
  const int before = WidthOf(1);
  const int caps = WidthOf(5);
  RECT rect{};
  GetWindowRect(window.Handle(), &rect);
  SetWindowPos(window.Handle(), nullptr, 0, 0, rect.right - rect.left + 100, rect.bottom - rect.top,
               SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(WidthOf(1), before + 100);
  EXPECT_EQ(WidthOf(5), caps);
}

TEST_F(StatusBarTest, PanelsKeepTheirPlacesWhileTheirTextsComeAndGo) {
  window.SetPanel(5, u"CAPS");
  const RECT before = PanelPlace(6);
  window.SetPanel(5, u"");
  EXPECT_EQ(PanelPlace(6).left, before.left);
}

TEST_F(StatusBarTest, NothingOfAFormerTextIsStillToBeSeen) {
  for (const std::u16string& text : {std::u16string(u"short"), std::u16string(60, u'W'),
                                     std::u16string(u"a little longer"), std::u16string()}) {
    for (const int panel : {1, 2, 8}) {
      window.SetPanel(panel, text);
      loop.Pump();
      const std::vector<COLORREF> shown = Pixels(Status());
      PaintAgain(Status());
      EXPECT_EQ(shown, Pixels(Status())) << "panel " << panel << ' ' << Narrow(text);
    }
  }
}

TEST_F(StatusBarTest, TextIsSeenAtOnceWhenItIsAskedFor) {
  window.SetPanel(1, u"first");
  loop.Pump();
  const std::vector<COLORREF> before = Pixels(Status());
  window.SetPanel(1, u"second");
  window.RefreshPanels();
  const std::vector<COLORREF> shown = Pixels(Status());
  EXPECT_NE(shown, before);
  EXPECT_FALSE(GetUpdateRect(Status(), nullptr, FALSE));
}

// Opening a file gives a dozen texts to the first panel; painting each takes longer than the rest.
TEST_F(StatusBarTest, TextIsNotPaintedBeforeTheMessagesAtHandAreDone) {
  window.SetPanel(1, u"first");
  loop.Pump();
  const std::vector<COLORREF> before = Pixels(Status());
  window.SetPanel(1, u"second");
  EXPECT_EQ(Pixels(Status()), before);
  EXPECT_EQ(Panel(1), L"second") << "whoever asks is told the new one";
  loop.Pump();
  EXPECT_NE(Pixels(Status()), before);
}

int timesPainted = 0;

LRESULT CALLBACK CountPainting(HWND bar, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR) {
  const LRESULT result = DefSubclassProc(bar, message, wParam, lParam);
  // A message that is left for later leaves the area that is to be painted.
  if (message == WM_PAINT && !GetUpdateRect(bar, nullptr, FALSE)) ++timesPainted;
  return result;
}

TEST_F(StatusBarTest, TextsOfSeveralPanelsArePaintedTogether) {
  loop.Pump();
  SetWindowSubclass(Status(), CountPainting, 1, 0);
  timesPainted = 0;
  for (const int panel : {1, 2, 3, 8}) window.SetPanel(panel, u"new");
  loop.Pump();
  EXPECT_EQ(timesPainted, 1);
  const std::vector<COLORREF> shown = Pixels(Status());
  RemoveWindowSubclass(Status(), CountPainting, 1);
  PaintAgain(Status());
  EXPECT_EQ(shown, Pixels(Status())) << "something was left out";
}

TEST_F(StatusBarTest, TabInATextDoesNotMoveItToTheMiddle) {
  window.SetPanel(1, u"FIRE =\tx");
  EXPECT_EQ(Panel(1), L"FIRE = x");
}

TEST_F(StatusBarTest, ToolTipBelongsToItsPanel) {
  window.SetPanelToolTip(8, u"Contains 12 macros and 3 macro headings");
  EXPECT_EQ(ToolTip(8), L"Contains 12 macros and 3 macro headings");
  EXPECT_EQ(ToolTip(7), L"");
  window.SetPanelToolTip(8, u"");
  EXPECT_EQ(ToolTip(8), L"");
}

TEST_F(StatusBarTest, TextThatIsCutIsShownWholeInAToolTip) {
  std::u16string text = u"macro definition ";
  while (text.size() < 250) text += text;
  window.SetPanel(1, text);
  EXPECT_EQ(ToolTip(1), std::wstring(text.begin(), text.end()));
  window.SetPanel(1, u"short");
  EXPECT_EQ(ToolTip(1), L"");
}

TEST_F(StatusBarTest, PointerOverTheBarIsReported) {
  Mouse(Status(), WM_MOUSEMOVE, {10, 5});
  EXPECT_EQ(events, std::vector<std::string>{"status bar hovered"});
}

}  // namespace
}  // namespace deck
