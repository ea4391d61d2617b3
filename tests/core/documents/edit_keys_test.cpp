#include "documents/edit_keys.h"

#include <set>

#include <gtest/gtest.h>

namespace deck {
namespace {

using Action = EditKeyAction;

constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kEnter = 13;
constexpr int kInsert = 45;
constexpr int kDelete = 46;

EditKeyPress Plain(int key) {
  return {key, false, false, false};
}
EditKeyPress Shift(int key) {
  return {key, true, false, false};
}
EditKeyPress Control(int key) {
  return {key, false, true, false};
}
EditKeyPress ControlShift(int key) {
  return {key, true, true, false};
}
EditKeyPress Alt(int key) {
  return {key, false, false, true};
}
EditKeyPress RightAlt(int key) {
  return {key, false, true, true};
}

TEST(EditKeys, EditWithTheUsualCombinations) {
  const struct {
    EditKeyPress press;
    Action action;
  } rows[] = {
      {Plain(kBackspace), Action::kEraseBefore},
      {Shift(kBackspace), Action::kEraseBefore},
      {Plain(kDelete), Action::kEraseBehind},
      {Control('X'), Action::kCut},
      {Shift(kDelete), Action::kCut},
      {Control('C'), Action::kCopy},
      {Control(kInsert), Action::kCopy},
      {Control('V'), Action::kPaste},
      {Shift(kInsert), Action::kPaste},
      {Control('A'), Action::kSelectAll},
      {Control('Z'), Action::kUndo},
      {Alt(kBackspace), Action::kUndo},
      {{kBackspace, true, false, true}, Action::kRedo},
      {Control('Y'), Action::kRedo},
      {Plain(kInsert), Action::kToggleInsert},
      {Control(kBackspace), Action::kEraseWordBefore},
      {Control(kDelete), Action::kEraseWordBehind},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ActionOf(row.press), row.action)
        << row.press.key << " shift " << row.press.shift << " control " << row.press.control;
  }
}

TEST(EditKeys, MoveTheCaretAsTheControlDoes) {
  for (int key = 0x21; key <= 0x28; ++key) {
    for (const EditKeyPress& press : {Plain(key), Shift(key), Control(key), ControlShift(key)}) {
      EXPECT_EQ(ActionOf(press), Action::kLeaveToControl) << key;
    }
  }
}

TEST(EditKeys, DoNothingWhereTheControlWouldFormat) {
  constexpr int kPlus = 0xBB;
  for (const int key : {int{'B'}, int{'I'}, int{'U'}, int{'E'}, int{'J'}, int{'R'}, int{'L'},
                        int{'1'}, int{'2'}, int{'5'}, kPlus}) {
    EXPECT_EQ(ActionOf(Control(key)), Action::kNothing) << key;
    EXPECT_EQ(ActionOf(ControlShift(key)), Action::kNothing) << key;
    EXPECT_EQ(ActionOf(RightAlt(key)), Action::kNothing) << key;
  }
  for (const int key : {'A', 'L', 'C', 'V', 'Z'}) {
    EXPECT_EQ(ActionOf(ControlShift(key)), Action::kNothing) << key;
  }
}

TEST(EditKeys, LetOnlyCaretMovesReachTheControlWithControlDown) {
  const std::set<int> passed = {0x10, 0x11, 0x12, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28};
  for (int key = 1; key < 256; ++key) {
    EXPECT_EQ(ActionOf(Control(key)) == Action::kLeaveToControl, passed.contains(key)) << key;
  }
}

TEST(EditKeys, LeaveMenuKeysToTheSystem) {
  EXPECT_EQ(ActionOf(Alt('F')), Action::kLeaveToSystem);
  EXPECT_EQ(ActionOf(Alt('X')), Action::kLeaveToSystem);
}

TEST(EditKeys, GiveEnterAndTabAsCharactersOnly) {
  EXPECT_EQ(ActionOf(Plain(kEnter)), Action::kNothing);
  EXPECT_EQ(ActionOf(Shift(kEnter)), Action::kNothing);
  EXPECT_EQ(ActionOf(Control(kEnter)), Action::kNothing);
  EXPECT_EQ(ActionOf(Plain(kTab)), Action::kNothing);
  EXPECT_EQ(ActionOf(Control(kTab)), Action::kNothing);
}

TEST(EditKeys, TypeTextTabAndEnterButNoControlCharacter) {
  for (const char16_t text : {u' ', u'a', u'\u00E9', u'\u4E2D', u'\t', u'\r', char16_t{0xD83D}}) {
    EXPECT_TRUE(IsTypedText(text, false, false)) << static_cast<int>(text);
  }
  for (int control = 0; control < 32; ++control) {
    const bool expected = control == '\t' || control == '\r';
    EXPECT_EQ(IsTypedText(static_cast<char16_t>(control), false, false), expected) << control;
  }
  EXPECT_FALSE(IsTypedText(0x7F, false, false));
}

TEST(EditKeys, TypeNothingWhileControlIsDownUnlessItIsTheRightAltKey) {
  for (const char16_t text : {u' ', u'\t', u'\r', u'a'}) {
    EXPECT_FALSE(IsTypedText(text, true, false)) << static_cast<int>(text);
    EXPECT_TRUE(IsTypedText(text, true, true)) << static_cast<int>(text);
  }
}

}  // namespace
}  // namespace deck
