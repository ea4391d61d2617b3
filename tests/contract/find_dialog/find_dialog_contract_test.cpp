#include <gtest/gtest.h>

#include "tests/contract/find_dialog/find_dialog_world.h"

namespace deck {
namespace {

using enum FindControl;

class FindDialogContract : public testing::Test {
 protected:
  FindDialogContract() {
    view.Connect({
        .clicked = [this](FindControl control) { Add("clicked", static_cast<int>(control)); },
        .textChanged = [this](FindControl combo) { Add("text", static_cast<int>(combo)); },
        .pageChosen = [this](FindPage page) { Add("page", static_cast<int>(page)); },
        .findAgain = [this] { events.emplace_back("find again"); },
        .mouseMoved = [this] { events.emplace_back("mouse"); },
    });
  }

  void Add(const std::string& event, int number) {
    events.push_back(event + ' ' + std::to_string(number));
  }
  static std::string Clicked(FindControl control) {
    return "clicked " + std::to_string(static_cast<int>(control));
  }
  // What was reported since the last call.
  std::vector<std::string> Reported() { return std::exchange(events, {}); }

  using Lines = std::vector<std::string>;
  using Texts = std::vector<std::u16string>;

  std::vector<std::string> events;
  std::unique_ptr<FindDialogWorld> world = MakeFindDialogWorld();
  FindDialogView& view = world->View();
};

constexpr FindControl kCombos[] = {kComboTextFind, kComboTextReplaceFind, kComboTextReplaceWith};

TEST_F(FindDialogContract, OpensEmptyOnThePageAskedFor) {
  for (const FindPage page : {FindPage::kReplace, FindPage::kGotoLine, FindPage::kFind}) {
    view.Open(page);
    EXPECT_TRUE(view.IsOpen());
    EXPECT_EQ(world->Page(), page);
  }
  for (const FindControl combo : kCombos) {
    EXPECT_EQ(view.Text(combo), u"");
    EXPECT_TRUE(world->List(combo).empty());
  }
  EXPECT_EQ(view.Text(kLineToFind), u"");
  for (const FindControl box : {kMatchCaseF, kWholeWordF, kMatchCaseR, kWholeWordR}) {
    EXPECT_FALSE(view.IsTicked(box));
  }
  for (const FindControl button : {kCommand1, kCommand2, kCommand9}) {
    EXPECT_TRUE(world->IsEnabled(button));
  }
  EXPECT_EQ(Reported(), Lines{});
}

TEST_F(FindDialogContract, IsNewAfterEachClose) {
  view.Open(FindPage::kReplace);
  view.SetText(kComboTextReplaceFind, u"one");
  view.AddToList(kComboTextReplaceFind, u"one");
  view.SetTicked(kMatchCaseR, true);
  view.SetEnabled(kCommand5, false);
  view.Close();
  EXPECT_FALSE(view.IsOpen());
  view.Open(FindPage::kReplace);
  EXPECT_EQ(view.Text(kComboTextReplaceFind), u"");
  EXPECT_TRUE(world->List(kComboTextReplaceFind).empty());
  EXPECT_FALSE(view.IsTicked(kMatchCaseR));
  EXPECT_TRUE(world->IsEnabled(kCommand5));
}

TEST_F(FindDialogContract, DoesNothingWhileItIsNotOpen) {
  view.SetText(kComboTextFind, u"one");
  view.AddToList(kComboTextFind, u"one");
  view.SetTicked(kMatchCaseF, true);
  view.SetEnabled(kCommand1, false);
  view.SetDefaultButton(kCommand2);
  view.Focus(kComboTextFind);
  view.KeepClearOfSelection();
  view.Minimise();
  view.Close();
  EXPECT_FALSE(view.IsOpen());
  EXPECT_FALSE(world->IsMinimised());
  EXPECT_EQ(view.Text(kComboTextFind), u"");
  EXPECT_FALSE(view.IsTicked(kMatchCaseF));
  view.Open(FindPage::kFind);
  EXPECT_EQ(view.Text(kComboTextFind), u"");
  EXPECT_TRUE(world->IsEnabled(kCommand1));
}

TEST_F(FindDialogContract, HoldsEveryTextLetterForLetter) {
  view.Open(FindPage::kFind);
  for (const std::u16string& text :
       {std::u16string(u"one"), std::u16string(u"  &two & three  "), std::u16string(u"a\nb\n"),
        std::u16string(u"\ta\tb"), std::u16string(u"Übung Ось ✈ 😀"), std::u16string(3'000, u'x'),
        std::u16string()}) {
    for (const FindControl combo : kCombos) {
      view.SetText(combo, text);
      EXPECT_EQ(view.Text(combo), text);
    }
  }
  view.SetText(kCommand1, u"Find next");
  EXPECT_EQ(view.Text(kCommand1), u"Find next");
  EXPECT_EQ(Reported(), Lines{}) << "orders raise no events";
}

TEST_F(FindDialogContract, ListsGrowAtTheEndAndTellCasesApart) {
  view.Open(FindPage::kFind);
  for (const std::u16string text : {u"two", u"One", u"one"}) {
    view.AddToList(kComboTextFind, text);
  }
  EXPECT_EQ(world->List(kComboTextFind), (Texts{u"two", u"One", u"one"}));
  EXPECT_EQ(view.Text(kComboTextFind), u"");
  EXPECT_TRUE(world->List(kComboTextReplaceFind).empty());
  EXPECT_EQ(Reported(), Lines{});
}

TEST_F(FindDialogContract, ReportsTypingAndPicking) {
  view.Open(FindPage::kFind);
  view.AddToList(kComboTextFind, u"first");
  view.AddToList(kComboTextFind, u"second");
  world->Type(kComboTextFind, u"x");
  EXPECT_EQ(view.Text(kComboTextFind), u"x");
  const Lines typed = Reported();
  ASSERT_FALSE(typed.empty());
  for (const std::string& event : typed) EXPECT_EQ(event, "text 1111");
  world->Pick(kComboTextFind, 1);
  EXPECT_EQ(view.Text(kComboTextFind), u"second");
  const Lines picked = Reported();
  ASSERT_FALSE(picked.empty());
  for (const std::string& event : picked) EXPECT_EQ(event, "text 1111");
}

TEST_F(FindDialogContract, TypingALineNumberIsNoEvent) {
  view.Open(FindPage::kGotoLine);
  world->Type(kLineToFind, u"-2.9x");
  EXPECT_EQ(view.Text(kLineToFind), u"-2.9x");
  EXPECT_EQ(Reported(), Lines{});
}

TEST_F(FindDialogContract, ReportsTheButtonsOfThePageOnly) {
  view.Open(FindPage::kFind);
  for (const FindControl button : {kCommand1, kCommand2}) {
    world->Click(button);
    EXPECT_EQ(Reported(), Lines{Clicked(button)});
  }
  for (const FindControl hidden : {kCommand3, kCommand5, kCommand6, kCommand4, kCommand7, kCommand8,
                                   kMatchCaseR, kWholeWordR}) {
    world->Click(hidden);
    EXPECT_EQ(Reported(), Lines{}) << static_cast<int>(hidden);
  }
  EXPECT_FALSE(view.IsTicked(kMatchCaseR));
  view.Open(FindPage::kReplace);
  for (const FindControl button : {kCommand3, kCommand5, kCommand6, kCommand4}) {
    world->Click(button);
    EXPECT_EQ(Reported(), Lines{Clicked(button)});
  }
  view.Open(FindPage::kGotoLine);
  for (const FindControl button : {kCommand7, kCommand8, kCommand9}) {
    world->Click(button);
    EXPECT_EQ(Reported(), Lines{Clicked(button)});
  }
}

TEST_F(FindDialogContract, ABoxHasItsNewTickWhenItIsReported) {
  view.Open(FindPage::kFind);
  world->Click(kMatchCaseF);
  EXPECT_EQ(Reported(), Lines{Clicked(kMatchCaseF)});
  EXPECT_TRUE(view.IsTicked(kMatchCaseF));
  world->Click(kMatchCaseF);
  EXPECT_FALSE(view.IsTicked(kMatchCaseF));
  Reported();
  view.SetTicked(kMatchCaseF, true);
  view.SetTicked(kMatchCaseR, true);
  EXPECT_TRUE(view.IsTicked(kMatchCaseF));
  EXPECT_TRUE(view.IsTicked(kMatchCaseR));
  EXPECT_FALSE(view.IsTicked(kWholeWordF));
  EXPECT_EQ(Reported(), Lines{});
}

TEST_F(FindDialogContract, DisabledButtonsCannotBePressed) {
  view.Open(FindPage::kReplace);
  view.SetEnabled(kCommand5, false);
  EXPECT_FALSE(world->IsEnabled(kCommand5));
  world->Click(kCommand5);
  EXPECT_EQ(Reported(), Lines{});
  view.SetEnabled(kCommand5, true);
  world->Click(kCommand5);
  EXPECT_EQ(Reported(), Lines{Clicked(kCommand5)});
}

TEST_F(FindDialogContract, AButtonStaysDisabledWhileItsPageIsAway) {
  view.Open(FindPage::kReplace);
  view.SetEnabled(kCommand5, false);
  view.Open(FindPage::kFind);
  view.SetEnabled(kCommand6, false);
  view.Open(FindPage::kReplace);
  EXPECT_FALSE(world->IsEnabled(kCommand5));
  EXPECT_FALSE(world->IsEnabled(kCommand6));
  EXPECT_TRUE(world->IsEnabled(kCommand3));
}

TEST_F(FindDialogContract, ReportsAPageThatTheUserChooses) {
  view.Open(FindPage::kFind);
  world->Choose(FindPage::kReplace);
  EXPECT_EQ(world->Page(), FindPage::kReplace);
  world->Choose(FindPage::kGotoLine);
  EXPECT_EQ(Reported(), (Lines{"page 1", "page 2"}));
  world->Choose(FindPage::kGotoLine);
  view.Open(FindPage::kFind);
  EXPECT_EQ(Reported(), Lines{});
}

TEST_F(FindDialogContract, EnterPressesTheDefaultButton) {
  view.Open(FindPage::kFind);
  view.SetDefaultButton(kCommand1);
  view.Focus(kComboTextFind);
  world->PressEnter();
  EXPECT_EQ(Reported(), Lines{Clicked(kCommand1)});
  view.Open(FindPage::kGotoLine);
  view.SetDefaultButton(kCommand7);
  view.Focus(kLineToFind);
  world->PressEnter();
  EXPECT_EQ(Reported(), Lines{Clicked(kCommand7)});
}

TEST_F(FindDialogContract, EscapeIsTheNinthButtonOnEveryPage) {
  for (const FindPage page : {FindPage::kFind, FindPage::kReplace, FindPage::kGotoLine}) {
    view.Open(page);
    world->PressEscape();
    EXPECT_EQ(Reported(), Lines{Clicked(kCommand9)});
    EXPECT_TRUE(view.IsOpen()) << "closing it is the program's decision";
  }
}

TEST_F(FindDialogContract, ReportsTheKeyThatRepeatsTheSearch) {
  view.Open(FindPage::kFind);
  view.Focus(kComboTextFind);
  world->PressFindAgain();
  EXPECT_EQ(Reported(), Lines{"find again"});
}

TEST_F(FindDialogContract, FocusGoesToControlsThatCanBeUsed) {
  view.Open(FindPage::kReplace);
  view.SetEnabled(kCommand5, false);
  for (const FindControl control :
       {kComboTextReplaceFind, kCommand3, kComboTextReplaceWith, kCommand6}) {
    view.Focus(control);
    EXPECT_EQ(world->FocusedControl(), control);
  }
  for (const FindControl control : {kComboTextFind, kCommand1, kCommand5, kLineToFind}) {
    view.Focus(control);
    EXPECT_EQ(world->FocusedControl(), kCommand6);
  }
}

TEST_F(FindDialogContract, MinimisesAndComesBackWithTheTextsItHad) {
  view.Open(FindPage::kFind);
  view.SetText(kComboTextFind, u"one");
  view.Focus(kCommand1);
  view.Minimise();
  EXPECT_TRUE(view.IsOpen());
  EXPECT_TRUE(world->IsMinimised());
  view.Focus(kComboTextFind);
  view.KeepClearOfSelection();
  EXPECT_TRUE(world->IsMinimised());
  view.Open(FindPage::kReplace);
  EXPECT_FALSE(world->IsMinimised());
  EXPECT_EQ(world->Page(), FindPage::kReplace);
  EXPECT_EQ(view.Text(kComboTextFind), u"one");
}

TEST_F(FindDialogContract, MayBeClosedByWhatItReports) {
  FindDialogView::Events closing;
  closing.clicked = [this](FindControl) { view.Close(); };
  view.Connect(closing);
  for (const FindControl button : {kCommand2, kMatchCaseF, kCommand9}) {
    view.Open(FindPage::kFind);
    world->Click(button);
    EXPECT_FALSE(view.IsOpen());
  }
  view.Open(FindPage::kFind);
  world->PressEscape();
  EXPECT_FALSE(view.IsOpen());
}

TEST_F(FindDialogContract, TellsMessagesAlsoWhenMinimisedOrClosed) {
  const Message exclamation{u"\"one\" not found in \"a & b\"", u"Text not found",
                            BoxStyle::kExclamation};
  const Message information{u"3 replacements were made in a.tmj", u"Replaced 'em",
                            BoxStyle::kInformation};
  view.Open(FindPage::kFind);
  view.Tell(exclamation);
  view.Minimise();
  view.Tell(information);
  view.Close();
  view.Tell(exclamation);
  EXPECT_EQ(world->Boxes(), (std::vector<Message>{exclamation, information, exclamation}));
}

TEST_F(FindDialogContract, ReportsThePointer) {
  view.Open(FindPage::kFind);
  world->MoveMouse();
  const Lines moved = Reported();
  ASSERT_FALSE(moved.empty());
  for (const std::string& event : moved) EXPECT_EQ(event, "mouse");
}

}  // namespace
}  // namespace deck
