#include "documents/multi_select.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

using Paths = std::vector<std::u16string>;
using namespace std::string_view_literals;

TEST(ExtractFilePathsOnMultiOpen, JoinsFolderAndNamesInTheOrderOfTheDialog) {
  EXPECT_EQ(ExtractFilePathsOnMultiOpen(u"D:\\Work\0a.tmj\0b.tmj\0c.tmm"sv),
            (Paths{u"D:\\Work\\a.tmj", u"D:\\Work\\b.tmj", u"D:\\Work\\c.tmm"}));
}

TEST(ExtractFilePathsOnMultiOpen, AddsNoSecondBackslashToADriveRoot) {
  EXPECT_EQ(ExtractFilePathsOnMultiOpen(u"D:\\\0a.tmj"sv), (Paths{u"D:\\a.tmj"}));
}

TEST(ExtractFilePathsOnMultiOpen, IgnoresTheSystemsClosingSeparators) {
  EXPECT_EQ(ExtractFilePathsOnMultiOpen(u"D:\\Work\0a.tmj\0\0"sv), (Paths{u"D:\\Work\\a.tmj"}));
}

TEST(ExtractFilePathsOnMultiOpen, GivesNothingForASingleField) {
  EXPECT_TRUE(ExtractFilePathsOnMultiOpen(u"D:\\Work\\missing.tmj").empty());
  EXPECT_TRUE(ExtractFilePathsOnMultiOpen(u"").empty());
}

TEST(ExtractFilePathsOnMultiOpen, KeepsBlanksAndDotsOfNames) {
  EXPECT_EQ(ExtractFilePathsOnMultiOpen(u"D:\\My files\0 a b.tmj\0x"sv),
            (Paths{u"D:\\My files\\ a b.tmj", u"D:\\My files\\x"}));
}

}  // namespace
}  // namespace deck
