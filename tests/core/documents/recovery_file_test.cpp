#include "documents/recovery_file.h"

#include <gtest/gtest.h>

#include <string>

namespace deck {
namespace {

const RecoveryText kSample{u"C:\\Files\\Übung 飛行.tmj",
                           {Encoding::kUtf16Be, LineBreak::kCr},
                           18446744073709551615u,
                           u"BTN S1 X\n\nPath=no\n\u20AC \xD83D\xDE00 \xD800"};

TEST(RecoveryFile, GivesBackWhatWasWritten) {
  EXPECT_EQ(DecodeRecoveryFile(EncodeRecoveryFile(kSample)), kSample);
  EXPECT_EQ(DecodeRecoveryFile(EncodeRecoveryFile({})), RecoveryText{});
  for (const Encoding encoding : {Encoding::kCodePage, Encoding::kUtf8, Encoding::kUtf8Mark,
                                  Encoding::kUtf16Le, Encoding::kUtf16Be, Encoding::kBytes}) {
    for (const LineBreak lineBreak : {LineBreak::kCrLf, LineBreak::kLf, LineBreak::kCr}) {
      const RecoveryText text{u"", {encoding, lineBreak}, 1, u"x"};
      EXPECT_EQ(DecodeRecoveryFile(EncodeRecoveryFile(text)), text);
    }
  }
}

TEST(RecoveryFile, CanBeReadWithAnyEditor) {
  const std::string bytes = EncodeRecoveryFile({u"a", {}, 7, u"x\ny"});
  const std::u16string expected =
      u"\uFEFFWrenDeck recovery 1\nPath=a\nEncoding=0\nLineBreak=0\nFingerprint=7\n\nx\ny";
  ASSERT_EQ(bytes.size(), 2 * expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(static_cast<unsigned char>(bytes[2 * i]), expected[i] & 0xFF);
    EXPECT_EQ(static_cast<unsigned char>(bytes[2 * i + 1]), expected[i] >> 8);
  }
}

TEST(RecoveryFile, TakesNoFileThatIsCutInItsHead) {
  const std::string bytes = EncodeRecoveryFile(kSample);
  const std::size_t head = bytes.size() - 2 * kSample.text.size();
  for (std::size_t size = 0; size < head; ++size) {
    EXPECT_FALSE(DecodeRecoveryFile(std::string_view(bytes).substr(0, size))) << size;
  }
}

TEST(RecoveryFile, TakesNoForeignFile) {
  const auto decode = [](std::u16string text) {
    std::string bytes;
    for (const char16_t unit : text) {
      bytes += static_cast<char>(unit & 0xFF);
      bytes += static_cast<char>(unit >> 8);
    }
    return DecodeRecoveryFile(bytes).has_value();
  };
  const std::u16string start = u"\uFEFFWrenDeck recovery 1\n";
  ASSERT_TRUE(decode(start + u"Path=\nEncoding=0\nLineBreak=0\nFingerprint=0\n\nx"));
  for (const std::u16string head : {
           u"Path=\nEncoding=6\nLineBreak=0\nFingerprint=0\n\nx",
           u"Path=\nEncoding=-1\nLineBreak=0\nFingerprint=0\n\nx",
           u"Path=\nEncoding=\nLineBreak=0\nFingerprint=0\n\nx",
           u"Path=\nEncoding=00\nLineBreak=0\nFingerprint=0\n\nx",
           u"Path=\nEncoding=0\nLineBreak=3\nFingerprint=0\n\nx",
           u"Path=\nEncoding=0\nLineBreak=x\nFingerprint=0\n\nx",
           u"Path=\nEncoding=0\nLineBreak=0\nFingerprint=18446744073709551616\n\nx",
           u"Path=\nEncoding=0\nLineBreak=0\nFingerprint=111111111111111111111\n\nx",
           u"Path=\nEncoding=0\nLineBreak=0\nFingerprint=0\nx",
           u"Path=\nEncoding=0\nFingerprint=0\nLineBreak=0\n\nx",
           u"Encoding=0\nLineBreak=0\nFingerprint=0\n\nx",
       }) {
    EXPECT_FALSE(decode(start + head)) << testing::PrintToString(head);
  }
  EXPECT_FALSE(decode(start + u"Path=\nEncoding=0\nLineBreak=0\nFingerprint=0\n\nx" + u'\0'));
  EXPECT_FALSE(decode(u"WrenDeck recovery 1\nPath=\nEncoding=0\nLineBreak=0\nFingerprint=0\n\nx"));
  EXPECT_FALSE(DecodeRecoveryFile(EncodeRecoveryFile(kSample) + "x"));
}

TEST(RecoveryFile, NamesTellTheSessionAndTheNumber) {
  EXPECT_EQ(FileNameFor({3, 17}), u"3-17.txt");
  EXPECT_EQ(ParseRecoveryName(u"3-17.txt"), (RecoveryName{3, 17}));
  EXPECT_EQ(ParseRecoveryName(u"1000000000-1.txt"), (RecoveryName{1'000'000'000, 1}));
}

TEST(RecoveryFile, OtherNamesAreNoRecoveryFiles) {
  for (const char16_t* name : {u"",
                               u".txt",
                               u"-.txt",
                               u"1-.txt",
                               u"-1.txt",
                               u"1.txt",
                               u"0-1.txt",
                               u"1-0.txt",
                               u"01-1.txt",
                               u"1-01.txt",
                               u"1-2",
                               u"1-2.TXT",
                               u"1-2.txt~",
                               u"1--2.txt",
                               u"1-2-3.txt",
                               u"+1-2.txt",
                               u"1-2.txt~77-8.tmp",
                               u"1000000001-1.txt",
                               u"1-99999999999999999999999.txt",
                               u"1.lock"}) {
    EXPECT_FALSE(ParseRecoveryName(name)) << testing::PrintToString(std::u16string(name));
  }
}

TEST(RecoveryFile, TheFingerprintTellsBytesApart) {
  // The published values of the 64-bit hash.
  EXPECT_EQ(FingerprintOf(""), 0xCBF29CE484222325u);
  EXPECT_EQ(FingerprintOf("a"), 0xAF63DC4C8601EC8Cu);
  EXPECT_EQ(FingerprintOf("foobar"), 0x85944171F73967E8u);
}

}  // namespace
}  // namespace deck
