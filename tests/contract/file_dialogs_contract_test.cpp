#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/strings.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

class FileDialogsContract : public testing::Test {
 protected:
  FileDialogRequest Request() const {
    return {.filter = u"Joystick files (*.tmj) |*.tmj|All files (*.*) |*.*",
            .filterIndex = 2,
            .initialFolder = world_->Folder()};
  }

  std::u16string In(const std::u16string& name) const { return world_->Folder() + u"\\" + name; }

  const std::unique_ptr<FileDialogsWorld> world_ = MakeFileDialogsWorld();
  FileDialogs& dialogs_ = world_->Port();
};

TEST_F(FileDialogsContract, OpensOneFileByItsFullPath) {
  world_->WillChoose({u"a.tmj"});
  EXPECT_EQ(dialogs_.Open(Request()), In(u"a.tmj"));
}

TEST_F(FileDialogsContract, OpensSeveralFilesByTheirFolderAndNames) {
  world_->WillChoose({u"a.tmj", u"b.tmj"});
  EXPECT_EQ(dialogs_.Open(Request()), world_->Folder() + u'\0' + u"a.tmj" + u'\0' + u"b.tmj");
}

TEST_F(FileDialogsContract, OpensHundredsOfFilesWithLongNamesAtOnce) {
  std::vector<std::u16string> names;
  std::u16string selection = world_->Folder();
  for (int number = 100; number < 800; ++number) {
    names.push_back(std::u16string(100, u'n') + Decimal(number) + u".tmj");
    selection += u'\0' + names.back();
  }
  ASSERT_GT(selection.size(), 65536U);
  world_->WillChoose(names);
  EXPECT_EQ(dialogs_.Open(Request()), selection);
}

TEST_F(FileDialogsContract, GivesATypedNameBackThatNamesNoFile) {
  world_->WillChoose({u"missing.tmj"});
  EXPECT_EQ(dialogs_.Open(Request()), In(u"missing.tmj"));
}

TEST_F(FileDialogsContract, GivesNothingWhenCancelled) {
  world_->WillCancel();
  EXPECT_EQ(dialogs_.Open(Request()), std::nullopt);
  world_->WillCancel();
  EXPECT_FALSE(dialogs_.Save(Request()).has_value());
}

TEST_F(FileDialogsContract, SavesUnderATypedNameWithoutAddingAnything) {
  world_->WillChoose({u"new"});
  const auto choice = dialogs_.Save(Request());
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->path, In(u"new"));
  EXPECT_EQ(choice->filterIndex, 2);
}

TEST_F(FileDialogsContract, SavesOverAFileWithoutAsking) {
  world_->WillChoose({u"a.tmj"});
  const auto choice = dialogs_.Save(Request());
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->path, In(u"a.tmj"));
}

}  // namespace
}  // namespace deck
