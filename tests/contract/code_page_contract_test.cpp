#include <string>

#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class CodePageContract : public testing::Test {
 protected:
  void SetUp() override {
    if (!codePage_) GTEST_SKIP() << "the system's code page is not 1252";
  }

  const std::unique_ptr<CodePage> codePage_ = MakeWesternCodePage();
};

TEST_F(CodePageContract, KeepsAscii) {
  for (char byte = 1; byte < 0x7F; ++byte) {
    EXPECT_EQ(codePage_->Decode(std::string(1, byte)),
              std::u16string(1, static_cast<char16_t>(byte)));
  }
}

TEST_F(CodePageContract, KnowsTheLettersAbove) {
  EXPECT_EQ(codePage_->Decode("caf\xE9 \x80 \x8A\x9E\xFF"), u"café € Šžÿ");
  EXPECT_EQ(codePage_->Encode(u"café € Šžÿ"), "caf\xE9 \x80 \x8A\x9E\xFF");
}

TEST_F(CodePageContract, GivesEveryByteBack) {
  for (int number = 0; number < 256; ++number) {
    const std::string byte(1, static_cast<char>(number));
    const auto text = codePage_->Decode(byte);
    ASSERT_TRUE(text.has_value()) << number;
    EXPECT_EQ(codePage_->Encode(*text), byte) << number;
  }
}

TEST_F(CodePageContract, TakesItsHolesForControlCharacters) {
  EXPECT_EQ(codePage_->Decode("\x81\x8D\x8F\x90\x9D"), u"\x0081\x008D\x008F\x0090\x009D");
}

TEST_F(CodePageContract, EncodesNothingThatItDoesNotHoldExactly) {
  // Among them letters and quotes for which the system knows a similar one.
  for (const char16_t* text : {u"Ж", u"aЖ", u"ā", u"′", u"∞", u"\x0080", u"😀", u"Ａ", u"\xFFFD"})
    EXPECT_EQ(codePage_->Encode(text), std::nullopt);
}

TEST_F(CodePageContract, TakesNothingForNothing) {
  EXPECT_EQ(codePage_->Decode(""), u"");
  EXPECT_EQ(codePage_->Encode(u""), "");
}

TEST_F(CodePageContract, HoldsLongTexts) {
  const std::string bytes(3'000'000, '\xE9');
  const auto text = codePage_->Decode(bytes);
  ASSERT_TRUE(text.has_value());
  EXPECT_EQ(text->size(), bytes.size());
  EXPECT_EQ(codePage_->Encode(*text), bytes);
}

}  // namespace
}  // namespace deck
