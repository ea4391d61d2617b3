#include <gtest/gtest.h>

#include "find/find_texts.h"
#include "tests/core/find/find_fixture.h"

namespace deck {
namespace {

using enum FindControl;
using Texts = std::vector<std::u16string>;
using Messages = std::vector<Message>;

Message Replaced(std::u16string_view count, std::u16string_view file = u"a.tmj") {
  return {std::u16string(count) + u" replacements were made in " + std::u16string(file),
          u"Replaced 'em all for you. Now buy me a drink", BoxStyle::kInformation};
}

class ReplaceTest : public FindFixture {
 protected:
  void FindNext() { dialog.Click(kCommand3); }
  bool CanReplace() const { return dialog.IsEnabled(kCommand5) && dialog.IsEnabled(kCommand6); }
  bool CannotReplace() const {
    return !dialog.IsEnabled(kCommand5) && !dialog.IsEnabled(kCommand6);
  }
};

TEST_F(ReplaceTest, FindsWithTheSameRulesAsTheFindPage) {
  Box().Load(u"one\ntwo\none");
  OpenReplace(u"one", u"1");
  FindNext();
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
  EXPECT_EQ(Caption(kCommand3), u"Find next");
  EXPECT_EQ(Caption(kCommand1), u"Find first");
  EXPECT_EQ(dialog.defaultButton(), kCommand3);
  EXPECT_TRUE(Box().focused());
  FindNext();
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
  EXPECT_EQ(Line(), u"Line no: 3");
  FindNext();
  EXPECT_EQ(Told(), (Messages{{u"No further instances of \"one\" found in \"a.tmj\"",
                               u"You found 'em all!", BoxStyle::kExclamation}}));
  EXPECT_EQ(dialog.focus(), kComboTextReplaceFind);
  EXPECT_EQ(Caption(kCommand3), u"Find first");
}

TEST_F(ReplaceTest, TellsOfAnEmptySearchTextAndAnEmptyDocument) {
  OpenReplace(u"", u"x");
  FindNext();
  OpenReplace(u"one", u"x");
  FindNext();
  EXPECT_EQ(Told(), (Messages{{u"You haven't specified the text to search for",
                               u"Please enter text to search", BoxStyle::kExclamation},
                              {u"a.tmj has no text to highlight.", u"No text in joystick file",
                               BoxStyle::kExclamation}}));
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), Texts{u"one"});
}

TEST_F(ReplaceTest, TellsOfATextThatIsNotThereAndGoesToTheFindButton) {
  Box().Load(u"abc");
  OpenReplace(u"one", u"x");
  FindNext();
  EXPECT_EQ(
      Told(),
      (Messages{{u"\"one\" not found in \"a.tmj\"", u"Text not found", BoxStyle::kExclamation}}));
  EXPECT_EQ(dialog.focus(), kCommand3);
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceTest, CanReplaceOnlyWhileAMatchStands) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"1");
  EXPECT_TRUE(CannotReplace()) << "as the dialog opens";
  FindNext();
  EXPECT_TRUE(CanReplace());
  dialog.Click(kCommand5);
  EXPECT_TRUE(CannotReplace()) << "after one replacement";
  FindNext();
  EXPECT_TRUE(CanReplace());
  dialog.Click(kCommand6);
  EXPECT_TRUE(CannotReplace()) << "after replacing all";
  dialog.Type(kComboTextReplaceFind, u"1");
  FindNext();
  FindNext();
  EXPECT_TRUE(CanReplace());
  FindNext();
  EXPECT_TRUE(CannotReplace()) << "when nothing more was found";
  Told();
  FindNext();
  EXPECT_TRUE(CanReplace());
  dialog.Type(kComboTextReplaceFind, u"2");
  FindNext();
  EXPECT_TRUE(CannotReplace()) << "when nothing was found";
}

