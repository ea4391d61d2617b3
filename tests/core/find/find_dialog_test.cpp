#include <gtest/gtest.h>

#include "tests/core/find/find_fixture.h"

namespace deck {
namespace {

using enum FindControl;

class FindDialogTest : public FindFixture {};

TEST_F(FindDialogTest, OpensOnThePageOfTheMenuItemWithTheFocusInItsField) {
  struct Case {
    int index;
    FindPage page;
    FindControl field;
    FindControl defaultButton;
  };
  for (const Case& c : {Case{0, FindPage::kFind, kComboTextFind, kCommand1},
                        Case{1, FindPage::kReplace, kComboTextReplaceFind, kCommand3},
                        Case{2, FindPage::kGotoLine, kLineToFind, kCommand7}}) {
    find.mnuFRGArray(c.index);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.page(), c.page);
    EXPECT_EQ(dialog.focus(), c.field);
    EXPECT_EQ(dialog.defaultButton(), c.defaultButton);
  }
}

TEST_F(FindDialogTest, KnowsNoFourthPage) {
  find.mnuFRGArray(3);
  find.mnuFRGArray(-1);
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, FindTakesTheSelectionOverEvenAnEmptyOne) {
  Box().Load(u"one two\nthree");
  Box().Select({4, 3});
  find.mnuFRGArray(0);
  EXPECT_EQ(dialog.Text(kComboTextFind), u"two");
  Box().Select({4, 6});
  find.mnuFRGArray(0);
  EXPECT_EQ(dialog.Text(kComboTextFind), u"two\nth");
  Box().Select({4, 0});
  find.mnuFRGArray(0);
  EXPECT_EQ(dialog.Text(kComboTextFind), u"");
}

TEST_F(FindDialogTest, ReplaceTakesOnlyASelectionOver) {
  Box().Load(u"one two");
  Box().Select({4, 3});
  find.mnuFRGArray(1);
  EXPECT_EQ(dialog.Text(kComboTextReplaceFind), u"two");
  EXPECT_EQ(dialog.Text(kComboTextFind), u"");
  Box().Select({4, 0});
  find.mnuFRGArray(1);
  EXPECT_EQ(dialog.Text(kComboTextReplaceFind), u"two");
}

TEST_F(FindDialogTest, GotoLineTakesNothingOver) {
  Box().Load(u"one two");
  find.mnuFRGArray(2);
  dialog.Type(kLineToFind, u"7");
  Box().Select({0, 3});
  find.mnuFRGArray(2);
  EXPECT_EQ(dialog.Text(kLineToFind), u"7");
  EXPECT_EQ(dialog.Text(kComboTextFind), u"");
  EXPECT_EQ(dialog.Text(kComboTextReplaceFind), u"");
}

TEST_F(FindDialogTest, TakingTextOverStartsTheSearchAgain) {
  Box().Load(u"one one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  find.mnuFRGArray(0);
  EXPECT_EQ(dialog.Text(kComboTextFind), u"one");
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  OpenReplace(u"one", u"");
  dialog.Click(kCommand3);
  find.mnuFRGArray(1);
  EXPECT_EQ(Caption(kCommand3), u"Find first");
}

TEST_F(FindDialogTest, AskingForTheSamePageAgainLetsTheSearchGoOn) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"");
  dialog.Click(kCommand3);
  Box().Select({3, 0});
  find.mnuFRGArray(1);
  EXPECT_EQ(Caption(kCommand3), u"Find next");
}

