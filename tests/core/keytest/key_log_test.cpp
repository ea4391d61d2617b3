#include "keytest/key_log.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(KeyLog, EveryLineEndsWithItsLineBreak) {
  KeyLog log;
  EXPECT_EQ(log.Text(), u"");
  log.Append(u"Down: a");
  log.Append(u"Up: a");
  EXPECT_EQ(log.Text(), u"Down: a\r\nUp: a\r\n");
  EXPECT_EQ(log.LineCount(), 2);
}

TEST(KeyLog, LinesAreFoundByTheirNumber) {
  KeyLog log;
  for (const char16_t* line : {u"one", u"", u"three"}) log.Append(line);
  EXPECT_EQ(log.Line(0), u"one");
  EXPECT_EQ(log.Line(1), u"");
  EXPECT_EQ(log.Line(2), u"three");
  EXPECT_EQ(log.Line(3), u"");
  EXPECT_EQ(log.Line(-1), u"");
}

TEST(KeyLog, ARangeIsCutToTheLinesThatAreThere) {
  KeyLog log;
  for (const char16_t* line : {u"one", u"two", u"three"}) log.Append(line);
  EXPECT_EQ(log.Lines(1, 2), u"two\r\n");
  EXPECT_EQ(log.Lines(1, 99), u"two\r\nthree\r\n");
  EXPECT_EQ(log.Lines(-5, 1), u"one\r\n");
  EXPECT_EQ(log.Lines(2, 1), u"");
  EXPECT_EQ(log.Lines(3, 4), u"");
  EXPECT_EQ(log.Lines(-3, -1), u"");
}

TEST(KeyLog, ALineMayHoldAnyCharacters) {
  KeyLog log;
  log.Append(u"Ctrl \r");
  log.Append(u"a\nb");
  EXPECT_EQ(log.LineCount(), 2);
  EXPECT_EQ(log.Line(0), u"Ctrl \r");
  EXPECT_EQ(log.Line(1), u"a\nb");
}

TEST(KeyLog, IsEmptyAfterClearing) {
  KeyLog log;
  log.Append(u"one");
  log.Clear();
  EXPECT_EQ(log.LineCount(), 0);
  EXPECT_EQ(log.Text(), u"");
  EXPECT_EQ(log.Line(0), u"");
  log.Append(u"two");
  EXPECT_EQ(log.Text(), u"two\r\n");
}

}  // namespace
}  // namespace deck