TEST_F(ReplaceTest, CannotReplaceWhatTheFindPageHasFound) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"1");
  FindNext();
  EXPECT_TRUE(CanReplace());
  dialog.Choose(FindPage::kFind);
  dialog.Type(kComboTextFind, u"one");
  dialog.Click(kCommand1);
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceTest, CannotReplaceInAnEmptyDocument) {
  Box().Load(u"one");
  OpenReplace(u"one", u"1");
  FindNext();
  AddDocument(u"C:\\b.tmj", u"");
  FindNext();
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceTest, ReplacesTheMatchAndWaitsForTheNextFind) {
  Box().Load(u"one two one");
  OpenReplace(u"one", u"three");
  FindNext();
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u"three two one");
  EXPECT_EQ(Box().Selection(), (TextSpan{5, 0})) << "no search goes on";
  EXPECT_EQ(dialog.focus(), kCommand3) << "the next one to press";
  EXPECT_EQ(Caption(kCommand3), u"Find next");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  FindNext();
  EXPECT_EQ(Box().Selection(), (TextSpan{10, 3}));
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"one two one");
}

TEST_F(ReplaceTest, SkipsNoAdjacentMatch) {
  Box().Load(u"abab");
  OpenReplace(u"ab", u"c");
  FindNext();
  dialog.Click(kCommand5);
  FindNext();
  EXPECT_EQ(Box().Selection(), (TextSpan{1, 2}));
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u"cc");
  FindNext();
  EXPECT_EQ(Told()[0].title, u"You found 'em all!");
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 0}));
}

TEST_F(ReplaceTest, NeverFindsWhatAReplacementBroughtIn) {
  Box().Load(u"aaa");
  OpenReplace(u"a", u"aa");
  for (int i = 0; i < 3; ++i) {
    FindNext();
    dialog.Click(kCommand5);
  }
  EXPECT_EQ(Box().Text(), u"aaaaaa");
  FindNext();
  EXPECT_EQ(Told()[0].title, u"You found 'em all!");
}

TEST_F(ReplaceTest, DeletesTheMatchForAnEmptyReplacement) {
  Box().Load(u"one two one");
  OpenReplace(u"one", u"");
  FindNext();
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u" two one");
  EXPECT_TRUE(dialog.List(kComboTextReplaceWith).empty());
  FindNext();
  EXPECT_EQ(Box().Selection(), (TextSpan{5, 3}));
}

TEST_F(ReplaceTest, KeepsEachReplacementOnceAndTellsCasesApart) {
  Box().Load(u"a a a a");
  find.mnuFRGArray(1);
  dialog.Type(kComboTextReplaceFind, u"a");
  for (const std::u16string with : {u"x", u"X", u"x", u""}) {
    dialog.Type(kComboTextReplaceWith, with);
    FindNext();
    dialog.Click(kCommand5);
  }
  EXPECT_EQ(dialog.List(kComboTextReplaceWith), (Texts{u"x", u"X"}));
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), Texts{u"a"});
  EXPECT_TRUE(dialog.List(kComboTextFind).empty());
}

TEST_F(ReplaceTest, TypingAReplacementDoesNotStartTheSearchAgain) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"1");
  FindNext();
  dialog.Type(kComboTextReplaceWith, u"2");
  EXPECT_EQ(Caption(kCommand3), u"Find next");
  EXPECT_TRUE(CanReplace());
  dialog.Type(kComboTextReplaceFind, u"on");
  EXPECT_EQ(Caption(kCommand3), u"Find first");
}

// ---- What is not the match any more stays as it is.

TEST_F(ReplaceTest, LeavesAnotherDocumentAlone) {
  Box().Load(u"one two");
  OpenReplace(u"one", u"1");
  FindNext();
  FakeEditBox& other = AddDocument(u"C:\\b.tmj", u"one two");
  other.Select({0, 3});
  dialog.Click(kCommand5);
  EXPECT_EQ(other.Text(), u"one two");
  EXPECT_TRUE(CannotReplace());
  EXPECT_TRUE(dialog.List(kComboTextReplaceWith).empty());
  documents.Select(0);
  EXPECT_EQ(Box().Text(), u"one two");
}

