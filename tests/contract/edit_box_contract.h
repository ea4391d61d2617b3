// What every edit box promises: one suite for the box in memory and for the system's control.
//
// A driver makes one box and plays the user:
//   EditBox& box();  EventCounts events;
//   void Type(std::u16string_view);  void MoveCaret(TextSpan);  void MoveMouse();
//   bool IsVisible() const;  bool IsFocused() const;  void FocusElsewhere();
#pragma once

#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/edit_box.h"
#include "platform/text_edits.h"
#include "platform/text_search.h"

namespace deck {

struct EventCounts {
  int changed = 0;
  int keyOrMouseDone = 0;
  int mouseMoved = 0;
  int entered = 0;
};

inline EditBox::Events Counting(EventCounts& counts) {
  return {[&counts] { ++counts.changed; }, [&counts] { ++counts.keyOrMouseDone; },
          [&counts] { ++counts.mouseMoved; }, [&counts] { ++counts.entered; }};
}

inline std::u16string Lines(int count, std::u16string_view line) {
  std::u16string text;
  for (int i = 0; i < count; ++i) {
    text += line;
    text += u'\n';
  }
  return text;
}

// An edit at the start of each line.
inline std::vector<TextEdit> EditPerLine(std::u16string_view text, int replaced,
                                         std::u16string_view replacement) {
  std::vector<TextEdit> edits;
  std::size_t start = 0;
  while (start < text.size()) {
    edits.push_back({{static_cast<int>(start), replaced}, std::u16string(replacement)});
    const std::size_t lineBreak = text.find(u'\n', start);
    if (lineBreak == std::u16string_view::npos) break;
    start = lineBreak + 1;
  }
  return edits;
}

template <class Driver>
class EditBoxContract : public testing::Test {
 protected:
  EditBox& box() { return driver_.box(); }
  EventCounts& events() { return driver_.events; }

  std::u16string TextAfterUndo() {
    box().Undo();
    return box().Text();
  }

