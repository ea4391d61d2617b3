#include "compiler/highlight_error_line.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/core/compiler/compiler_fixture.h"

namespace deck {
namespace {

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
