#include <gtest/gtest.h>

#include <random>

#include "find/find_texts.h"
#include "find/line_number.h"
#include "tests/core/find/find_fixture.h"

namespace deck {
namespace {

using enum FindControl;
using Messages = std::vector<Message>;

const Message kInvalid{u"The line number is invalid", u"Check the value you entered!",
                       BoxStyle::kExclamation};

class GotoLineTest : public FindFixture {};

TEST_F(GotoLineTest, SelectsTheWholeLineWithItsEnding) {
  Box().Load(u"one\ntwo\nthree");
  GoTo(u"2");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 4}));
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(Line(), u"Line no: 2");
  EXPECT_EQ(dialog.timesKeptClear(), 1);
  EXPECT_TRUE(Told().empty());
}

TEST_F(GotoLineTest, SelectsTheLastLineWithoutOne) {
  Box().Load(u"one\ntwo");
  GoTo(u"2");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 3}));
}

TEST_F(GotoLineTest, ReachesTheEmptyLineBehindTheLastEnding) {
  Box().Load(u"one\ntwo\n");
  GoTo(u"3");
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 0}));
  EXPECT_EQ(Line(), u"Line no: 3");
  GoTo(u"4");
  EXPECT_EQ(Told(), Messages{kInvalid});
}

TEST_F(GotoLineTest, ReachesTheOneLineOfAnEmptyDocument) {
  GoTo(u"1");
  EXPECT_TRUE(Told().empty());
  EXPECT_TRUE(Box().focused());
  GoTo(u"2");
  EXPECT_EQ(Told(), Messages{kInvalid});
}

TEST_F(GotoLineTest, SelectsALineOfAnyLength) {
  Box().Load(std::u16string(100'000, u'x') + u"\ny");
  GoTo(u"1");
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 100'001}));
}

TEST_F(GotoLineTest, RefusesEverythingThatIsNoLine) {
  Box().Load(u"one\ntwo\nthree");
  Box().Select({5, 1});
  for (const std::u16string entry :
       {u"",      u"0",      u"-3",         u"word",       u"4",
        u"0.9",   u"-0.5",   u"2,5",        u"2 3",        u"0x2",
        u"2x",    u"--2",    u"2147483648", u"4294967298", u"99999999999999999999999999",
        u"1e400", u"1e-400", u"nan",        u"inf",        u".",
        u"2e",    u"2e+",    u"e2"}) {
    GoTo(entry);
    EXPECT_EQ(Told(), Messages{kInvalid}) << testing::PrintToString(entry);
  }
  EXPECT_EQ(Box().Selection(), (TextSpan{5, 1}));
}

TEST_F(GotoLineTest, TakesTheIntegerPart) {
  Box().Load(u"one\ntwo\nthree");
  for (const std::u16string entry : {u"2", u"2.9", u" 2 ", u"+2", u"02", u"2.", u"0.2e1", u"20e-1",
                                     u"2.99999999999999999999999999"}) {
    Box().Select({0, 0});
    GoTo(entry);
    EXPECT_EQ(Box().Selection(), (TextSpan{4, 4})) << testing::PrintToString(entry);
  }
  EXPECT_TRUE(Told().empty());
}

// A box whose index of lines does not agree with its lines.
class ConfusedBox : public FakeEditBox {
 public:
  using FakeEditBox::FakeEditBox;
  int StartOfLine(int) const override { return start; }

  int start = -1;
};

TEST_F(GotoLineTest, SaysWhenTheLineIsNotWhereItShouldBe) {
  ConfusedBox* box = nullptr;
  window.makeEditBox = [&box](EditBox::Events events) {
    auto made = std::make_unique<ConfusedBox>(std::move(events));
    box = made.get();
    return made;
  };
  AddDocument(u"C:\\b.tmj", u"one\ntwo");
  for (const int start : {-1, 0}) {
    box->start = start;
    box->Select({5, 1});
    GoTo(u"2");
    EXPECT_EQ(Told(), (Messages{{u"Line not found", u"Oops!", BoxStyle::kExclamation}}));
    EXPECT_EQ(box->Selection(), (TextSpan{0, 0})) << "the search for the line began there";
  }
}

TEST(LineNumberOf, GivesTheLargestIntForAllThatIsLarger) {
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(LineNumberOf(u"2147483646"), kMost - 1);
  EXPECT_EQ(LineNumberOf(u"2147483647"), kMost);
  EXPECT_EQ(LineNumberOf(u"2147483648"), kMost);
  EXPECT_EQ(LineNumberOf(std::u16string(1'000, u'9')), kMost);
  EXPECT_EQ(LineNumberOf(u"1e99999999999999999999"), kMost);
  EXPECT_EQ(LineNumberOf(u"0.00000000000000000001e21"), 10);
  EXPECT_EQ(LineNumberOf(u"0e99"), 0);
}

}  // namespace
}  // namespace deck