TEST_F(ReplaceTest, LeavesAnotherSelectionAlone) {
  Box().Load(u"one two");
  OpenReplace(u"one", u"1");
  for (const TextSpan elsewhere : {TextSpan{4, 3}, TextSpan{0, 2}, TextSpan{3, 0}}) {
    FindNext();
    Box().Select(elsewhere);
    EXPECT_TRUE(dialog.IsEnabled(kCommand5));
    dialog.Click(kCommand5);
    EXPECT_EQ(Box().Text(), u"one two");
    EXPECT_EQ(Box().Selection(), elsewhere);
    EXPECT_TRUE(CannotReplace());
    dialog.Type(kComboTextReplaceFind, u"one");
  }
}

TEST_F(ReplaceTest, LeavesTheSameTextInAnotherPlaceAlone) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"1");
  FindNext();
  Box().Select({4, 3});
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u"one one");
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceTest, LeavesTextAloneThatTookThePlaceOfTheMatch) {
  Box().Load(u"one two");
  OpenReplace(u"one", u"1");
  FindNext();
  Box().Type(u"six");
  Box().Select({0, 3});
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u"six two");
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceTest, LeavesANewDocumentInTheSamePlaceAlone) {
  Box().Load(u"one two");
  OpenReplace(u"one", u"1");
  FindNext();
  documents.Empty(0);
  Box().Load(u"one two");
  Box().Select({0, 3});
  dialog.Click(kCommand5);
  EXPECT_EQ(Box().Text(), u"one two");
}

// ---- Replace all.

class ReplaceAllTest : public ReplaceTest {
 protected:
  // Presses Replace all, which has to be enabled by a find first.
  void ReplaceAll() {
    FindNext();
    dialog.Click(kCommand6);
  }
};

TEST_F(ReplaceAllTest, ReplacesEveryMatchAndTellsTheirNumber) {
  Box().Load(u"one two one\none");
  OpenReplace(u"one", u"1");
  ReplaceAll();
  EXPECT_EQ(Box().Text(), u"1 two 1\n1");
  EXPECT_EQ(Told(), Messages{Replaced(u"3")});
  EXPECT_EQ(Caption(kCommand3), u"Find first");
  EXPECT_EQ(Box().Selection(), (TextSpan{9, 0})) << "behind the last replacement";
  EXPECT_EQ(dialog.focus(), kCommand3);
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
}

TEST_F(ReplaceAllTest, IsTakenBackByOneUndo) {
  Box().Load(u"one two one\none");
  OpenReplace(u"one", u"1");
  ReplaceAll();
  EXPECT_EQ(Box().undoSteps(), 1);
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"one two one\none");
}

TEST_F(ReplaceAllTest, StartsAtTheTopWhereverTheSearchIs) {
  Box().Load(u"one two one one");
  OpenReplace(u"one", u"1");
  FindNext();
  FindNext();
  ReplaceAll();
  EXPECT_EQ(Box().Text(), u"1 two 1 1");
}

TEST_F(ReplaceAllTest, EndsForAReplacementThatHoldsTheText) {
  Box().Load(u"aaa");
  OpenReplace(u"a", u"aa");
  ReplaceAll();
  EXPECT_EQ(Box().Text(), u"aaaaaa");
  EXPECT_EQ(Told(), Messages{Replaced(u"3")});
}

TEST_F(ReplaceAllTest, DeletesEveryMatchForAnEmptyReplacement) {
  Box().Load(u"xone twoonex one");
  OpenReplace(u"one", u"");
  ReplaceAll();
  EXPECT_EQ(Box().Text(), u"x twox ");
  EXPECT_EQ(Told(), Messages{Replaced(u"3")});
}

TEST_F(ReplaceAllTest, CountsWholeWordsOnly) {
  Box().Load(u"ab abc ab_ ab AB");
  OpenReplace(u"ab", u"x");
  dialog.Click(kWholeWordR);
  dialog.Click(kMatchCaseR);
  ReplaceAll();
  EXPECT_EQ(Box().Text(), u"x abc ab_ x AB");
  EXPECT_EQ(Told(), Messages{Replaced(u"2")});
}