TEST_F(FindDialogTest, AnotherPageStartsTheSearchesAgain) {
  Box().Load(u"one one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  dialog.Choose(FindPage::kGotoLine);
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  EXPECT_EQ(dialog.defaultButton(), kCommand7);
  Box().Select({0, 0});
  OpenReplace(u"one", u"");
  dialog.Click(kCommand3);
  dialog.Choose(FindPage::kFind);
  EXPECT_EQ(Caption(kCommand3), u"Find first");
  EXPECT_EQ(dialog.defaultButton(), kCommand1);
  dialog.Choose(FindPage::kReplace);
  dialog.Click(kCommand3);
  find.mnuFRGArray(2);
  EXPECT_EQ(Caption(kCommand3), u"Find first");
}

TEST_F(FindDialogTest, EveryCloseButtonAndEscapeUnloadIt) {
  struct Case {
    int index;
    FindControl button;
  };
  for (const Case& c : {Case{0, kCommand2}, Case{1, kCommand4}, Case{2, kCommand8},
                        Case{0, kCommand9}, Case{1, kCommand9}, Case{2, kCommand9}}) {
    find.mnuFRGArray(c.index);
    dialog.Click(c.button);
    EXPECT_FALSE(dialog.IsOpen());
  }
  find.mnuFRGArray(1);
  dialog.PressEscape();
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, HasForgottenEverythingWhenItIsOpenedAgain) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"x");
  dialog.Click(kMatchCaseR);
  dialog.Click(kCommand3);
  dialog.Click(kCommand5);
  dialog.Click(kCommand3);
  EXPECT_TRUE(dialog.IsEnabled(kCommand5));
  dialog.PressEscape();
  Box().Select({0, 0});
  find.mnuFRGArray(1);
  EXPECT_EQ(dialog.Text(kComboTextReplaceFind), u"");
  EXPECT_EQ(dialog.Text(kComboTextReplaceWith), u"");
  EXPECT_TRUE(dialog.List(kComboTextReplaceFind).empty());
  EXPECT_FALSE(dialog.IsTicked(kMatchCaseR));
  EXPECT_FALSE(dialog.IsTicked(kMatchCaseF));
  EXPECT_FALSE(dialog.IsEnabled(kCommand5));
  EXPECT_FALSE(dialog.IsEnabled(kCommand6));
  EXPECT_EQ(Caption(kCommand3), u"Find first");
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  dialog.Type(kComboTextReplaceFind, u"one");
  dialog.Click(kCommand3);
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), std::vector<std::u16string>{u"one"})
      << "kept although an earlier dialog had kept it";
}

TEST_F(FindDialogTest, IsRestoredWhenOpenedAgain) {
  find.mnuFRGArray(0);
  dialog.Type(kComboTextFind, u"one");
  find.Minimise();
  EXPECT_TRUE(dialog.minimised());
  find.mnuFRGArray(2);
  EXPECT_FALSE(dialog.minimised());
  EXPECT_EQ(dialog.Text(kComboTextFind), u"one") << "it was loaded all the time";
}

TEST_F(FindDialogTest, MinimisingNeedsAnOpenOne) {
  find.Minimise();
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_FALSE(dialog.minimised());
}

TEST_F(FindDialogTest, FindAgainPressesTheFindButtonOfThePage) {
  Box().Load(u"one two one two");
  OpenFind(u"one");
  find.FindAgain();
  find.FindAgain();
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
  Box().Select({0, 0});
  OpenReplace(u"two", u"");
  dialog.PressFindAgain();
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 3}));
  EXPECT_TRUE(dialog.IsEnabled(kCommand5));
}

TEST_F(FindDialogTest, FindAgainWorksWhileTheDialogIsMinimised) {
  Box().Load(u"one two one two");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  find.Minimise();
  find.FindAgain();
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
  EXPECT_TRUE(dialog.minimised());
}

TEST_F(FindDialogTest, FindAgainOpensFindWhereThereIsNoFindButton) {
  Box().Load(u"one two");
  Box().Select({4, 3});
  find.FindAgain();
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(dialog.page(), FindPage::kFind);
  EXPECT_EQ(dialog.Text(kComboTextFind), u"two");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 3}));
  find.mnuFRGArray(2);
  find.FindAgain();
  EXPECT_EQ(dialog.page(), FindPage::kFind);
}

TEST_F(FindDialogTest, ExplainsItselfUnderThePointer) {
  const std::u16string hint =
      u"Use the Find and Replace window for text searches, edits and to highlight lines in the "
      u"currently selected file.";
  find.mnuFRGArray(0);
  status.Say(u" Compiled a.tmj");
  dialog.MoveMouse();
  EXPECT_EQ(window.Panel(1), hint);
  window.SetPanel(1, u"as seen on the screen");
  dialog.MoveMouse();
  EXPECT_EQ(window.Panel(1), u"as seen on the screen") << "not written when it stands there";
}

}  // namespace
}  // namespace deck
