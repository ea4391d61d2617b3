#include "documents/status_bar.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_main_window_view.h"

namespace deck {
namespace {

struct StatusBarTest : testing::Test {
  FakeMainWindowView view;
  StatusBar status{view};
};

TEST_F(StatusBarTest, ShowsTextsInTheirPanels) {
  status.Say(u"Hello");
  status.Set(kMacroFilePanel, u"No macro file analysed");
  EXPECT_EQ(view.Panel(1), u"Hello");
  EXPECT_EQ(view.Panel(8), u"No macro file analysed");
  EXPECT_EQ(status.Message(), u"Hello");
}

TEST_F(StatusBarTest, ShowsTheLineNumberWithoutALeadingBlank) {
  status.ShowLine(12);
  EXPECT_EQ(view.Panel(2), u"Line no: 12");
}

TEST_F(StatusBarTest, LeavesACompileResultInPlaceOfAHint) {
  status.Say(u" Compiled successfully. (Memory used: 3%)");
  status.Hint(u"Cut");
  EXPECT_EQ(view.Panel(1), u" Compiled successfully. (Memory used: 3%)");
  status.Say(u" Compiler reported the following error: x");
  status.Hint(u"Cut");
  EXPECT_EQ(view.Panel(1), u" Compiler reported the following error: x");
}

TEST_F(StatusBarTest, ShowsAHintOverAnyOtherText) {
  status.Say(u"Compiling x ..... please wait ...");
  status.Hint(u"Cut");
  EXPECT_EQ(view.Panel(1), u"Cut");
}

TEST_F(StatusBarTest, WritesATextThatIsAlreadyShownOnlyOnce) {
  status.Hint(u"Cut");
  view.SetPanel(1, u"written behind its back");
  status.Hint(u"Cut");
  EXPECT_EQ(view.Panel(1), u"written behind its back");
}

TEST_F(StatusBarTest, PassesToolTipsOn) {
  status.SetToolTip(8, u"Contains 2 macros and 1 macro headings");
  EXPECT_EQ(view.PanelToolTip(8), u"Contains 2 macros and 1 macro headings");
}

}  // namespace
}  // namespace deck