TEST_F(ReplaceAllTest, TellsNoneWhenThereIsNone) {
  Box().Load(u"one two");
  Box().Select({3, 1});
  OpenReplace(u"one", u"x");
  FindNext();
  dialog.Type(kComboTextReplaceFind, u"three");
  dialog.Click(kCommand6);
  EXPECT_EQ(Told(), Messages{Replaced(u"0")});
  EXPECT_EQ(Box().Text(), u"one two");
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
}

TEST_F(ReplaceAllTest, ChangesNothingWhenTheReplacementIsTheText) {
  Box().Load(u"one one");
  OpenReplace(u"one", u"one");
  dialog.Click(kMatchCaseR);
  ReplaceAll();
  EXPECT_EQ(Told(), Messages{Replaced(u"2")});
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
}

TEST_F(ReplaceAllTest, TellsOfAnEmptySearchText) {
  Box().Load(u"one");
  OpenReplace(u"one", u"x");
  FindNext();
  dialog.Type(kComboTextReplaceFind, u"");
  dialog.Click(kCommand6);
  EXPECT_EQ(Told(), Messages{NothingToSearchFor()});
  EXPECT_EQ(Box().Text(), u"one");
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), Texts{u"one"});
}

TEST_F(ReplaceAllTest, CallsAnEmptyDocumentAFile) {
  Box().Load(u"one");
  OpenReplace(u"one", u"x");
  FindNext();
  AddDocument(u"C:\\b.tmj", u"");
  dialog.Type(kComboTextReplaceFind, u"two");
  dialog.Click(kCommand6);
  EXPECT_EQ(
      Told(),
      (Messages{{u"b.tmj has no text to highlight.", u"No text in file", BoxStyle::kExclamation}}));
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), (Texts{u"one", u"two"}));
  EXPECT_TRUE(CannotReplace());
}

TEST_F(ReplaceAllTest, KeepsTheTextButNotTheReplacement) {
  Box().Load(u"one two");
  OpenReplace(u"one", u"x");
  FindNext();
  dialog.Type(kComboTextReplaceFind, u"two");
  dialog.Click(kCommand6);
  EXPECT_EQ(dialog.List(kComboTextReplaceFind), (Texts{u"one", u"two"}));
  EXPECT_TRUE(dialog.List(kComboTextReplaceWith).empty());
}

TEST_F(ReplaceAllTest, WorksOnTheDocumentThatIsSelectedNow) {
  Box().Load(u"one");
  OpenReplace(u"one", u"x");
  FindNext();
  FakeEditBox& other = AddDocument(u"C:\\b.tmj", u"one one");
  dialog.Click(kCommand6);
  EXPECT_EQ(other.Text(), u"x x");
  EXPECT_EQ(Told(), Messages{Replaced(u"2", u"b.tmj")});
  EXPECT_EQ(documents[0].text1->Text(), u"one");
}

TEST_F(ReplaceAllTest, CountsUpToTheLargestNumberAndReplacesOn) {
  Box().Load(std::u16string(40'000, u'a'));
  OpenReplace(u"a", u"b");
  ReplaceAll();
  EXPECT_EQ(Told(), Messages{Replaced(u"32767")});
  EXPECT_EQ(Box().Text(), std::u16string(40'000, u'b'));
}

TEST_F(ReplaceAllTest, SurvivesADocumentThatIsClosedWhileTheMessageIsShown) {
  AddDocument(u"C:\\b.tmj", u"one");
  OpenReplace(u"one", u"x");
  FindNext();
  prompts.onShow = [this](const Message&) {
    documents.Remove(1);
    documents.Select(0);
    find.Close();
  };
  dialog.Click(kCommand6);
  EXPECT_EQ(Told(), Messages{Replaced(u"1", u"b.tmj")});
}

}  // namespace
}  // namespace deck