  Driver driver_;
};

TYPED_TEST_SUITE_P(EditBoxContract);

// Loading

TYPED_TEST_P(EditBoxContract, IsEmptyAtFirst) {
  EditBox& box = this->box();
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(box.Length(), 0);
  EXPECT_EQ(box.Selection(), TextSpan{});
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(box.LineOf(0), 1);
  EXPECT_EQ(box.StartOfLine(1), 0);
  EXPECT_EQ(box.StartOfLine(2), -1);
}

TYPED_TEST_P(EditBoxContract, GivesBackTheTextThatWasLoaded) {
  const std::u16string texts[] = {
      u"",
      u"a",
      u"one\ntwo\n\nfour",
      u"ends with a break\n",
      u"\n\n\n",
      u"\ttabs\tand   blanks \t \n\t",
      u"{\\rtf1 \\b not formatted\\par}",
      u"{\\urtf not formatted",
      u"caf\u00E9 \u20AC \u2192 \u4E2D\u6587 \uAC00 \u05D0\u05D1",
      u"emoji \xD83D\xDE00 end",
      u"lone \xD800 and \xDC00 surrogates",
      u"next line \u0085, vertical tab \u000B, form feed \u000C.",
      u"\uFEFFmark, object \uFFFC, blank \u00A0, joiner \u200B\u200D",
      u"control characters \u0001\u0002\u001A\u001B\u001F\u007F",
      std::u16string(70'000, u'x') + u"\n" + std::u16string(70'000, u'y'),
  };
  for (const std::u16string& text : texts) {
    this->box().Load(text);
    EXPECT_EQ(this->box().Text(), text);
    EXPECT_EQ(this->box().Length(), static_cast<int>(text.size()));
  }
}

TYPED_TEST_P(EditBoxContract, TakesEveryKindOfLineBreakAsOneCharacter) {
  EditBox& box = this->box();
  const std::u16string mixed = u"a\r\nb\rc\nd\n\re\r\r\nf";
  const std::u16string plain = u"a\nb\nc\nd\n\ne\n\nf";
  box.Load(mixed);
  EXPECT_EQ(box.Text(), plain);
  box.Load(u"");
  box.ReplaceSelection(mixed);
  EXPECT_EQ(box.Text(), plain);
  box.Load(u"");
  box.Apply({{{0, 0}, mixed}});
  EXPECT_EQ(box.Text(), plain);
}

TYPED_TEST_P(EditBoxContract, LeavesOutTheNullCharacter) {
  const std::u16string_view text(u"a\0b\0", 4);
  this->box().Load(text);
  EXPECT_EQ(this->box().Text(), u"ab");
  this->box().ReplaceSelection(text);
  EXPECT_EQ(this->box().Text(), u"abab");
}

TYPED_TEST_P(EditBoxContract, LoadsTenThousandLines) {
  const std::u16string text = Lines(10'000, u"BTN X1 /U FIRE /M (* a line of ordinary length *)");
  this->box().Load(text);
  EXPECT_EQ(this->box().Text(), text);
  EXPECT_EQ(this->box().LineOf(this->box().Length()), 10'001);
  EXPECT_EQ(this->box().StartOfLine(10'001), static_cast<int>(text.size()));
}

TYPED_TEST_P(EditBoxContract, LoadForgetsHistoryAndSelectionAndIsNoChange) {
  EditBox& box = this->box();
  box.Load(u"first");
  box.Select({2, 3});
  box.ReplaceSelection(u"x");
  const EventCounts before = this->events();
  box.Load(u"second text");
  EXPECT_EQ(box.Text(), u"second text");
  EXPECT_EQ(box.Selection(), TextSpan{});
  EXPECT_FALSE(box.CanUndo());
  box.Undo();
  EXPECT_EQ(box.Text(), u"second text");
  EXPECT_EQ(this->events().changed, before.changed);
  EXPECT_EQ(this->events().entered, before.entered);
}

TYPED_TEST_P(EditBoxContract, LoadsAgainWhatItGave) {
  EditBox& box = this->box();
  box.Load(u"one\n\ttwo \u0085\u000B\n\n\xD83D\xDE00");
  box.Select({3, 0});
  box.ReplaceSelection(u" and\nmore");
  const std::u16string saved = box.Text();
  box.Load(saved);
  EXPECT_EQ(box.Text(), saved);
}

// Selection

TYPED_TEST_P(EditBoxContract, SelectsWhatItIsTold) {
  EditBox& box = this->box();
  box.Load(u"one\ntwo\nthree");
  for (const TextSpan span : {TextSpan{0, 0}, TextSpan{2, 4}, TextSpan{8, 5}, TextSpan{13, 0}}) {
    box.Select(span);
    EXPECT_EQ(box.Selection(), span);
  }
}

TYPED_TEST_P(EditBoxContract, ClampsASelectionToTheText) {
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  const struct {
    TextSpan asked;
    TextSpan got;
  } rows[] = {
      {{3, 99}, {3, 4}},      {{7, 1}, {7, 0}},      {{99, 5}, {7, 0}},    {{-3, 5}, {0, 2}},
      {{-3, 2}, {0, 0}},      {{4, -2}, {4, 0}},     {{0, kMost}, {0, 7}}, {{kMost, kMost}, {7, 0}},
      {{kLeast, 10}, {0, 0}}, {{-1, kMost}, {0, 7}},
  };
  this->box().Load(u"one\ntwo");
  for (const auto& row : rows) {
    this->box().Select({1, 1});
    this->box().Select(row.asked);
    EXPECT_EQ(this->box().Selection(), row.got) << row.asked.start << "," << row.asked.length;
  }
}

TYPED_TEST_P(EditBoxContract, ASelectionOfEverythingIsAsLongAsTheText) {
  for (const std::u16string_view text : {u"", u"one", u"one\n", u"\n"}) {
    this->box().Load(text);
    const int length = static_cast<int>(text.size());
    this->box().Select({0, length});
    EXPECT_EQ(this->box().Selection(), (TextSpan{0, length}));
    this->box().Select({0, length + 1});
    EXPECT_EQ(this->box().Selection(), (TextSpan{0, length}));
  }
}

TYPED_TEST_P(EditBoxContract, SelectingIsNoChangeAndNoStep) {
  this->box().Load(u"text");
  this->box().Select({1, 2});
  EXPECT_EQ(this->events().changed, 0);
  EXPECT_FALSE(this->box().CanUndo());
}

// Lines

TYPED_TEST_P(EditBoxContract, TellsTheLineOfEachPosition) {
  EditBox& box = this->box();
  box.Load(u"ab\n\ncd\n");
  const int lines[] = {1, 1, 1, 2, 3, 3, 3, 4};
  for (int position = 0; position <= box.Length(); ++position) {
    EXPECT_EQ(box.LineOf(position), lines[position]) << position;
  }
  EXPECT_EQ(box.LineOf(box.Length() + 1), 4);
  EXPECT_EQ(box.LineOf(std::numeric_limits<int>::max()), 4);
  EXPECT_EQ(box.LineOf(-1), 1);
}

TYPED_TEST_P(EditBoxContract, TellsWhereEachLineStarts) {
  EditBox& box = this->box();
  box.Load(u"ab\n\ncd\n");
  EXPECT_EQ(box.StartOfLine(1), 0);
  EXPECT_EQ(box.StartOfLine(2), 3);
  EXPECT_EQ(box.StartOfLine(3), 4);
  EXPECT_EQ(box.StartOfLine(4), 7);
  for (const int line : {5, 0, -1, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(box.StartOfLine(line), -1) << line;
  }
}

TYPED_TEST_P(EditBoxContract, CountsLinesOfTheFileAndNotOfTheScreen) {
  EditBox& box = this->box();
  box.Load(u"a\u000Bb\u000Cc\u0085d\u2028e\n" + std::u16string(70'000, u'x') + u"\nlast");
  EXPECT_EQ(box.LineOf(9), 1);
  EXPECT_EQ(box.LineOf(10), 2);
  EXPECT_EQ(box.LineOf(box.Length()), 3);
  EXPECT_EQ(box.StartOfLine(3), box.Length() - 4);
}

// Replacing the selection

TYPED_TEST_P(EditBoxContract, ReplacesTheSelection) {
  const struct {
    TextSpan selection;
    std::u16string inserted;
    std::u16string text;
    int caret;
  } rows[] = {
      {{4, 3}, u"2", u"one\n2\nthree", 5},
      {{0, 0}, u"zero\n", u"zero\none\ntwo\nthree", 5},
      {{13, 0}, u"\nfour", u"one\ntwo\nthree\nfour", 18},
      {{2, 4}, u"", u"ono\nthree", 2},
      {{3, 1}, u" ", u"one two\nthree", 4},
      {{1, 1}, u"a\n\nb", u"oa\n\nbe\ntwo\nthree", 5},
      {{0, 13}, u"", u"", 0},
      {{0, 13}, u"{\\rtf1 x}", u"{\\rtf1 x}", 9},
      {{7, 0}, u"\t\xD83D\xDE00\u000B\u0085", u"one\ntwo\t\xD83D\xDE00\u000B\u0085\nthree", 12},
  };
  for (const auto& row : rows) {
    EditBox& box = this->box();
    box.Load(u"one\ntwo\nthree");
    box.Select(row.selection);
    const int changes = this->events().changed;
    box.ReplaceSelection(row.inserted);
    EXPECT_EQ(box.Text(), row.text);
    EXPECT_EQ(box.Length(), static_cast<int>(row.text.size()));
    EXPECT_EQ(box.Selection(), (TextSpan{row.caret, 0}));
    EXPECT_EQ(this->events().changed, changes + 1);
    EXPECT_EQ(this->TextAfterUndo(), u"one\ntwo\nthree");
    EXPECT_EQ(box.Selection(), row.selection);
    EXPECT_FALSE(box.CanUndo());
  }
}

TYPED_TEST_P(EditBoxContract, ReplacingTextByItselfOnlyMovesTheCaret) {
  EditBox& box = this->box();
  box.Load(u"one two");
  box.Select({0, 3});
  box.ReplaceSelection(u"one");
  EXPECT_EQ(box.Text(), u"one two");
  EXPECT_EQ(box.Selection(), (TextSpan{3, 0}));
  box.ReplaceSelection(u"");
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(this->events().changed, 0);
}

TYPED_TEST_P(EditBoxContract, ReplacesALargeSelectionWithALargeText) {
  EditBox& box = this->box();
  const std::u16string first = Lines(3'000, u"first text of some length, as lines are");
  const std::u16string second = Lines(2'500, u"second text, which is not the first one");
  box.Load(first);
  box.Select({0, box.Length()});
  box.ReplaceSelection(second);
  EXPECT_EQ(box.Text(), second);
  EXPECT_EQ(box.Selection(), (TextSpan{static_cast<int>(second.size()), 0}));
  box.Select({0, box.Length()});
  box.ReplaceSelection(u"");
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(this->events().changed, 2);
  EXPECT_EQ(this->TextAfterUndo(), second);
  EXPECT_EQ(box.Selection(), (TextSpan{0, static_cast<int>(second.size())}));
  EXPECT_EQ(this->TextAfterUndo(), first);
}

// Undo

TYPED_TEST_P(EditBoxContract, TakesBackOneReplacementAfterTheOther) {
  EditBox& box = this->box();
  box.Load(u"x");
  for (const std::u16string_view text : {u"a", u"b", u"c"}) box.ReplaceSelection(text);
  EXPECT_EQ(box.Text(), u"abcx");
  EXPECT_EQ(this->TextAfterUndo(), u"abx");
  EXPECT_EQ(this->TextAfterUndo(), u"ax");
  EXPECT_EQ(this->TextAfterUndo(), u"x");
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(this->TextAfterUndo(), u"x");
  EXPECT_EQ(this->events().changed, 6) << "an undo is a change, one without a step is not";
}

TYPED_TEST_P(EditBoxContract, TakesBackAtLeastAHundredSteps) {
  EditBox& box = this->box();
  for (int i = 0; i < 150; ++i) box.ReplaceSelection(u"line\n");
  for (int i = 0; i < 150; ++i) box.Undo();
  EXPECT_EQ(box.Text(), u"");
  EXPECT_FALSE(box.CanUndo());
}

TYPED_TEST_P(EditBoxContract, TakesBackTypedCharactersTogetherButNotTheLinesBefore) {
  EditBox& box = this->box();
  box.Load(u"<>");
  this->driver_.MoveCaret({1, 0});
  this->driver_.Type(u"one");
  this->driver_.Type(u" two\nthree");
  EXPECT_EQ(box.Text(), u"<one two\nthree>");
  EXPECT_EQ(this->TextAfterUndo(), u"<one two>");
  EXPECT_EQ(this->TextAfterUndo(), u"<>");
  EXPECT_FALSE(box.CanUndo());
}

TYPED_TEST_P(EditBoxContract, TypingElsewhereIsAnotherStep) {
  this->driver_.Type(u"ab");
  this->driver_.MoveCaret({0, 0});
  this->driver_.MoveCaret({2, 0});
  this->driver_.Type(u"c");
  EXPECT_EQ(this->TextAfterUndo(), u"ab");
  EXPECT_EQ(this->TextAfterUndo(), u"");
}

TYPED_TEST_P(EditBoxContract, TypingOverASelectionIsTakenBackToThatSelection) {
  EditBox& box = this->box();
  box.Load(u"one two three");
  this->driver_.MoveCaret({4, 3});
  this->driver_.Type(u"2!");
  EXPECT_EQ(box.Text(), u"one 2! three");
  EXPECT_EQ(this->TextAfterUndo(), u"one two three");
  EXPECT_EQ(box.Selection(), (TextSpan{4, 3}));
}

// Batches

TYPED_TEST_P(EditBoxContract, AppliesNothing) {
  EditBox& box = this->box();
  box.Load(u"text");
  box.Select({1, 2});
  box.Apply({});
  box.Apply({{{0, 4}, u"text"}, {{4, 0}, u""}});
  EXPECT_EQ(box.Text(), u"text");
  EXPECT_EQ(box.Selection(), (TextSpan{1, 2}));
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(this->events().changed, 0);
}

TYPED_TEST_P(EditBoxContract, AppliesSeveralEditsAsOneStep) {
  EditBox& box = this->box();
  box.Load(u"one\ntwo\nthree");
  box.Select({4, 3});
  box.Apply({{{0, 0}, u"Rem "}, {{3, 1}, u""}, {{8, 5}, u"3\n4"}, {{13, 0}, u"."}});
  EXPECT_EQ(box.Text(), u"Rem onetwo\n3\n4.");
  EXPECT_EQ(box.Selection(), (TextSpan{7, 3}));
  EXPECT_EQ(this->events().changed, 1);
  EXPECT_EQ(this->TextAfterUndo(), u"one\ntwo\nthree");
  EXPECT_EQ(box.Selection(), (TextSpan{4, 3}));
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(this->events().changed, 2);
}

TYPED_TEST_P(EditBoxContract, ClampsTheSpansOfABatch) {
  EditBox& box = this->box();
  box.Load(u"abc");
  box.Apply({{{-2, 3}, u"x"}, {{2, 50}, u"z"}, {{99, 1}, u"!"}});
  EXPECT_EQ(box.Text(), u"xbz!");
  EXPECT_EQ(this->TextAfterUndo(), u"abc");
}

TYPED_TEST_P(EditBoxContract, AppliesAnyNumberOfEditsAlike) {
  // Around the sizes at which a real box goes over from editing its control to filling a new one.
  for (const int lines : {1, 2, 10, 19, 20, 21, 22, 25, 30, 40, 60, 100, 300, 1'000}) {
    EditBox& box = this->box();
    const std::u16string before = Lines(lines, u"old line");
    const std::u16string after = Lines(lines, u"new and longer line");
    box.Load(before);
    box.Select({5, 2});
    const int changes = this->events().changed;
    box.Apply(EditPerLine(before, 3, u"new and longer"));
    EXPECT_EQ(box.Text(), after) << lines;
    EXPECT_EQ(box.Selection(), (TextSpan{16, 2})) << lines;
    EXPECT_EQ(this->events().changed, changes + 1) << lines;
    EXPECT_EQ(this->TextAfterUndo(), before) << lines;
    EXPECT_EQ(box.Selection(), (TextSpan{5, 2})) << lines;
    EXPECT_FALSE(box.CanUndo()) << lines;
  }
}

TYPED_TEST_P(EditBoxContract, KeepsTheStepsBeforeALargeBatch) {
  EditBox& box = this->box();
  const std::u16string start = Lines(500, u"line");
  box.Load(start);
  box.ReplaceSelection(u"typed before\n");
  const std::u16string before = box.Text();
  box.Apply(EditPerLine(before, 0, u"Rem "));
  const std::u16string after = box.Text();
  box.Select({0, 4});
  box.ReplaceSelection(u"");
  EXPECT_EQ(this->TextAfterUndo(), after);
  EXPECT_EQ(this->TextAfterUndo(), before);
  EXPECT_EQ(this->TextAfterUndo(), start);
  EXPECT_FALSE(box.CanUndo());
}

TYPED_TEST_P(EditBoxContract, StaysVisibleAndFocusedThroughALargeBatch) {
  EditBox& box = this->box();
  const std::u16string text = Lines(500, u"line");
  box.SetVisible(true);
  box.Focus();
  box.Load(u"something to be replaced");
  box.Load(text);
  const EventCounts before = this->events();
  box.Apply(EditPerLine(text, 0, u"Rem "));
  box.Undo();
  EXPECT_TRUE(this->driver_.IsVisible());
  EXPECT_TRUE(this->driver_.IsFocused());
  EXPECT_EQ(this->events().entered, before.entered);
  EXPECT_EQ(this->events().keyOrMouseDone, before.keyOrMouseDone);
  this->driver_.Type(u"x");
  EXPECT_EQ(box.Text(), u"x" + text);
}

TYPED_TEST_P(EditBoxContract, StaysInvisibleThroughALargeBatch) {
  const std::u16string text = Lines(500, u"line");
  this->box().Load(text);
  this->box().Apply(EditPerLine(text, 4, u""));
  EXPECT_FALSE(this->driver_.IsVisible());
  EXPECT_FALSE(this->driver_.IsFocused());
  EXPECT_EQ(this->box().Text(), std::u16string(500, u'\n'));
}

// Batches of steps

TYPED_TEST_P(EditBoxContract, AppliesStepsOfWhichEachIsTakenBackAlone) {
  EditBox& box = this->box();
  box.Load(u"one\ntwo\nthree");
  box.Select({1, 1});
  box.ApplyStepByStep({{{0, 0}, u"Rem "}, {{8, 0}, u"Rem "}, {{16, 0}, u"Rem "}});
  EXPECT_EQ(box.Text(), u"Rem one\nRem two\nRem three");
  EXPECT_EQ(box.Selection(), (TextSpan{20, 0}));
  EXPECT_EQ(this->events().changed, 1);
  EXPECT_EQ(this->TextAfterUndo(), u"Rem one\nRem two\nthree");
  EXPECT_EQ(this->TextAfterUndo(), u"Rem one\ntwo\nthree");
  EXPECT_EQ(this->TextAfterUndo(), u"one\ntwo\nthree");
  EXPECT_FALSE(box.CanUndo());
}

TYPED_TEST_P(EditBoxContract, StepsMayGoInAnyDirectionAndNeedNotChangeAnything) {
  EditBox& box = this->box();
  box.Load(u"abcdef");
  box.ApplyStepByStep(
      {{{4, 2}, u""}, {{0, 1}, u"xy"}, {{0, 2}, u"xy"}, {{99, 9}, u"!"}, {{1, 1}, u"y"}});
  EXPECT_EQ(box.Text(), u"xybcd!");
  EXPECT_EQ(box.Selection(), (TextSpan{2, 0}));
  EXPECT_EQ(this->TextAfterUndo(), u"xybcd");
  EXPECT_EQ(this->TextAfterUndo(), u"abcd");
  EXPECT_EQ(this->TextAfterUndo(), u"abcdef");
  EXPECT_FALSE(box.CanUndo());
  const int changes = this->events().changed;
  box.ApplyStepByStep({});
  box.ApplyStepByStep({{{0, 3}, u"abc"}});
  EXPECT_EQ(box.Selection(), (TextSpan{3, 0}));
  EXPECT_FALSE(box.CanUndo());
  EXPECT_EQ(this->events().changed, changes);
}

TYPED_TEST_P(EditBoxContract, TakesBackEachOfManySteps) {
  EditBox& box = this->box();
  const std::u16string text = Lines(400, u"line");
  box.Load(text);
  std::vector<TextEdit> steps;
  for (int line = 0; line < 400; ++line) steps.push_back({{9 * line, 0}, u"Rem "});
  box.ApplyStepByStep(steps);
  EXPECT_EQ(box.Text(), Lines(400, u"Rem line"));
  EXPECT_EQ(box.Selection(), (TextSpan{9 * 399 + 4, 0}));
  int taken = 0;
  for (; box.CanUndo(); ++taken) box.Undo();
  EXPECT_EQ(taken, 400);
  EXPECT_EQ(box.Text(), text);
}

// Events

TYPED_TEST_P(EditBoxContract, TypingIsAChange) {
  this->driver_.Type(u"ab\tc\n\u00E9");
  EXPECT_EQ(this->box().Text(), u"ab\tc\n\u00E9");
  EXPECT_EQ(this->events().changed, 6);
  EXPECT_GE(this->events().keyOrMouseDone, 1);
}

TYPED_TEST_P(EditBoxContract, MovingTheCaretIsNoChange) {
  this->box().Load(u"text");
  this->driver_.MoveCaret({2, 1});
  EXPECT_EQ(this->box().Selection(), (TextSpan{2, 1}));
  EXPECT_EQ(this->events().keyOrMouseDone, 1);
  EXPECT_EQ(this->events().changed, 0);
}

TYPED_TEST_P(EditBoxContract, TellsOfThePointer) {
  this->driver_.MoveMouse();
  EXPECT_EQ(this->events().mouseMoved, 1);
  EXPECT_EQ(this->events().changed, 0);
}

TYPED_TEST_P(EditBoxContract, IsInvisibleUntilShown) {
  EXPECT_FALSE(this->driver_.IsVisible());
  this->box().SetVisible(true);
  EXPECT_TRUE(this->driver_.IsVisible());
  this->box().SetVisible(false);
  EXPECT_FALSE(this->driver_.IsVisible());
}

TYPED_TEST_P(EditBoxContract, TellsWhenTheFocusComes) {
  EditBox& box = this->box();
  box.SetVisible(true);
  EXPECT_FALSE(this->driver_.IsFocused());
  box.Focus();
  EXPECT_TRUE(this->driver_.IsFocused());
  EXPECT_EQ(this->events().entered, 1);
  box.Focus();
  EXPECT_EQ(this->events().entered, 1) << "it had the focus already";
  this->driver_.FocusElsewhere();
  EXPECT_FALSE(this->driver_.IsFocused());
  box.Focus();
  EXPECT_EQ(this->events().entered, 2);
}

TYPED_TEST_P(EditBoxContract, LosesTheFocusWhenItIsHidden) {
  this->box().SetVisible(true);
  this->box().Focus();
  this->box().SetVisible(false);
  EXPECT_FALSE(this->driver_.IsFocused());
}

// With the rest of the program

TYPED_TEST_P(EditBoxContract, SelectsWhatWasFoundInItsText) {
  EditBox& box = this->box();
  box.Load(u"one\ntwo \xD83D\xDE00 word\n\tkeyword Word");
  const int found = FindInText(box.Text(), u"WORD", 0, box.Length(), kFindWholeWord);
  box.Select({found, 4});
  EXPECT_EQ(box.LineOf(found), 2);
  box.ReplaceSelection(u"match");
  EXPECT_EQ(box.Text(), u"one\ntwo \xD83D\xDE00 match\n\tkeyword Word");
}

TYPED_TEST_P(EditBoxContract, FollowsAnySequenceOfEditsAndBack) {
  std::mt19937 generator(11);
  const auto number = [&generator](int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator);
  };
  const auto words = [&] {
    static constexpr std::u16string_view kWords[] = {u"", u"x", u"\n", u"two words", u"a\nb\n\nc"};
    return std::u16string(kWords[number(0, 4)]);
  };
  EditBox& box = this->box();
  std::u16string model = Lines(60, u"some line of text");
  box.Load(model);
  const std::u16string first = model;
  for (int i = 0; i < 90; ++i) {
    const TextSpan span = Clamped({number(0, box.Length()), number(0, 30)}, box.Length());
    const std::u16string inserted = words();
    if (number(0, 2) > 0) {
      box.Select(span);
      box.ReplaceSelection(inserted);
      model = Edited(model, {{span, inserted}});
    } else {
      const std::vector<TextEdit> edits = EditPerLine(model, number(0, 1), inserted);
      const std::vector<TextEdit> reduced = Reduced(model, edits);
      model = Edited(model, reduced);
      box.Apply(edits);
    }
    ASSERT_EQ(box.Text(), model) << i;
    ASSERT_EQ(box.Length(), static_cast<int>(model.size()));
    ASSERT_LE(box.Selection().end(), box.Length());
    if (i % 10 == 0) {
      ASSERT_EQ(box.LineOf(box.Length()), LineOf(model, box.Length()));
    }
  }
  const std::u16string last = model;
  while (box.CanUndo()) box.Undo();
  EXPECT_EQ(box.Text(), first);
}

REGISTER_TYPED_TEST_SUITE_P(
    EditBoxContract, IsEmptyAtFirst, GivesBackTheTextThatWasLoaded,
    TakesEveryKindOfLineBreakAsOneCharacter, LeavesOutTheNullCharacter, LoadsTenThousandLines,
    LoadForgetsHistoryAndSelectionAndIsNoChange, LoadsAgainWhatItGave, SelectsWhatItIsTold,
    ClampsASelectionToTheText, ASelectionOfEverythingIsAsLongAsTheText,
    SelectingIsNoChangeAndNoStep, TellsTheLineOfEachPosition, TellsWhereEachLineStarts,
    CountsLinesOfTheFileAndNotOfTheScreen, ReplacesTheSelection,
    ReplacingTextByItselfOnlyMovesTheCaret, ReplacesALargeSelectionWithALargeText,
    TakesBackOneReplacementAfterTheOther, TakesBackAtLeastAHundredSteps,
    TakesBackTypedCharactersTogetherButNotTheLinesBefore, TypingElsewhereIsAnotherStep,
    TypingOverASelectionIsTakenBackToThatSelection, AppliesNothing, AppliesSeveralEditsAsOneStep,
    ClampsTheSpansOfABatch, AppliesAnyNumberOfEditsAlike, KeepsTheStepsBeforeALargeBatch,
    StaysVisibleAndFocusedThroughALargeBatch, StaysInvisibleThroughALargeBatch,
    AppliesStepsOfWhichEachIsTakenBackAlone, StepsMayGoInAnyDirectionAndNeedNotChangeAnything,
    TakesBackEachOfManySteps, TypingIsAChange, MovingTheCaretIsNoChange, TellsOfThePointer,
    IsInvisibleUntilShown, TellsWhenTheFocusComes, LosesTheFocusWhenItIsHidden,
    SelectsWhatWasFoundInItsText, FollowsAnySequenceOfEditsAndBack);

}  // namespace deck
