#include "documents/line_span.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "tests/fakes/fake_edit_box.h"

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
  EXPECT_EQ(SpanOfLine(box, std::numeric_limits<int>::max()), std::nullopt);
}

}  // namespace
}  // namespace deck
