#include "keytest/save_key_log.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

class SaveKeyLogTest : public testing::Test {
 protected:
  SaveKeyLogTest() { files.AddFolder(u"C:\\Files"); }
  ~SaveKeyLogTest() override {
    EXPECT_TRUE(prompts.unexpected.empty());
    EXPECT_EQ(dialogs.unexpected, 0);
  }

  void Save(std::u16string_view text, const std::u16string& path, int filterIndex = 1) {
    dialogs.saveResults.push_back(SaveChoice{path, filterIndex});
    SaveKeyLog(text, u"C:\\Files\\", {files, dialogs, prompts, codePage});
  }

  FakeFiles files;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakeCodePage codePage;
};

TEST_F(SaveKeyLogTest, WritesTheLinesAsTheyAre) {
  Save(u"Down: a\r\nUp: a\r\n", u"C:\\Files\\log.txt");
  EXPECT_EQ(files.Content(u"C:\\Files\\log.txt"), "Down: a\r\nUp: a\r\n");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(SaveKeyLogTest, StartsInTheFolderOfTheFiles) {
  Save(u"", u"C:\\Files\\log.txt");
  ASSERT_EQ(dialogs.saveRequests.size(), 1U);
  EXPECT_EQ(dialogs.saveRequests[0].initialFolder, u"C:\\Files\\");
  EXPECT_EQ(dialogs.saveRequests[0].fileName, u"Keys.txt");
}

TEST_F(SaveKeyLogTest, ATextFileGetsItsExtension) {
  Save(u"x\r\n", u"C:\\Files\\log");
  Save(u"y\r\n", u"C:\\Files\\other", 2);
  EXPECT_EQ(files.Content(u"C:\\Files\\log.txt"), "x\r\n");
  EXPECT_EQ(files.Content(u"C:\\Files\\other"), "y\r\n");
}

TEST_F(SaveKeyLogTest, ACharacterOutsideTheCodePageIsKept) {
  Save(u" \u4E2D\r\n", u"C:\\Files\\log.txt");
  EXPECT_EQ(files.Content(u"C:\\Files\\log.txt"), " \xE4\xB8\xAD\r\n");
}

TEST_F(SaveKeyLogTest, AFileIsReplacedOnlyWhenTheUserAgrees) {
  files.AddFile(u"C:\\Files\\log.txt", "old");
  prompts.answers = {Answer::kNo, Answer::kYes};
  Save(u"new\r\n", u"C:\\Files\\log.txt");
  EXPECT_EQ(files.Content(u"C:\\Files\\log.txt"), "old");
  EXPECT_EQ(prompts.shown.back(),
            (Message{u"log.txt already exists. Do you want me to overwrite this file?",
                     u"Save key log", BoxStyle::kYesNo}));
  Save(u"new\r\n", u"C:\\Files\\log.txt");
  EXPECT_EQ(files.Content(u"C:\\Files\\log.txt"), "new\r\n");
}

TEST_F(SaveKeyLogTest, ACancelledDialogWritesNothing) {
  dialogs.saveResults.push_back(std::nullopt);
  SaveKeyLog(u"x\r\n", u"C:\\Files\\", {files, dialogs, prompts, codePage});
  EXPECT_TRUE(files.AllFiles().empty());
}

TEST_F(SaveKeyLogTest, AFileThatCannotBeWrittenIsTold) {
  files.Fail(FileOperation::kReplace, u"C:\\Files\\log.txt", u"The disk is full.");
  Save(u"x\r\n", u"C:\\Files\\log.txt");
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_EQ(prompts.shown[0],
            (Message{u"C:\\Files\\log.txt could not be saved.\r\nThe disk is full.",
                     u"Save key log", BoxStyle::kExclamation}));
}

}  // namespace
}  // namespace deck
