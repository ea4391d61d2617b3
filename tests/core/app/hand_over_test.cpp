#include "app/hand_over.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

constexpr std::u16string_view kFile = u"C:\\My files\\a.tmj";

// ---- The message.

TEST(HandOverMessage, CarriesAnAbsolutePathOrNone) {
  for (const std::u16string_view path :
       {std::u16string_view(), kFile, std::u16string_view(u"z:\\\u0416\u00E9\U0001F600.tmm"),
        std::u16string_view(u"\\\\server\\share\\a.tmj"),
        std::u16string_view(u"\\\\s\\share\\a.tmj")}) {
    EXPECT_EQ(DecodeHandOver(kHandOverKind, EncodeHandOver(path)), path);
  }
}

TEST(HandOverMessage, IsTextOfTwoByteUnitsWithAnEnd) {
  EXPECT_EQ(EncodeHandOver(u""), std::string("\0\0", 2));
  EXPECT_EQ(EncodeHandOver(u"a\u0416"), std::string("a\0\x16\x04\0\0", 6));
}

TEST(HandOverMessage, HoldsTheLongestPathAndNoLongerOne) {
  const std::u16string path = u"C:\\" + std::u16string(32767 - 3, u'x');
  EXPECT_EQ(DecodeHandOver(kHandOverKind, EncodeHandOver(path)), path);
  EXPECT_EQ(DecodeHandOver(kHandOverKind, EncodeHandOver(path + u"x")), std::nullopt);
}

TEST(HandOverMessage, OfAnotherKindIsNone) {
  const std::string bytes = EncodeHandOver(kFile);
  for (const std::uint64_t kind : {std::uint64_t{0}, std::uint64_t{1}, kHandOverKind + 1,
                                   kHandOverKind | (std::uint64_t{1} << 32U)}) {
    EXPECT_EQ(DecodeHandOver(kind, bytes), std::nullopt) << kind;
  }
}

class HostileText : public testing::TestWithParam<std::u16string_view> {};

TEST_P(HostileText, IsNoPath) {
  const std::string bytes = EncodeHandOver(GetParam());
  EXPECT_EQ(DecodeHandOver(kHandOverKind, bytes), std::nullopt);
  EXPECT_EQ(AnswerHandOver(kHandOverKind, bytes, EditorState::kIdle), HandOverAnswer());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, HostileText,
    testing::Values(u"a.tmj", u"..\\a.tmj", u"\\a.tmj", u"C:", u"C:\\", u"C:a.tmj", u"C:/a.tmj",
                    u"C:\\x/a.tmj", u"1:\\a.tmj", u"\u00E9:\\a.tmj", u" C:\\a.tmj", u"/x",
                    u"C:\\*.tmj", u"C:\\a?.tmj", u"C:\\a.tmj:stream", u"C:\\a\"b", u"C:\\a|b",
                    u"C:\\<a>", u"C:\\a\nb", u"C:\\a\x1F", u"\\\\.\\COM1", u"\\\\.\\pipe\\x",
                    u"\\\\.\\C:\\a.tmj", u"\\\\?\\C:\\a.tmj", u"\\\\?\\UNC\\s\\s\\a", u"\\\\",
                    u"\\\\server", u"\\\\server\\", u"\\\\server\\share", u"\\\\server\\share\\",
                    u"\\\\\\share\\a", u"\\\\server\\\\a", u"\\\\server\\sh:re\\a",
                    u"http://server/a.tmj", u"file:\\\\C:\\a.tmj",
                    // The text ends at none of its first characters.
                    std::u16string_view(u"C:\\a.tmj\0", 9), std::u16string_view(u"\0", 1),
                    std::u16string_view(u"C:\\a\0.tmj", 9)));

struct Raw {
  const char* name;
  std::string bytes;
};

class HostileBytes : public testing::TestWithParam<Raw> {};

TEST_P(HostileBytes, AreNoMessage) {
  EXPECT_EQ(DecodeHandOver(kHandOverKind, GetParam().bytes), std::nullopt) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, HostileBytes,
    testing::Values(Raw{"nothing", {}}, Raw{"half an end", std::string(1, '\0')},
                    Raw{"no end", std::string("C\0:\0\\\0a\0", 8)},
                    Raw{"half an end behind", std::string("C\0:\0\\\0a\0\0", 9)},
                    Raw{"text of single bytes", "C:\\a.tmj"},
                    Raw{"text of single bytes with an end", std::string("C:\\a.tmj\0\0", 10)},
                    Raw{"zeros", std::string(64, '\0')}, Raw{"ones", std::string(64, '\xFF')},
                    Raw{"a megabyte", std::string(1U << 20U, 'x') + std::string(2, '\0')},
                    Raw{"one unit too long", std::string(65536, 'x') + std::string(2, '\0')}),
    [](const testing::TestParamInfo<Raw>& tested) {
      return "Number" + std::to_string(tested.index);
    });

