#include "platform/text_encoding.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"

namespace deck {
namespace {

using namespace std::string_literals;

// A code page of two bytes for each character above 7F, in which not everything is valid: the bytes
// 81 xx, xx from 40, stand for U+4E00 + xx.
class TwoByteCodePage : public CodePage {
 public:
  std::optional<std::u16string> Decode(std::string_view bytes) const override {
    std::u16string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if (byte < 0x80) {
        text += char16_t{byte};
        continue;
      }
      if (byte != 0x81 || i + 1 == bytes.size()) return std::nullopt;
      const auto second = static_cast<unsigned char>(bytes[++i]);
      if (second < 0x40) return std::nullopt;
      text += static_cast<char16_t>(0x4E00 + second);
    }
    return text;
  }

  std::optional<std::string> Encode(std::u16string_view text) const override {
    std::string bytes;
    for (const char16_t character : text) {
      if (character < 0x80) {
        bytes += static_cast<char>(character);
      } else if (character >= 0x4E40 && character <= 0x4EFF) {
        bytes += '\x81';
        bytes += static_cast<char>(character - 0x4E00);
      } else {
        return std::nullopt;
      }
    }
    return bytes;
  }
};

// Reads more than it writes: the byte FF stands for the same character as 41.
class CodePageWithTwoFormsOfA : public FakeCodePage {
 public:
  std::optional<std::u16string> Decode(std::string_view bytes) const override {
    std::string copy(bytes);
    std::replace(copy.begin(), copy.end(), '\xFF', 'A');
    return FakeCodePage::Decode(copy);
  }
};

DecodedText Decoded(std::string_view bytes, const CodePage& codePage = FakeCodePage()) {
  const Result<DecodedText> result = DecodeFile(bytes, codePage);
  EXPECT_TRUE(result);
  return result ? *result : DecodedText{};
}

std::string Encoded(std::u16string_view text, FileFormat format,
                    const CodePage& codePage = FakeCodePage()) {
  return EncodeFile(text, format, codePage);
}

std::u16string TextOf(std::string_view bytes) {
  return Decoded(bytes).text;
}
Encoding EncodingOf(std::string_view bytes) {
  return Decoded(bytes).format.encoding;
}

TEST(DecodeFile, TakesAnEmptyFileForANewDocument) {
  EXPECT_EQ(TextOf(""), u"");
  EXPECT_EQ(Decoded("").format, FileFormat());
}

TEST(DecodeFile, TakesAsciiForTheCodePage) {
  EXPECT_EQ(TextOf("BTN S2 a"), u"BTN S2 a");
  EXPECT_EQ(EncodingOf("BTN S2 a"), Encoding::kCodePage);
}

TEST(DecodeFile, ReadsTheCodePage) {
  EXPECT_EQ(TextOf("caf\xE9 \x80 5"), u"café € 5");
  EXPECT_EQ(EncodingOf("caf\xE9 \x80 5"), Encoding::kCodePage);
}

TEST(DecodeFile, RecognisesUtf8WithoutAMark) {
  EXPECT_EQ(TextOf("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"), u"café € 😀");
  EXPECT_EQ(EncodingOf("caf\xC3\xA9"), Encoding::kUtf8);
}

TEST(DecodeFile, TakesUtf8WithOneWrongByteForTheCodePage) {
  const char* const wrong[] = {
      "\xC3\xA9 \xE9",         // a letter of the code page among UTF-8
      "\xC3",                  // cut short
      "\xE2\x82",              // cut short
      "\xF0\x9F\x98",          // cut short
      "\xC3 ",                 // a blank where the second byte should be
      "\xA9",                  // a second byte alone
      "\xC0\xAF",              // too long a form of "/"
      "\xC1\xBF",              // too long a form of DEL
      "\xE0\x80\xAF",          // too long a form of "/"
      "\xE0\x9F\xBF",          // too long a form of U+07FF
      "\xF0\x8F\xBF\xBF",      // too long a form of U+FFFF
      "\xED\xA0\x80",          // half a surrogate pair
      "\xED\xBF\xBF",          // half a surrogate pair
      "\xF4\x90\x80\x80",      // U+110000
      "\xF5\x80\x80\x80",      // beyond
      "\xF8\x88\x80\x80\x80",  // five bytes
      "\xFE",
      "\xFF",
      "\xFF\xFD",  // in no form
  };
  for (const char* bytes : wrong) {
    EXPECT_EQ(EncodingOf(bytes), Encoding::kCodePage) << bytes;
    EXPECT_EQ(TextOf(bytes), FakeCodePage().Decode(bytes)) << bytes;
  }
}

TEST(DecodeFile, AcceptsTheFirstAndLastCharacterOfEachLengthOfUtf8) {
  EXPECT_EQ(TextOf("\xC2\x80\xDF\xBF"), u"\x0080\x07FF");
  EXPECT_EQ(TextOf("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"),
            u"\x0800\xD7FF\xE000\xFFFF");
  EXPECT_EQ(TextOf("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), u"\xD800\xDC00\xDBFF\xDFFF");
}

TEST(DecodeFile, KnowsTheMarks) {
  EXPECT_EQ(TextOf("\xEF\xBB\xBF"
                   "a\xC3\xA9"),
            u"aé");
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF"
                       "a\xC3\xA9"),
            Encoding::kUtf8Mark);
  EXPECT_EQ(TextOf("\xFF\xFE"
                   "a\0\xAC\x20"s),
            u"a€");
  EXPECT_EQ(EncodingOf("\xFF\xFE"
                       "a\0"s),
            Encoding::kUtf16Le);
  EXPECT_EQ(TextOf("\xFE\xFF\0a\x20\xAC"s), u"a€");
  EXPECT_EQ(EncodingOf("\xFE\xFF\0a"s), Encoding::kUtf16Be);
}

TEST(DecodeFile, KeepsAMarkWithoutText) {
  for (const std::string mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    const DecodedText decoded = Decoded(mark);
    EXPECT_EQ(decoded.text, u"");
    EXPECT_EQ(Encoded(u"", decoded.format), mark);
  }
}

TEST(DecodeFile, ReadsTheCodePageBehindAMarkOfUtf8ThatLies) {
  EXPECT_EQ(TextOf("\xEF\xBB\xBF\xE9"), u"ï»¿é");
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF\xE9"), Encoding::kCodePage);
}

TEST(DecodeFile, ShowsWhatIsBrokenInUtf16) {
  EXPECT_EQ(TextOf("\xFF\xFE"
                   "a\0b"s),
            u"a\xFFFD");
  EXPECT_EQ(TextOf("\xFF\xFE\x00\xD8x\0"s), u"\xD800x");
}

TEST(DecodeFile, TakesBytesThatTheCodePageDoesNotKnowAsTheyAre) {
  const DecodedText decoded = Decoded("a\x82\xE9", TwoByteCodePage());
  EXPECT_EQ(decoded.text, u"a\x0082\x00E9");
  EXPECT_EQ(decoded.format.encoding, Encoding::kBytes);
}

TEST(DecodeFile, TakesBytesThatTheCodePageWouldWriteOtherwiseAsTheyAre) {
  const DecodedText decoded = Decoded("A\xFF", CodePageWithTwoFormsOfA());
  EXPECT_EQ(decoded.text, u"A\x00FF");
  EXPECT_EQ(decoded.format.encoding, Encoding::kBytes);
}

TEST(DecodeFile, RefusesZeroBytesWithAReason) {
  for (const std::string& bytes : {"\0"s, "a\0b"s, "\xE9\0"s, "\xC3\xA9\0"s, "\xFF\xFE\0\0"s,
                                   "\xFE\xFF\0\0"s, "\xEF\xBB\xBF\0"s, "MZ\x90\0\3\0"s}) {
    const Result<DecodedText> result = DecodeFile(bytes, FakeCodePage());
    ASSERT_FALSE(result);
    EXPECT_EQ(result.problem().reason, u"The file holds zero bytes, so it is not a text file.");
  }
}

TEST(DecodeFile, MakesEveryLineBreakOneCharacter) {
  EXPECT_EQ(TextOf("a\r\nb\nc\rd"), u"a\nb\nc\nd");
  EXPECT_EQ(TextOf("\r\r\n\n\r"), u"\n\n\n\n");
  EXPECT_EQ(TextOf("\n\r"), u"\n\n");
  EXPECT_EQ(TextOf("a\v\f\xC2\x85\xE2\x80\xA8z"), u"a\v\f\x0085\x2028z");
}

TEST(DecodeFile, RemembersTheLineBreakFoundMostOften) {
  const auto lineBreak = [](std::string_view bytes) { return Decoded(bytes).format.lineBreak; };
  EXPECT_EQ(lineBreak("a"), LineBreak::kCrLf);
  EXPECT_EQ(lineBreak("a\r\nb"), LineBreak::kCrLf);
  EXPECT_EQ(lineBreak("a\nb"), LineBreak::kLf);
  EXPECT_EQ(lineBreak("a\rb"), LineBreak::kCr);
  EXPECT_EQ(lineBreak("a\r\nb\nc\n"), LineBreak::kLf);
  EXPECT_EQ(lineBreak("a\nb\r\nc\r\n"), LineBreak::kCrLf);
  EXPECT_EQ(lineBreak("\n\r\n\r\r"), LineBreak::kCr);
}

TEST(DecodeFile, TakesTheFirstOfLineBreaksFoundEquallyOften) {
  const auto lineBreak = [](std::string_view bytes) { return Decoded(bytes).format.lineBreak; };
  EXPECT_EQ(lineBreak("a\nb\r\nc"), LineBreak::kLf);
  EXPECT_EQ(lineBreak("a\r\nb\nc"), LineBreak::kCrLf);
  EXPECT_EQ(lineBreak("a\rb\nc\r\n"), LineBreak::kCr);
  EXPECT_EQ(lineBreak("a\rb\nc\r\nd\n\re"), LineBreak::kCr);
}

TEST(EncodeFile, WritesEachEncoding) {
  EXPECT_EQ(Encoded(u"é€", {Encoding::kCodePage}), "\xE9\x80");
  EXPECT_EQ(Encoded(u"é€", {Encoding::kUtf8}), "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(Encoded(u"é", {Encoding::kUtf8Mark}), "\xEF\xBB\xBF\xC3\xA9");
  EXPECT_EQ(Encoded(u"é€", {Encoding::kUtf16Le}), "\xFF\xFE\xE9\0\xAC\x20"s);
  EXPECT_EQ(Encoded(u"é€", {Encoding::kUtf16Be}), "\xFE\xFF\0\xE9\x20\xAC"s);
  EXPECT_EQ(Encoded(u"\x0082", {Encoding::kBytes}), "\x82");
}

TEST(EncodeFile, WritesTheLineBreakOfTheFormat) {
  const auto written = [](LineBreak lineBreak) {
    return Encoded(u"a\n\nb\n", {Encoding::kCodePage, lineBreak});
  };
  EXPECT_EQ(written(LineBreak::kCrLf), "a\r\n\r\nb\r\n");
  EXPECT_EQ(written(LineBreak::kLf), "a\n\nb\n");
  EXPECT_EQ(written(LineBreak::kCr), "a\r\rb\r");
}

TEST(EncodeFile, TurnsToUtf8ForWhatTheFormatCannotHoldAndSaysSo) {
  for (const Encoding encoding : {Encoding::kCodePage, Encoding::kBytes}) {
    FileFormat format{encoding, LineBreak::kLf};
    EXPECT_EQ(EncodeFile(u"é Ж\n", format, FakeCodePage()), "\xC3\xA9 \xD0\x96\n");
    EXPECT_EQ(format, (FileFormat{Encoding::kUtf8, LineBreak::kLf}));
  }
}

TEST(EncodeFile, KeepsTheFormatThatHoldsTheText) {
  for (const Encoding encoding : {Encoding::kCodePage, Encoding::kUtf8, Encoding::kUtf8Mark,
                                  Encoding::kUtf16Le, Encoding::kUtf16Be, Encoding::kBytes}) {
    FileFormat format{encoding, LineBreak::kCr};
    EncodeFile(u"é\n", format, FakeCodePage());
    EXPECT_EQ(format, (FileFormat{encoding, LineBreak::kCr}));
  }
}

TEST(EncodeFile, WritesHalfASurrogatePairAsTheReplacementCharacterInUtf8) {
  EXPECT_EQ(Encoded(u"\xD800x", {Encoding::kUtf8}), "\xEF\xBF\xBDx");
  EXPECT_EQ(Encoded(u"x\xDC00", {Encoding::kUtf8}), "x\xEF\xBF\xBD");
  EXPECT_EQ(Encoded(u"\xDC00\xD800", {Encoding::kUtf8}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Encoded(u"\xD800\xD83D\xDE00", {Encoding::kUtf8}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

std::string RandomBytes(std::mt19937& random) {
  // Pieces that make every path of the decoder likely.
  const std::string pieces[] = {"a",    " ",    "\r\n",         "\xC3\xA9",         "\xE2\x82\xAC",
                                "\xE9", "\x81", "\xED\xA0\x80", "\xF0\x9F\x98\x80", "\xEF\xBB\xBF",
                                "\xFF", "\xFE", "\x9D",         "\x81\x45"};
  std::string bytes;
  for (auto i = random() % 8; i > 0; --i) bytes += pieces[random() % std::size(pieces)];
  return bytes;
}

TEST(FileText, ComesBackByteForByteFromAnyBytesWithOneKindOfLineBreak) {
  std::mt19937 random(4711);
  const FakeCodePage western;
  const TwoByteCodePage twoByte;
  for (int round = 0; round < 20'000; ++round) {
    const std::string bytes = RandomBytes(random);
    const bool isUtf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    if (isUtf16) continue;  // odd sizes and bytes that look like line breaks only as pairs
    for (const CodePage* codePage :
         {static_cast<const CodePage*>(&western), static_cast<const CodePage*>(&twoByte)}) {
      const DecodedText decoded = Decoded(bytes, *codePage);
      ASSERT_EQ(Encoded(decoded.text, decoded.format, *codePage), bytes);
    }
  }
}

TEST(FileText, ComesBackUnitForUnitFromAnyUtf16) {
  std::mt19937 random(4712);
  for (const Encoding encoding : {Encoding::kUtf16Le, Encoding::kUtf16Be}) {
    for (int round = 0; round < 2'000; ++round) {
      std::u16string text;
      for (auto i = random() % 6; i > 0; --i) text += static_cast<char16_t>(1 + random() % 0xFFFF);
      std::replace(text.begin(), text.end(), u'\r', u'\n');
      const DecodedText decoded = Decoded(Encoded(text, {encoding, LineBreak::kLf}));
      ASSERT_EQ(decoded.text, text);
      ASSERT_EQ(decoded.format.encoding, encoding);
    }
  }
}

TEST(Value, IsWrittenInTheCodePageWhereThatHoldsIt) {
  EXPECT_EQ(EncodeValue(u"C:\\Spiele\\Übung.tmj", FakeCodePage()),
            "C:\\Spiele\\\xDC"
            "bung.tmj");
  EXPECT_EQ(DecodeValue("C:\\Spiele\\\xDC"
                        "bung.tmj",
                        FakeCodePage()),
            u"C:\\Spiele\\Übung.tmj");
}

TEST(Value, IsWrittenInUtf8WhereTheCodePageDoesNotHoldIt) {
  EXPECT_EQ(EncodeValue(u"C:\\Ж.tmj", FakeCodePage()), "C:\\\xD0\x96.tmj");
  EXPECT_EQ(DecodeValue("C:\\\xD0\x96.tmj", FakeCodePage()), u"C:\\Ж.tmj");
}

TEST(Value, ComesBackEvenWhenItsBytesInTheCodePageLookLikeUtf8) {
  EXPECT_EQ(DecodeValue(EncodeValue(u"Ã©.tmj", FakeCodePage()), FakeCodePage()), u"Ã©.tmj");
}

TEST(Value, IsReadByteForByteWhenNothingElseFits) {
  EXPECT_EQ(DecodeValue("a\x82", TwoByteCodePage()), u"a\x0082");
}

TEST(Value, ComesBackFromAnyTextOfWholeCharacters) {
  std::mt19937 random(4713);
  const std::u16string pieces[] = {u"a", u"Ã", u"©", u"é", u"€", u"Ж", u"😀", u"\x4E45", u"\x0081"};
  for (int round = 0; round < 20'000; ++round) {
    std::u16string text;
    for (auto i = random() % 6; i > 0; --i) text += pieces[random() % std::size(pieces)];
    ASSERT_EQ(DecodeValue(EncodeValue(text, FakeCodePage()), FakeCodePage()), text);
    ASSERT_EQ(DecodeValue(EncodeValue(text, TwoByteCodePage()), TwoByteCodePage()), text);
  }
}

}  // namespace
}  // namespace deck
