#include "platform/undoable_text.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/text_edits.h"

namespace deck {
namespace {

class UndoableTextTest : public testing::Test {
 protected:
  void Do(TextSpan span, std::u16string replacement, EditKind kind = EditKind::kOther) {
    text_.Change({{span, std::move(replacement)}}, span, kind);
  }

  void TypeAt(int position, std::u16string_view characters) {
    for (const char16_t character : characters) {
      Do({position++, 0}, std::u16string(1, character), EditKind::kTyping);
    }
  }

  std::u16string AfterUndo() {
    text_.Undo({});
    return text_.text();
  }

  UndoableText text_;
};

TEST_F(UndoableTextTest, HasNothingToTakeBackAtFirst) {
  EXPECT_FALSE(text_.CanUndo());
  EXPECT_FALSE(text_.CanRedo());
  EXPECT_FALSE(text_.Undo({}).has_value());
  EXPECT_FALSE(text_.Redo({}).has_value());
}

TEST_F(UndoableTextTest, TakesBackABatchInOneStepAndSaysHow) {
  text_.Reset(u"one two three");
  text_.Change({{{0, 3}, u"1"}, {{8, 5}, u"3"}}, {4, 3}, EditKind::kOther);
  EXPECT_EQ(text_.text(), u"1 two 3");
  const std::optional<UndoableText::Step> step = text_.Undo({6, 1});
  ASSERT_TRUE(step.has_value());
  EXPECT_EQ(Edited(u"1 two 3", step->edits), u"one two three");
  EXPECT_EQ(step->selection, (TextSpan{4, 3}));
  EXPECT_EQ(text_.text(), u"one two three");
  EXPECT_FALSE(text_.CanUndo());
}

TEST_F(UndoableTextTest, DoesAgainWhatWasTakenBack) {
  text_.Reset(u"abc");
  Do({0, 1}, u"x");
  text_.Undo({2, 1});
  const std::optional<UndoableText::Step> step = text_.Redo({});
  ASSERT_TRUE(step.has_value());
  EXPECT_EQ(text_.text(), u"xbc");
  EXPECT_EQ(step->selection, (TextSpan{2, 1}));
  EXPECT_EQ(AfterUndo(), u"abc");
}

TEST_F(UndoableTextTest, ForgetsWhatWasTakenBackAfterANewEdit) {
  Do({0, 0}, u"x");
  text_.Undo({});
  Do({0, 0}, u"y");
  EXPECT_FALSE(text_.CanRedo());
}

TEST_F(UndoableTextTest, ResetForgetsTheHistory) {
  Do({0, 0}, u"x");
  text_.Undo({});
  Do({0, 0}, u"x");
  text_.Reset(u"new");
  EXPECT_FALSE(text_.CanUndo());
  EXPECT_FALSE(text_.CanRedo());
  EXPECT_EQ(text_.text(), u"new");
}

TEST_F(UndoableTextTest, TakesBackTypedCharactersTogether) {
  text_.Reset(u"<>");
  TypeAt(1, u"typed");
  EXPECT_EQ(AfterUndo(), u"<>");
  EXPECT_FALSE(text_.CanUndo());
}

TEST_F(UndoableTextTest, BeginsATypedStepAtEachLineBreakAndAfterTheCaretMoved) {
  TypeAt(0, u"one\ntwo");
  text_.EndRun();
  TypeAt(7, u"!");
  TypeAt(0, u"?");
  EXPECT_EQ(AfterUndo(), u"one\ntwo!");
  EXPECT_EQ(AfterUndo(), u"one\ntwo");
  EXPECT_EQ(AfterUndo(), u"one");
  EXPECT_EQ(AfterUndo(), u"");
}

TEST_F(UndoableTextTest, TakesBackATypedOverSelectionWithTheTextThatFollowed) {
  text_.Reset(u"old text");
  Do({0, 3}, u"n", EditKind::kTyping);
  TypeAt(1, u"ew");
  EXPECT_EQ(text_.text(), u"new text");
  EXPECT_EQ(AfterUndo(), u"old text");
}

TEST_F(UndoableTextTest, TakesBackOvertypedCharactersTogether) {
  text_.Reset(u"abc");
  Do({0, 1}, u"1", EditKind::kTyping);
  Do({1, 1}, u"2", EditKind::kTyping);
  EXPECT_EQ(AfterUndo(), u"abc");
}

TEST_F(UndoableTextTest, TakesBackCharactersErasedOneByOneTogether) {
  text_.Reset(u"abcdef");
  Do({3, 1}, u"", EditKind::kErasing);
  Do({2, 1}, u"", EditKind::kErasing);
  Do({2, 1}, u"", EditKind::kErasing);
  EXPECT_EQ(text_.text(), u"abf");
  EXPECT_EQ(AfterUndo(), u"abcdef");
  EXPECT_FALSE(text_.CanUndo());
}

TEST_F(UndoableTextTest, KeepsTypingAndErasingApart) {
  TypeAt(0, u"ab");
  Do({1, 1}, u"", EditKind::kErasing);
  TypeAt(1, u"c");
  EXPECT_EQ(AfterUndo(), u"a");
  EXPECT_EQ(AfterUndo(), u"ab");
  EXPECT_EQ(AfterUndo(), u"");
}

TEST_F(UndoableTextTest, DoesNotAddTypingToAStepThatWasUndoneOrRedone) {
  TypeAt(0, u"a");
  TypeAt(1, u"\nb");
  text_.Undo({});
  TypeAt(1, u"c");
  EXPECT_EQ(AfterUndo(), u"a");
  text_.Redo({});
  TypeAt(2, u"d");
  EXPECT_EQ(AfterUndo(), u"ac");
}

TEST_F(UndoableTextTest, CarriesOutStepsEachOnTheTextThatTheOneBeforeLeft) {
  text_.Reset(u"abcdef");
  Do({6, 0}, u"!");
  text_.Undo({});
  const UndoableText::CarriedOut carriedOut = text_.ChangeStepByStep(
      {{{4, 2}, u"\r\n"}, {{0, 1}, u"xyz"}, {{99, 1}, u"?"}, {{1, 1}, u"y"}, {{-3, 4}, u""}});
  EXPECT_EQ(text_.text(), u"yzbcd\n?");
  EXPECT_EQ(carriedOut.edits.size(), 4u) << "y in place of y is no step";
  EXPECT_EQ(carriedOut.caret, 0);
  EXPECT_FALSE(text_.CanRedo());
  EXPECT_EQ(AfterUndo(), u"xyzbcd\n?");
  EXPECT_EQ(AfterUndo(), u"xyzbcd\n");
  EXPECT_EQ(AfterUndo(), u"abcd\n");
  const std::optional<UndoableText::Step> first = text_.Undo({});
  EXPECT_EQ(text_.text(), u"abcdef");
  EXPECT_EQ(first->selection, (TextSpan{4, 2}));
  EXPECT_FALSE(text_.CanUndo());
}

TEST_F(UndoableTextTest, TellsTheCaretBehindTheLastStepAlsoWhenThatChangesNothing) {
  text_.Reset(u"abc");
  EXPECT_EQ(text_.ChangeStepByStep({}).caret, std::nullopt);
  EXPECT_EQ(text_.ChangeStepByStep({{{0, 0}, u"x\r\n"}, {{3, 9}, u"bc"}}).caret, 5);
  EXPECT_EQ(text_.text(), u"x\nabc");
}

TEST_F(UndoableTextTest, SaysHowToFollowItsSteps) {
  std::mt19937 generator(3);
  const auto number = [&](int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator);
  };
  for (int round = 0; round < 200; ++round) {
    const std::u16string first = u"some text\nto begin \xD83D\xDE00 with";
    text_.Reset(first);
    std::vector<TextEdit> steps;
    for (int i = 0; i < 5; ++i) {
      steps.push_back({{number(-2, 30), number(0, 6)}, number(0, 1) == 0 ? u"" : u"new\n"});
    }
    std::u16string followed = first;
    for (const TextEdit& edit : text_.ChangeStepByStep(steps).edits)
      followed = Edited(followed, {edit});
    ASSERT_EQ(followed, text_.text());
    while (text_.CanUndo()) text_.Undo({});
    ASSERT_EQ(text_.text(), first);
  }
}

TEST_F(UndoableTextTest, KeepsAStepForEveryLineOfALongFile) {
  const int steps = static_cast<int>(UndoableText::kUndoSteps);
  for (int i = 0; i < steps + 7; ++i) Do({0, 0}, u"x");
  EXPECT_EQ(text_.UndoSteps(), UndoableText::kUndoSteps);
  while (text_.CanUndo()) text_.Undo({});
  EXPECT_EQ(text_.Length(), 7);
}

TEST_F(UndoableTextTest, KeepsAHundredStepsHoweverLargeTheyAre) {
  const std::u16string large(200'000, u'x');
  for (int i = 0; i < 130; ++i) {
    Do({0, text_.Length()}, large + (i % 2 == 0 ? u"a" : u"b"));
  }
  EXPECT_EQ(text_.UndoSteps(), UndoableText::kUndoStepsAlways);
}

TEST_F(UndoableTextTest, LeadsBackThroughAnyHistoryOfTypingErasingAndBatches) {
  std::mt19937 generator(7);
  const auto number = [&](int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator);
  };
  std::u16string first = u"some text\nto begin with";
  text_.Reset(first);
  for (int i = 0; i < 900; ++i) {
    const int at = number(0, text_.Length());
    switch (number(0, 3)) {
      case 0:
        TypeAt(at, number(0, 1) == 0 ? u"ab" : u"c\nd");
        break;
      case 1:
        if (at > 0) Do({at - 1, 1}, u"", EditKind::kErasing);
        break;
      case 2:
        if (at > 1) Do({at - 1, 1}, u"", EditKind::kErasing);
        if (at > 1) Do({at - 2, 1}, u"", EditKind::kErasing);
        break;
      default:
        text_.Change({{{0, at / 2}, u"x"}, {{at / 2, at - at / 2}, u"yz"}}, {}, EditKind::kOther);
    }
    if (i % 50 == 0) text_.Undo({});
  }
  const std::u16string last = text_.text();
  int steps = 0;
  while (text_.CanUndo()) text_.Undo({}), ++steps;
  EXPECT_EQ(text_.text(), first);
  while (steps-- > 0) text_.Redo({});
  EXPECT_EQ(text_.text(), last);
}

}  // namespace
}  // namespace deck