// Whatever is made of a message by chance, what comes through is what EncodeHandOver makes.
TEST(HandOverMessage, OfRandomBytesIsNoneOrOneThatAStartWouldSend) {
  std::mt19937 random(20261121);
  const std::string valid = EncodeHandOver(kFile);
  int accepted = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = valid;
    for (auto changes = random() % 3; changes > 0; --changes) {
      const std::size_t at = random() % (bytes.size() + 1);
      switch (random() % 3) {
        case 0:
          bytes.insert(at, 1, static_cast<char>(random()));
          break;
        case 1:
          bytes.erase(at, random() % 3);
          break;
        default:
          if (at < bytes.size()) bytes[at] = static_cast<char>(random());
      }
    }
    const std::optional<std::u16string> path = DecodeHandOver(kHandOverKind, bytes);
    if (!path) continue;
    ++accepted;
    EXPECT_EQ(EncodeHandOver(*path), bytes);
    EXPECT_EQ(path->find(u'\0'), std::u16string::npos);
  }
  EXPECT_GT(accepted, 0);
}

// ---- The editor's answer.

TEST(HandOverAnswers, AnIdleEditorTakesTheFileAndComesToTheFront) {
  EXPECT_EQ(AnswerHandOver(kHandOverKind, EncodeHandOver(kFile), EditorState::kIdle),
            (HandOverAnswer{HandOverReply::kTaken, true, std::u16string(kFile)}));
}

TEST(HandOverAnswers, ABusyEditorTakesNoFileYet) {
  EXPECT_EQ(AnswerHandOver(kHandOverKind, EncodeHandOver(kFile), EditorState::kBusy),
            (HandOverAnswer{HandOverReply::kBusy, false, {}}));
}

TEST(HandOverAnswers, WithoutAFileIdleAndBusyEditorsComeToTheFront) {
  for (const EditorState state : {EditorState::kIdle, EditorState::kBusy}) {
    EXPECT_EQ(AnswerHandOver(kHandOverKind, EncodeHandOver({}), state),
              (HandOverAnswer{HandOverReply::kTaken, true, {}}));
  }
}

TEST(HandOverAnswers, AClosedEditorDoesNothingMore) {
  for (const std::u16string_view path : {std::u16string_view(), kFile}) {
    EXPECT_EQ(AnswerHandOver(kHandOverKind, EncodeHandOver(path), EditorState::kClosed),
              (HandOverAnswer{HandOverReply::kBusy, false, {}}));
  }
}

// ---- The start. Replies are used up one by one; afterwards nobody is there.

struct Starting : testing::Test {
  StartAs Start(std::u16string_view path) {
    return HandOver(path,
                    {.claim =
                         [this](int milliseconds) {
                           waited += milliseconds;
                           return claims++ >= rightIsFreeAfter;
                         },
                     .tell = [this](const std::string& bytes) -> std::optional<HandOverReply> {
                       told.push_back(bytes);
                       if (told.size() > replies.size()) return lastReply;
                       return replies[told.size() - 1];
                     }});
  }

  static constexpr int kNever = 1 << 30;
  int rightIsFreeAfter = kNever;  // claims
  std::vector<std::optional<HandOverReply>> replies;
  std::optional<HandOverReply> lastReply;

  int claims = 0;
  int waited = 0;
  std::vector<std::string> told;
  const std::string toFront = EncodeHandOver({});
  const std::string withFile = EncodeHandOver(kFile);
};

TEST_F(Starting, TheFirstIsTheOnlyEditorAtOnce) {
  rightIsFreeAfter = 0;
  EXPECT_EQ(Start(kFile), StartAs::kOnlyEditor);
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(waited, 0);
}

TEST_F(Starting, HandsItsFileToTheOtherEditorThatItHasBroughtToTheFront) {
  lastReply = HandOverReply::kTaken;
  EXPECT_EQ(Start(kFile), StartAs::kHandedOver);
  EXPECT_EQ(told, (std::vector{toFront, withFile}));
  EXPECT_EQ(waited, 0);
}

TEST_F(Starting, WithoutAFileItOnlyBringsTheOtherEditorToTheFront) {
  lastReply = HandOverReply::kTaken;
  EXPECT_EQ(Start(u""), StartAs::kHandedOver);
  EXPECT_EQ(told, (std::vector{toFront}));
}

