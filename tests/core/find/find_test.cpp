#include <gtest/gtest.h>

#include <new>

#include "platform/strings.h"
#include "tests/core/find/find_fixture.h"

namespace deck {
namespace {

using enum FindControl;
using Texts = std::vector<std::u16string>;
using Messages = std::vector<Message>;

const Message kNothingToSearchFor{u"You haven't specified the text to search for",
                                  u"Please enter text to search", BoxStyle::kExclamation};

class FindTest : public FindFixture {};

TEST_F(FindTest, AsksForATextWhenThereIsNone) {
  Box().Load(u"abc");
  OpenFind(u"");
  dialog.Click(kCommand1);
  EXPECT_EQ(Told(), Messages{kNothingToSearchFor});
  EXPECT_TRUE(dialog.List(kComboTextFind).empty());
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
}

TEST_F(FindTest, SelectsOneMatchAfterTheOtherFromTheTop) {
  Box().Load(u"one two one");
  Box().Select({5, 0});
  OpenFind(u"one");
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
  EXPECT_EQ(Caption(kCommand1), u"Find next");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
  EXPECT_TRUE(Told().empty());
}

TEST_F(FindTest, GivesTheFocusToTheTextAndKeepsClearOfTheMatch) {
  Box().Load(u"x one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(dialog.timesKeptClear(), 1);
}

TEST_F(FindTest, MakesTheFindButtonTheDefaultOne) {
  Box().Load(u"x one one");
  OpenFind(u"one");
  EXPECT_EQ(dialog.defaultButton(), kCommand1);
  dialog.SetDefaultButton(kCommand2);
  dialog.Click(kCommand1);
  EXPECT_EQ(dialog.defaultButton(), kCommand1);
  dialog.PressEnter();
  EXPECT_EQ(Box().Selection(), (TextSpan{6, 3}));
}

TEST_F(FindTest, ReportsTheEndThenStartsAgainAtTheTop) {
  Box().Load(u"one two one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  dialog.Click(kCommand1);
  dialog.Click(kCommand1);
  EXPECT_EQ(Told(), (Messages{{u"No further instances of \"one\" found in \"a.tmj\"",
                               u"You found 'em all!", BoxStyle::kExclamation}}));
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  EXPECT_EQ(dialog.focus(), kComboTextFind);
  EXPECT_EQ(Box().Selection(), (TextSpan{11, 0})) << "the caret stands behind the last match";
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
}

TEST_F(FindTest, ReportsATextThatIsNotThere) {
  Box().Load(u"one two one");
  Box().Select({4, 3});
  OpenFind(u"three");
  dialog.Click(kCommand1);
  EXPECT_EQ(
      Told(),
      (Messages{{u"\"three\" not found in \"a.tmj\"", u"Text not found", BoxStyle::kExclamation}}));
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  EXPECT_EQ(dialog.focus(), kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
  EXPECT_EQ(dialog.timesKeptClear(), 0);
}

TEST_F(FindTest, NamesTheTabInItsMessages) {
  Box().Load(u"x");
  AddDocument(u"C:\\other\\b & c.tmm", u"y");
  OpenFind(u"x");
  dialog.Click(kCommand1);
  EXPECT_EQ(Told()[0].text, u"\"x\" not found in \"b & c.tmm\"");
}

TEST_F(FindTest, ReportsAnEmptyDocumentAfterKeepingTheText) {
  OpenFind(u"one");
  dialog.Click(kCommand1);
  EXPECT_EQ(
      Told(),
      (Messages{{u"a.tmj has no text to highlight.", u"No text in file", BoxStyle::kExclamation}}));
  EXPECT_EQ(dialog.List(kComboTextFind), Texts{u"one"});
}

TEST_F(FindTest, KeepsEachTextOnceAndTellsCasesApart) {
  Box().Load(u"one One");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  dialog.Click(kCommand1);
  for (const std::u16string text : {u"One", u"one", u"two"}) {
    dialog.Type(kComboTextFind, text);
    dialog.Click(kCommand1);
  }
  EXPECT_EQ(dialog.List(kComboTextFind), (Texts{u"one", u"One", u"two"}));
}

TEST_F(FindTest, TheListOfTextsHasNoLimit) {
  Box().Load(u"x");
  find.mnuFRGArray(0);
  Texts expected;
  for (int number = 0; number < 300; ++number) {
    expected.push_back(Decimal(number));
    dialog.Type(kComboTextFind, expected.back());
    dialog.Click(kCommand1);
  }
  EXPECT_EQ(dialog.List(kComboTextFind), expected);
}

struct OptionCase {
  bool matchCase;
  bool wholeWord;
  std::u16string pattern;
  std::u16string text;
  std::vector<int> found;
};

class Options : public FindFixture, public testing::WithParamInterface<OptionCase> {
 protected:
  std::vector<int> FoundWith(FindControl button) {
    std::vector<int> found;
    for (dialog.Click(button); Told().empty(); dialog.Click(button)) {
      found.push_back(Box().Selection().start);
    }
    return found;
  }
};

TEST_P(Options, DecideWhatIsFoundOnBothPages) {
  const OptionCase& given = GetParam();
  Box().Load(given.text);
  OpenFind(given.pattern);
  if (given.matchCase) dialog.Click(kMatchCaseF);
  if (given.wholeWord) dialog.Click(kWholeWordF);
  EXPECT_EQ(FoundWith(kCommand1), given.found);
  OpenReplace(given.pattern, u"");
  EXPECT_EQ(FoundWith(kCommand3), given.found);
}

INSTANTIATE_TEST_SUITE_P(
    Combinations, Options,
    testing::Values(OptionCase{false, false, u"use", u"USE use reuse", {0, 4, 10}},
                    OptionCase{true, false, u"use", u"USE use reuse", {4, 10}},
                    OptionCase{false, true, u"use", u"USE use reuse", {0, 4}},
                    OptionCase{true, true, u"use", u"USE use reuse", {4}},
                    OptionCase{false, true, u"ab", u"abc ab_ ab1 cab /ab/ ab", {17, 21}},
                    OptionCase{false, false, u"übung", u"Übung ÜBUNG", {0, 6}},
                    OptionCase{true, false, u"übung", u"Übung übung", {6}},
                    OptionCase{false, true, u"use", u"useé éuse жuse use", {15}},
                    OptionCase{false, true, u"été", u"ÉTÉ étés été", {0, 9}},
                    OptionCase{true, true, u"Ось", u"ось Ось Осью", {4}},
                    OptionCase{false, false, u"aa", u"aaaaa", {0, 2}},
                    OptionCase{false, false, u"b\nc", u"a\nb\nc\n", {2}},
                    OptionCase{false, true, u"/I", u"/I /IN x/I (/I)", {0, 12}}));

TEST_F(FindTest, FindsATextThatReachesToTheEnd) {
  Box().Load(u"x end");
  OpenFind(u"end");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 3}));
  dialog.Type(kComboTextFind, u"ends");
  dialog.Click(kCommand1);
  EXPECT_EQ(Told()[0].title, u"Text not found");
}

struct LineCase {
  std::u16string text;
  std::u16string pattern;
  std::u16string panel;
};

// Behind a match that ends its line that is the next line, if there is one.
class LineShown : public FindFixture, public testing::WithParamInterface<LineCase> {};

TEST_P(LineShown, IsThatOfTheCharacterBehindTheMatch) {
  Box().Load(GetParam().text);
  OpenFind(GetParam().pattern);
  dialog.Click(kCommand1);
  EXPECT_EQ(Line(), GetParam().panel);
}

INSTANTIATE_TEST_SUITE_P(Places, LineShown,
                         testing::Values(LineCase{u"one\ntwo\nthree", u"tw", u"Line no: 2"},
                                         LineCase{u"one\ntwo\nthree", u"two", u"Line no: 3"},
                                         LineCase{u"one\ntwo\nthree", u"two\n", u"Line no: 3"},
                                         LineCase{u"one\ntwo\n\nfour", u"two", u"Line no: 3"},
                                         LineCase{u"one\ntwo\n\nfour", u"two\n", u"Line no: 3"},
                                         LineCase{u"one\ntwo\nthree", u"three", u"Line no: 3"},
                                         LineCase{u"one\ntwo\n", u"two", u"Line no: 3"},
                                         LineCase{u"one\ntwo\n", u"two\n", u"Line no: 3"}));

TEST_F(FindTest, TypingOrPickingStartsAgain) {
  Box().Load(u"one one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  EXPECT_EQ(Caption(kCommand1), u"Find next");
  dialog.Type(kComboTextFind, u"on");
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  dialog.Click(kCommand1);
  dialog.Pick(kComboTextFind, 0);
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
}

TEST_F(FindTest, ATextThatAScriptPutThereStartsAgain) {
  Box().Load(u"two one two");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  dialog.SetText(kComboTextFind, u"two");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
}

TEST_F(FindTest, AnOptionCountsFromWhereTheSearchIs) {
  Box().Load(u"one ONE one ones one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  dialog.Click(kMatchCaseF);
  EXPECT_EQ(Caption(kCommand1), u"Find next");
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
  dialog.Click(kWholeWordF);
  dialog.Click(kCommand1);
  EXPECT_EQ(Box().Selection(), (TextSpan{17, 3}));
}

TEST_F(FindTest, OptionsAreTheSameOnBothPages) {
  find.mnuFRGArray(0);
  dialog.Click(kMatchCaseF);
  EXPECT_TRUE(dialog.IsTicked(kMatchCaseR));
  EXPECT_FALSE(dialog.IsTicked(kWholeWordR));
  dialog.Click(kWholeWordF);
  EXPECT_TRUE(dialog.IsTicked(kWholeWordR));
  dialog.Choose(FindPage::kReplace);
  dialog.Click(kMatchCaseR);
  EXPECT_FALSE(dialog.IsTicked(kMatchCaseF));
  EXPECT_TRUE(dialog.IsTicked(kWholeWordF));
  dialog.Click(kWholeWordR);
  EXPECT_FALSE(dialog.IsTicked(kWholeWordF));
}

TEST_F(FindTest, GoesOnFromTheSamePositionInAnotherDocument) {
  Box().Load(u"one one one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  FakeEditBox& other = AddDocument(u"C:\\b.tmj", u"oneone");
  dialog.Click(kCommand1);
  EXPECT_EQ(other.Selection(), (TextSpan{3, 3}));
}

TEST_F(FindTest, TakesThePositionForTheEndOfAShorterDocument) {
  Box().Load(u"xxxxxxxx one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  FakeEditBox& other = AddDocument(u"C:\\b.tmj", u"one");
  dialog.Click(kCommand1);
  EXPECT_EQ(Told()[0].title, u"You found 'em all!");
  EXPECT_EQ(other.Selection(), (TextSpan{3, 0}));
}

TEST_F(FindTest, FollowsTextThatTheUserChangedMeanwhile) {
  Box().Load(u"one two one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  Box().Load(u"on");
  dialog.Click(kCommand1);
  EXPECT_EQ(Told()[0].title, u"You found 'em all!");
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 0}));
}

TEST_F(FindTest, SurvivesADocumentThatIsClosedWhileAMessageIsShown) {
  AddDocument(u"C:\\b.tmj", u"one");
  OpenFind(u"two");
  prompts.onShow = [this](const Message&) {
    documents.Remove(1);
    documents.Select(0);
    find.Close();
  };
  dialog.Click(kCommand1);
  EXPECT_EQ(Told().size(), 1u);
  EXPECT_EQ(documents.Count(), 1);
}

// A box that runs out of memory.
class FailingBox : public FakeEditBox {
 public:
  using FakeEditBox::FakeEditBox;
  std::u16string Text() const override {
    if (fails) throw std::bad_alloc();
    return FakeEditBox::Text();
  }

  bool fails = false;
};

TEST_F(FindTest, ACommandThatFailsTellsNothingAndLeavesTheDialogUsable) {
  FailingBox* box = nullptr;
  window.makeEditBox = [&box](EditBox::Events events) {
    auto made = std::make_unique<FailingBox>(std::move(events));
    box = made.get();
    return made;
  };
  AddDocument(u"C:\\b.tmj", u"one one");
  OpenReplace(u"one", u"1");
  dialog.Click(kCommand3);
  for (const FindControl button : {kCommand3, kCommand5, kCommand6}) {
    box->fails = true;
    // The window's procedure ends it there.
    EXPECT_THROW(dialog.Click(button), std::bad_alloc);
    box->fails = false;
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_TRUE(Told().empty());
    EXPECT_EQ(Caption(kCommand3), u"Find next");
    EXPECT_EQ(box->Text(), u"one one");
  }
  dialog.Click(kCommand3);
  EXPECT_EQ(box->Selection(), (TextSpan{4, 3}));
}

TEST_F(FindTest, DoesNotMarkTheDocumentAsModified) {
  Box().Load(u"one");
  OpenFind(u"one");
  dialog.Click(kCommand1);
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
}

}  // namespace
}  // namespace deck
