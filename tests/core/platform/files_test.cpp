#include "platform/files.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_files.h"

namespace deck {
namespace {

TEST(FileExists, IsTrueForAFile) {
  FakeFiles files;
  files.AddFile(u"C:\\games\\a.tmj", "x");
  EXPECT_TRUE(FileExists(files, u"C:\\games\\a.tmj"));
  EXPECT_TRUE(FileExists(files, u"c:\\GAMES\\A.TMJ"));
}

TEST(FileExists, IsFalseForWhatIsNotThereOrNoFile) {
  FakeFiles files;
  files.AddFile(u"C:\\games\\a.tmj", "x");
  EXPECT_FALSE(FileExists(files, u""));
  EXPECT_FALSE(FileExists(files, u"C:\\games\\b.tmj"));
  EXPECT_FALSE(FileExists(files, u"C:\\games"));
  EXPECT_FALSE(FileExists(files, u"C:\\games\\a.tmj\\"));
}

// Some systems take wildcards in a query for the first file that fits.
class FilesWhereEverythingExists : public FakeFiles {
 public:
  std::optional<FileAttributes> Attributes(const std::u16string&) const override {
    return FileAttributes{};
  }
};

TEST(FileExists, IsFalseForWildcardsAndEmptyPathsWhateverTheSystemSays) {
  const FilesWhereEverythingExists files;
  EXPECT_TRUE(FileExists(files, u"C:\\a.tmj"));
  EXPECT_FALSE(FileExists(files, u"C:\\*.tmj"));
  EXPECT_FALSE(FileExists(files, u"C:\\?.tmj"));
  EXPECT_FALSE(FileExists(files, u""));
}

// Records which folders were tried.
class FilesWithTrace : public FakeFiles {
 public:
  bool SetCurrentFolder(const std::u16string& path) override {
    tried.push_back(path);
    return FakeFiles::SetCurrentFolder(path);
  }

  std::vector<std::u16string> tried;
};

TEST(ChangeDriveAndFolder, TakesTheDriveThenItsRootThenTheFolder) {
  FilesWithTrace files;
  files.AddFolder(u"D:\\tools\\deck");
  ChangeDriveAndFolder(files, u"D:\\tools\\deck\\");
  EXPECT_EQ(files.CurrentFolder(), u"D:\\tools\\deck");
  EXPECT_EQ(files.tried, (std::vector<std::u16string>{u"D:", u"D:\\", u"D:\\tools\\deck\\"}));
}

TEST(ChangeDriveAndFolder, EndsAtTheRootWhenTheFolderIsMissing) {
  FakeFiles files;
  files.AddFolder(u"D:\\");
  ChangeDriveAndFolder(files, u"D:\\missing");
  EXPECT_EQ(files.CurrentFolder(), u"D:\\");
}

TEST(ChangeDriveAndFolder, StaysWhereItWasWhenTheDriveIsMissing) {
  FakeFiles files;
  files.AddFolder(u"C:\\here");
  files.SetCurrentFolder(u"C:\\here");
  ChangeDriveAndFolder(files, u"Q:\\anything");
  EXPECT_EQ(files.CurrentFolder(), u"C:\\here");
}

TEST(ChangeDriveAndFolder, LooksForARelativeFolderFromTheCurrentOne) {
  FakeFiles files;
  files.AddFolder(u"C:\\here\\below");
  files.SetCurrentFolder(u"C:\\here");
  ChangeDriveAndFolder(files, u"below");
  EXPECT_EQ(files.CurrentFolder(), u"C:\\here\\below");
}

TEST(ChangeToDriveRoot, TakesTheFirstCharacterForTheDrive) {
  FakeFiles files;
  files.AddFolder(u"D:\\tools");
  ChangeToDriveRoot(files, u"D:\\tools\\run.exe /x");
  EXPECT_EQ(files.CurrentFolder(), u"D:\\");
  ChangeToDriveRoot(files, u"Calc.exe");
  EXPECT_EQ(files.CurrentFolder(), u"C:\\");
}

TEST(ChangeToDriveRoot, TriesNothingForTextThatBeginsWithoutALetter) {
  FilesWithTrace files;
  for (const char16_t* path :
       {u"", u"\"C:\\a b.exe\"", u"\\\\server\\share\\a.exe", u"1", u".", u"{a"})
    ChangeToDriveRoot(files, path);
  EXPECT_EQ(files.tried, std::vector<std::u16string>{});
}

}  // namespace
}  // namespace deck