TEST_F(Starting, WaitsForAnEditorThatHasNoWindowYet) {
  replies = {std::nullopt, std::nullopt, HandOverReply::kTaken, HandOverReply::kTaken};
  EXPECT_EQ(Start(kFile), StartAs::kHandedOver);
  EXPECT_EQ(told, (std::vector{toFront, toFront, toFront, withFile}));
}

TEST_F(Starting, AsksABusyEditorAgainWithoutBringingItToTheFrontEachTime) {
  replies = {HandOverReply::kTaken, HandOverReply::kBusy, HandOverReply::kBusy,
             HandOverReply::kTaken};
  EXPECT_EQ(Start(kFile), StartAs::kHandedOver);
  EXPECT_EQ(told, (std::vector{toFront, withFile, withFile, withFile}));
}

TEST_F(Starting, OpensTheFileItselfWhenTheOtherEditorStaysBusyForSeconds) {
  replies = {HandOverReply::kTaken};
  lastReply = HandOverReply::kBusy;
  EXPECT_EQ(Start(kFile), StartAs::kBesideOthers);
  EXPECT_EQ(waited, 8000);
}

TEST_F(Starting, OpensTheFileItselfWhenNoWindowComes) {
  EXPECT_EQ(Start(kFile), StartAs::kBesideOthers);
  EXPECT_EQ(waited, 8000);
}

TEST_F(Starting, OpensTheFileItselfAtOnceWhenTheOtherEditorDoesNotAnswer) {
  lastReply = HandOverReply::kRefused;
  EXPECT_EQ(Start(kFile), StartAs::kBesideOthers);
  EXPECT_EQ(waited, 0);
}

TEST_F(Starting, OpensTheFileItselfWhenTheFileIsRefused) {
  replies = {HandOverReply::kTaken, HandOverReply::kRefused};
  EXPECT_EQ(Start(kFile), StartAs::kBesideOthers);
}

TEST_F(Starting, BecomesTheOnlyEditorWhenTheOtherOneEndsMeanwhile) {
  replies = {HandOverReply::kTaken, HandOverReply::kBusy, std::nullopt};
  rightIsFreeAfter = 3;
  EXPECT_EQ(Start(kFile), StartAs::kOnlyEditor);
  EXPECT_EQ(told.size(), 4U);
}

TEST(OnlyEditorRight, IsOneForAFolderInAnyLetterCase) {
  EXPECT_EQ(OnlyEditorName(u"C:\\Games\\Wren\\"), OnlyEditorName(u"c:\\games\\WREN\\"));
  EXPECT_NE(OnlyEditorName(u"C:\\Games\\Wren\\"), OnlyEditorName(u"C:\\Games\\Wren2\\"));
  const std::u16string name = OnlyEditorName(std::u16string(30000, u'\\'));
  EXPECT_LT(name.size(), 100U);
  EXPECT_EQ(name.find(u'\\'), std::u16string::npos);
}

// ---- The file in the editor.

struct HandedOver : EditorFixture {
  HandedOver() { files.AddFile(u"C:\\Work\\a.tmj", "BTN S1 A\r\n"); }
};

TEST_F(HandedOver, AFileIsOpenedAndListedAmongTheRecentOnes) {
  Start();
  editor.OnFileHandedOver(u"C:\\Work\\a.tmj");
  EXPECT_EQ(editor.Documents().Current().path, u"C:\\Work\\a.tmj");
  EXPECT_EQ(Own(u"Previous Files", u"PreviousFilePath1"), u"C:\\Work\\a.tmj");
}

TEST_F(HandedOver, AFileThatIsOpenIsOpenedOnceMoreOnlyAfterAYes) {
  Start(u"WrenDeck.exe C:\\Work\\a.tmj");
  prompts.answers = {Answer::kNo};
  editor.OnFileHandedOver(u"C:\\Work\\a.tmj");
  EXPECT_EQ(prompts.shown.back().title, u"File already open");
  EXPECT_EQ(editor.Documents().Count(), 1);
}

TEST_F(HandedOver, AFileThatIsGoneOrAFolderDoesNothing) {
  Start();
  editor.OnFileHandedOver(u"C:\\Work\\gone.tmj");
  editor.OnFileHandedOver(u"C:\\Host\\Files");
  EXPECT_EQ(editor.Documents().Count(), 1);
  EXPECT_EQ(editor.Documents().Current().path, u"");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(HandedOver, NothingIsOpenedBeforeTheStartIsThrough) {
  editor.OnFileHandedOver(u"C:\\Work\\a.tmj");
  EXPECT_EQ(editor.Documents().Count(), 0);
}

}  // namespace
}  // namespace deck
