#include "keytest/key_code_file.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

const std::u16string kHost = u"C:\\Host";
const std::u16string kTable = u"C:\\Host\\KeyCodes.txt";
const std::u16string kBackup = u"C:\\Host\\Info\\KeyCodes.txt";

const Message kMissing = {
    u"You're missing a critical file, called KeyCodes.txt which should be located in Wren's "
    u"directory. A backup copy is in your Info subdirectory. I shall attempt to copy this across "
    u"and restore the file. Please wait ...",
    u"KeyCodes.txt is missing !!!", BoxStyle::kCritical};
const Message kRestored = {
    u"C:\\Host\\KeyCodes.txt has been successfully restored. Please stop "
    u"misbehaving with my file system!",
    u"Well I saved your butt!", BoxStyle::kInformation};
const Message kFailed = {
    u"I was unable to restore C:\\Host\\KeyCodes.txt - please close down the "
    u"Key Tester and restore the file manually.",
    u"It didn't work :(", BoxStyle::kCritical};

class KeyCodeFileTest : public testing::Test {
 protected:
  KeyCodeFileTest() { files.AddFolder(kHost); }

  std::optional<KeyCodeTable> Load() {
    return GetMappedCharacters(kHost, {files, prompts, events, codePage});
  }

  FakeFiles files;
  FakePrompts prompts;
  FakeEventLoop events;
  FakeCodePage codePage;
};

TEST_F(KeyCodeFileTest, ATableThatIsThereIsReadInSilence) {
  files.AddFile(kTable, "65,A\r\n");
  files.AddFile(kBackup, "65,backup\r\n");
  const std::optional<KeyCodeTable> table = Load();
  ASSERT_TRUE(table);
  EXPECT_EQ(*table->NameOf(65), u"A");
  EXPECT_EQ(files.Content(kTable), "65,A\r\n");
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(events.pumps, 0);
}

TEST_F(KeyCodeFileTest, AMissingTableIsRestoredFromItsBackup) {
  files.AddFile(kBackup, "65,backup\r\n");
  const std::optional<KeyCodeTable> table = Load();
  ASSERT_TRUE(table);
  EXPECT_EQ(*table->NameOf(65), u"backup");
  EXPECT_EQ(files.Content(kTable), "65,backup\r\n");
  EXPECT_EQ(files.Content(kBackup), "65,backup\r\n");
  EXPECT_EQ(prompts.shown, (std::vector<Message>{kMissing, kRestored}));
  EXPECT_EQ(events.pumps, 1);
}

TEST_F(KeyCodeFileTest, WithoutABackupThereIsNoTable) {
  EXPECT_FALSE(Load());
  EXPECT_EQ(prompts.shown, (std::vector<Message>{kMissing, kFailed}));
}

TEST_F(KeyCodeFileTest, ABackupThatCannotBeCopiedGivesNoTable) {
  files.AddFile(kBackup, "65,backup\r\n");
  files.Fail(FileOperation::kCopy, kTable);
  EXPECT_FALSE(Load());
  EXPECT_EQ(prompts.shown, (std::vector<Message>{kMissing, kFailed}));
  EXPECT_FALSE(files.Exists(kTable));
}

TEST_F(KeyCodeFileTest, ATableThatSomebodyPutThereMeanwhileIsNotOverwritten) {
  files.AddFile(kBackup, "65,backup\r\n");
  prompts.onShow = [this](const Message& message) {
    if (message == kMissing) files.AddFile(kTable, "65,by hand\r\n");
  };
  const std::optional<KeyCodeTable> table = Load();
  ASSERT_TRUE(table);
  EXPECT_EQ(*table->NameOf(65), u"by hand");
  EXPECT_EQ(files.Content(kTable), "65,by hand\r\n");
}

TEST_F(KeyCodeFileTest, ATableThatComesWhileEventsRunIsARestoredOne) {
  events.actions.push_back([this] { files.AddFile(kTable, "65,late\r\n"); });
  const std::optional<KeyCodeTable> table = Load();
  ASSERT_TRUE(table);
  EXPECT_EQ(*table->NameOf(65), u"late");
  EXPECT_EQ(prompts.shown, (std::vector<Message>{kMissing, kRestored}));
}

TEST_F(KeyCodeFileTest, AFolderInItsPlaceIsNoTable) {
  files.AddFolder(kTable);
  files.AddFile(kBackup, "65,backup\r\n");
  EXPECT_FALSE(Load());
  EXPECT_EQ(prompts.shown, (std::vector<Message>{kMissing, kFailed}));
}

TEST_F(KeyCodeFileTest, ATableThatCannotBeReadIsAnEmptyOne) {
  files.AddFile(kTable, "65,A\r\n");
  files.Fail(FileOperation::kRead, kTable);
  const std::optional<KeyCodeTable> table = Load();
  ASSERT_TRUE(table);
  EXPECT_EQ(table->Count(), 0);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(KeyCodeFileTest, NamesAreReadInTheCodePageOfTheSystem) {
  files.AddFile(kTable, "186,\xE9\x80\r\n");  // code page 1252
  EXPECT_EQ(*Load()->NameOf(186), u"\u00E9\u20AC");
}

// Of two bytes for each character above ASCII, as in the East.
class DoubleByteCodePage : public CodePage {
 public:
  std::optional<std::u16string> Decode(std::string_view bytes) const override {
    if (bytes.find('\x81') != std::string_view::npos) return std::nullopt;
    return std::u16string(bytes.begin(), bytes.end());
  }
  std::optional<std::string> Encode(std::u16string_view) const override { return std::nullopt; }
};

TEST_F(KeyCodeFileTest, BytesThatTheCodePageDoesNotKnowSpoilNoOtherLine) {
  files.AddFile(kTable, "65,A\r\n66,\x81\r\n67,C\r\n");
  const DoubleByteCodePage doubleByte;
  const std::optional<KeyCodeTable> table =
      GetMappedCharacters(kHost, {files, prompts, events, doubleByte});
  EXPECT_EQ(*table->NameOf(65), u"A");
  EXPECT_EQ(*table->NameOf(66), u"\u0081");
  EXPECT_EQ(*table->NameOf(67), u"C");
}

}  // namespace
}  // namespace deck
