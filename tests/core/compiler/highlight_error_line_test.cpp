#include "compiler/highlight_error_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/core/compiler/compiler_fixture.h"

namespace deck {
namespace {

// The selection that asking the box for the line of one position after the other finds, as far as
// there is text.
std::optional<TextSpan> SpanByScan(const EditBox& box, int line) {
  const int length = box.Length();
  int start = 0;
  while (start < length && box.LineOf(start) != line) ++start;
  if (box.LineOf(start) != line) return std::nullopt;
  int end = start;
  while (end <= length && box.LineOf(end) == line) ++end;
  return TextSpan{.start = start, .length = std::min(end, length) - start};
}

void ExpectEqualToScan(const std::u16string& text) {
  FakeEditBox box;
  box.Load(text);
  const int lastLine = box.LineOf(box.Length());
  for (int line = 1; line <= lastLine + 1; ++line) {
    EXPECT_EQ(SpanOfLine(box, line), SpanByScan(box, line)) << "line " << line;
  }
}

TEST(SpanOfLine, IsTheOneThatAScanOfAllPositionsFinds) {
  for (const char16_t* text :
       {u"", u"a", u"\n", u"\n\n", u"a\n", u"\na", u"a\nb", u"a\nb\n", u"a\n\nb", u"\n\na\n\n",
        u"one line without a break", u"rem one\nbtn s1 a\n\tindented\n", u"\xD83C\xDFAE\nb\n"}) {
    ExpectEqualToScan(text);
  }
}

TEST(SpanOfLine, IsTheOneOfTheScanForRandomTexts) {
  std::mt19937 random(20240711);
  for (int round = 0; round < 300; ++round) {
    std::u16string text(random() % 60, u'x');
    for (char16_t& character : text) {
      if (random() % 4 == 0) character = u'\n';
    }
    ExpectEqualToScan(text);
  }
}

TEST(SpanOfLine, IsTheOneOfTheScanForLongLinesAndManyLines) {
  std::u16string lines;
  for (int line = 0; line < 60; ++line) lines += std::u16string(60, u'x') + u"\n";
  ExpectEqualToScan(lines);
  ExpectEqualToScan(std::u16string(5000, u'y') + u"\n" + std::u16string(3000, u'z'));
}

TEST(SpanOfLine, IsNothingOutsideTheText) {
  FakeEditBox box;
  box.Load(u"a\nb");
  EXPECT_EQ(SpanOfLine(box, 0), std::nullopt);
  EXPECT_EQ(SpanOfLine(box, -1), std::nullopt);
  EXPECT_EQ(SpanOfLine(box, 3), std::nullopt);
}

struct ErrorCase {
  const char16_t* errorCode;
  bool isPlace;
};

class IsPlaceInDocumentTest : public testing::TestWithParam<ErrorCase> {};

TEST_P(IsPlaceInDocumentTest, OnlyCharactersSevenToTenCount) {
  EXPECT_EQ(IsPlaceInDocument(GetParam().errorCode), GetParam().isPlace);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IsPlaceInDocumentTest,
    testing::Values(ErrorCase{u"Error 1013: something", false}, ErrorCase{u"Error 1013", false},
                    ErrorCase{u"xxxxxx1013yyy", false}, ErrorCase{u"Error 1014: x", true},
                    ErrorCase{u"Error 101", true}, ErrorCase{u"Error1013", true},
                    ErrorCase{u"Error  1013", true}, ErrorCase{u"1013", true}, ErrorCase{u"", true},
                    ErrorCase{u"Error", true}, ErrorCase{u"Error ", true}));

class HighlightErrorLineTest : public CompilerFixture {
 protected:
  void Highlight(std::int16_t line, std::u16string_view errorCode = u"Error 1001") {
    HighlightErrorLine(line, errorCode, documents, status, prompts);
  }
};

TEST_F(HighlightErrorLineTest, SelectsTheLineWithItsBreak) {
  Highlight(2);
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
  EXPECT_EQ(view.Panel(kLinePanel), u"Line no: 2");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(HighlightErrorLineTest, GivesTheTextTheKeyboard) {
  Highlight(2);
  EXPECT_TRUE(Box().focused());
}

TEST_F(HighlightErrorLineTest, TheLastLineIsSelectedToTheEndOfTheText) {
  Box().Load(u"rem\nbtn s1 a\nlast");
  Highlight(3);
  EXPECT_EQ(SelectedText(0), u"last");
  EXPECT_EQ(view.Panel(kLinePanel), u"Line no: 3");
}

TEST_F(HighlightErrorLineTest, TheEmptyLineBehindAFinalBreakIsALine) {
  Highlight(4);
  EXPECT_EQ(Box().Selection(), (TextSpan{.start = Box().Length(), .length = 0}));
  EXPECT_EQ(view.Panel(kLinePanel), u"Line no: 4");
  EXPECT_TRUE(prompts.shown.empty());
}

class InvalidLine : public HighlightErrorLineTest,
                    public testing::WithParamInterface<std::int16_t> {};

TEST_P(InvalidLine, IsToldAndLeavesTheCaretAlone) {
  Box().Select({.start = 5, .length = 2});
  Highlight(GetParam());
  const Message expected{
      u"Hmmm ... bizarre! The line number is invalid. That doesn't make sense.\r\n\r\nPlease "
      u"report this on the Hangar forums so I can investigate further. Interesting!",
      u"Hmmm....bizarre...", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(Box().Selection(), (TextSpan{.start = 5, .length = 2}));
}

INSTANTIATE_TEST_SUITE_P(Lines, InvalidLine,
                         testing::Values(std::int16_t{0}, std::int16_t{-1}, std::int16_t{-32768},
                                         std::int16_t{5}, std::int16_t{32767}));

TEST_F(HighlightErrorLineTest, AnEmptyTextHasOneLine) {
  Box().Load(u"");
  Highlight(1);
  EXPECT_TRUE(prompts.shown.empty());
  Highlight(2);
  EXPECT_EQ(BoxTitles(), std::vector{std::u16string(u"Hmmm....bizarre...")});
}

TEST_F(HighlightErrorLineTest, Error1013IsNoPlaceAndDoesNothing) {
  Box().Select({.start = 5, .length = 2});
  const std::u16string line = view.Panel(kLinePanel);
  Highlight(2, u"Error 1013: memory");
  Highlight(99, u"Error 1013: memory");
  EXPECT_EQ(Box().Selection(), (TextSpan{.start = 5, .length = 2}));
  EXPECT_EQ(view.Panel(kLinePanel), line);
  EXPECT_TRUE(prompts.shown.empty());
}

// A control that counts a line which it then cannot find.
class ForgetfulBox : public FakeEditBox {
 public:
  using FakeEditBox::FakeEditBox;
  int StartOfLine(int) const override { return -1; }
};

TEST_F(HighlightErrorLineTest, ALineThatTheBoxCannotFindIsTold) {
  view.makeEditBox = [](EditBox::Events boxEvents) {
    return std::make_unique<ForgetfulBox>(std::move(boxEvents));
  };
  AddFile(u"forgetful.tmj", u"a\nb\nc");
  Box().Select({.start = 3, .length = 1});
  Highlight(2);
  EXPECT_EQ(prompts.shown,
            std::vector{Message({u"Line not found", u"Oops!", BoxStyle::kExclamation})});
  EXPECT_EQ(Box().Selection(), (TextSpan{.start = 0, .length = 0}))
      << "the caret is at the start when the search begins";
}

}  // namespace
}  // namespace deck
