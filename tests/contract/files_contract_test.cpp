#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class FilesContract : public testing::Test {
 protected:
  std::u16string In(const std::u16string& name) const { return world_->Folder() + u"\\" + name; }

  std::u16string MakeFile(const std::u16string& name, std::string_view bytes) {
    EXPECT_TRUE(files_.Create(In(name), bytes));
    return In(name);
  }

  // "missing" for what cannot be read.
  std::string Content(const std::u16string& path) const {
    const Result<std::string> bytes = files_.Read(path);
    return bytes ? *bytes : "missing";
  }

  // An expected failure comes with a reason that fills a line.
  static void ExpectProblem(const Result<void>& result) {
    ASSERT_FALSE(result);
    const std::u16string& reason = result.problem().reason;
    EXPECT_FALSE(reason.empty());
    EXPECT_EQ(reason.find_first_of(u"\r\n"), std::u16string::npos);
  }

  const std::unique_ptr<FilesWorld> world_ = MakeFilesWorld();
  Files& files_ = world_->Port();
};

TEST_F(FilesContract, TellsFilesFromFolders) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  ASSERT_TRUE(files_.Attributes(file).has_value());
  EXPECT_FALSE(files_.Attributes(file)->folder);
  ASSERT_TRUE(files_.Attributes(In(u"sub")).has_value());
  EXPECT_TRUE(files_.Attributes(In(u"sub"))->folder);
  EXPECT_TRUE(files_.Attributes(In(u"sub\\")).has_value());
}

TEST_F(FilesContract, KnowsNoAttributesOfWhatIsNotThere) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  for (const std::u16string& path : {In(u"b.tmj"), In(u"missing\\a.tmj"), In(u"*.tmj"),
                                     In(u"?.tmj"), std::u16string(), file + u"\\"}) {
    EXPECT_EQ(files_.Attributes(path).has_value(), false);
  }
}

TEST_F(FilesContract, TellsReadOnlyFiles) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  EXPECT_FALSE(files_.Attributes(file)->readOnly);
  world_->SetReadOnly(file, true);
  EXPECT_TRUE(files_.Attributes(file)->readOnly);
  world_->SetReadOnly(file, false);
  EXPECT_FALSE(files_.Attributes(file)->readOnly);
}

TEST_F(FilesContract, TakesCapitalAndSmallLettersInPathsForTheSame) {
  MakeFile(u"Übung.tmj", "x");
  EXPECT_EQ(Content(In(u"üBUNG.TMJ")), "x");
  EXPECT_FALSE(files_.Create(In(u"üBUNG.TMJ"), "y"));
}

TEST_F(FilesContract, KeepsNamesInEveryScript) {
  MakeFile(u"полёт 飛行 é.tmj", "x");
  EXPECT_EQ(Content(In(u"полёт 飛行 é.tmj")), "x");
}

TEST_F(FilesContract, ReadsEveryByte) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(Content(MakeFile(u"bytes", bytes)), bytes);
  EXPECT_EQ(Content(MakeFile(u"empty", "")), "");
}

TEST_F(FilesContract, DoesNotReadWhatIsNoFile) {
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  for (const std::u16string& path :
       {In(u"b.tmj"), In(u"missing\\a.tmj"), In(u"sub"), In(u"*.tmj"), std::u16string()}) {
    const Result<std::string> result = files_.Read(path);
    ASSERT_FALSE(result);
    EXPECT_FALSE(result.problem().reason.empty());
  }
}

TEST_F(FilesContract, CreatesNothingOverAnything) {
  const std::u16string file = MakeFile(u"a.tmj", "old");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  ExpectProblem(files_.Create(file, "new"));
  ExpectProblem(files_.Create(In(u"sub"), "new"));
  EXPECT_EQ(Content(file), "old");
}

TEST_F(FilesContract, CreatesNothingWhereNoFileCanBe) {
  const std::u16string longName(260, u'a');
  for (const std::u16string& path : {In(u"missing\\a.tmj"), In(u"a*.tmj"), In(u"a?b"), In(u"a|b"),
                                     In(longName), std::u16string()}) {
    ExpectProblem(files_.Create(path, "x"));
  }
  EXPECT_EQ(world_->CountFiles(), 0);
}

TEST_F(FilesContract, ReplacesTheWholeContent) {
  const std::u16string file = MakeFile(u"a.tmj", "old content");
  const std::string large(300'000, 'x');
  for (const std::string& bytes : {std::string("new"), large, std::string(), std::string("end")}) {
    ASSERT_TRUE(files_.Replace(file, bytes));
    EXPECT_EQ(Content(file), bytes);
    ASSERT_TRUE(files_.ReplaceWhole(file, bytes + "!"));
    EXPECT_EQ(Content(file), bytes + "!");
  }
  EXPECT_EQ(world_->CountFiles(), 1);
}

TEST_F(FilesContract, ReplacesAMissingFileByANewOne) {
  ASSERT_TRUE(files_.Replace(In(u"a.tmj"), "new"));
  EXPECT_EQ(Content(In(u"a.tmj")), "new");
  ASSERT_TRUE(files_.ReplaceWhole(In(u"b.tmj"), "new"));
  EXPECT_EQ(Content(In(u"b.tmj")), "new");
  EXPECT_EQ(world_->CountFiles(), 2);
}

TEST_F(FilesContract, KeepsTheReadOnlyFileItIsToReplace) {
  const std::u16string file = MakeFile(u"a.tmj", "old");
  world_->SetReadOnly(file, true);
  ExpectProblem(files_.Replace(file, "new"));
  ExpectProblem(files_.ReplaceWhole(file, "new"));
  EXPECT_EQ(Content(file), "old");
  EXPECT_TRUE(files_.Attributes(file)->readOnly);
  EXPECT_EQ(world_->CountFiles(), 1);
}

TEST_F(FilesContract, ReplacesNothingWhereNoFileCanBe) {
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  const std::u16string longName(260, u'a');
  for (const std::u16string& path :
       {In(u"sub"), In(u"missing\\a.tmj"), In(u"a*.tmj"), In(longName), std::u16string()}) {
    ExpectProblem(files_.Replace(path, "x"));
    ExpectProblem(files_.ReplaceWhole(path, "x"));
  }
  EXPECT_TRUE(files_.Attributes(In(u"sub"))->folder);
  EXPECT_EQ(world_->CountFiles(), 0);
}

TEST_F(FilesContract, RefusesPathsThatOtherProgramsCouldNotOpen) {
  const std::u16string folder = In(std::u16string(100, u'f'));
  ASSERT_TRUE(files_.CreateFolder(folder));
  const std::size_t room = 259 - folder.size() - 1;
  const std::u16string longest = folder + u"\\" + std::u16string(room, u'n');
  ASSERT_TRUE(files_.Create(longest, "x"));
  EXPECT_EQ(Content(longest), "x");
  ExpectProblem(files_.Create(longest + u"n", "x"));
  ExpectProblem(files_.Replace(longest + u"n", "x"));
  EXPECT_FALSE(files_.Copy(longest, longest + u"n"));
  EXPECT_FALSE(files_.Attributes(longest + u"n").has_value());
}

TEST_F(FilesContract, ReplacesTheFileOfARelativePathInTheCurrentFolder) {
  ASSERT_TRUE(files_.SetCurrentFolder(world_->Folder()));
  ASSERT_TRUE(files_.Replace(u"a.tmj", "x"));
  EXPECT_EQ(Content(In(u"a.tmj")), "x");
}

TEST_F(FilesContract, DeletesFiles) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  EXPECT_TRUE(files_.Delete(file));
  EXPECT_EQ(files_.Attributes(file).has_value(), false);
}

TEST_F(FilesContract, HasDeletedWhatWasNeverThere) {
  EXPECT_TRUE(files_.Delete(In(u"a.tmj")));
  EXPECT_TRUE(files_.Delete(In(u"missing\\a.tmj")));
}

TEST_F(FilesContract, DeletesNoFoldersReadOnlyFilesAndPatterns) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  world_->SetReadOnly(file, true);
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  EXPECT_FALSE(files_.Delete(file));
  EXPECT_FALSE(files_.Delete(In(u"sub")));
  EXPECT_FALSE(files_.Delete(In(u"*.tmj")));
  EXPECT_FALSE(files_.Delete(u""));
  EXPECT_EQ(Content(file), "x");
  EXPECT_TRUE(files_.Attributes(In(u"sub")).has_value());
}

TEST_F(FilesContract, CopiesFilesWithTheirAttributes) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  world_->SetReadOnly(file, true);
  EXPECT_TRUE(files_.Copy(file, In(u"b.tmj")));
  EXPECT_EQ(Content(In(u"b.tmj")), "x");
  EXPECT_TRUE(files_.Attributes(In(u"b.tmj"))->readOnly);
  EXPECT_EQ(Content(file), "x");
}

TEST_F(FilesContract, CopiesNothingOverAnything) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  const std::u16string other = MakeFile(u"b.tmj", "y");
  EXPECT_FALSE(files_.Copy(file, other));
  EXPECT_FALSE(files_.Copy(file, file));
  EXPECT_EQ(Content(other), "y");
  EXPECT_EQ(Content(file), "x");
}

TEST_F(FilesContract, CopiesOnlyFilesIntoFoldersThatAreThere) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  EXPECT_FALSE(files_.Copy(In(u"missing"), In(u"c.tmj")));
  EXPECT_FALSE(files_.Copy(In(u"sub"), In(u"c.tmj")));
  EXPECT_FALSE(files_.Copy(file, In(u"missing\\c.tmj")));
  EXPECT_EQ(world_->CountFiles(), 1);
}

TEST_F(FilesContract, CreatesOneFolderAtATime) {
  EXPECT_FALSE(files_.CreateFolder(In(u"one\\two")));
  EXPECT_TRUE(files_.CreateFolder(In(u"one")));
  EXPECT_TRUE(files_.CreateFolder(In(u"one\\two\\")));
  EXPECT_TRUE(files_.Create(In(u"one\\two\\a.tmj"), "x"));
}

TEST_F(FilesContract, CreatesNoFolderOverAnything) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  EXPECT_FALSE(files_.CreateFolder(In(u"sub")));
  EXPECT_FALSE(files_.CreateFolder(file));
  EXPECT_FALSE(files_.CreateFolder(In(u"a*")));
  EXPECT_FALSE(files_.CreateFolder(u""));
}

TEST_F(FilesContract, MakesPathsAbsoluteFromTheCurrentFolder) {
  ASSERT_TRUE(files_.SetCurrentFolder(world_->Folder()));
  const std::u16string drive = world_->Folder().substr(0, 2);
  EXPECT_EQ(files_.Absolute(u"a.tmj"), In(u"a.tmj"));
  EXPECT_EQ(files_.Absolute(u".\\sub\\..\\a.tmj"), In(u"a.tmj"));
  EXPECT_EQ(files_.Absolute(u"sub/a.tmj"), In(u"sub\\a.tmj"));
  EXPECT_EQ(files_.Absolute(u"sub\\"), In(u"sub\\"));
  EXPECT_EQ(files_.Absolute(drive + u"a.tmj"), In(u"a.tmj"));
  EXPECT_EQ(files_.Absolute(u"\\a.tmj"), drive + u"\\a.tmj");
  EXPECT_EQ(files_.Absolute(u""), u"");
}

TEST_F(FilesContract, LeavesAbsolutePathsAsTheyAre) {
  for (const char16_t* path :
       {u"C:\\", u"C:\\a.tmj", u"C:\\Some Folder\\a.b.tmj", u"\\\\server\\share\\a.tmj"})
    EXPECT_EQ(files_.Absolute(path), path);
  EXPECT_EQ(files_.Absolute(u"C:\\..\\..\\x\\.\\a.tmj"), u"C:\\x\\a.tmj");
}

TEST_F(FilesContract, ListsTheFilesOfAFolderAndNoFolders) {
  MakeFile(u"b.txt", "x");
  MakeFile(u"Übung 飛行.tmj", "");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  ASSERT_TRUE(files_.Create(In(u"sub\\inner.txt"), "x"));
  for (const std::u16string& folder : {world_->Folder(), world_->Folder() + u"\\"}) {
    std::vector<std::u16string> names = files_.FilesIn(folder);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"b.txt", u"Übung 飛行.tmj"}));
  }
}

TEST_F(FilesContract, ListsNothingOfWhatIsNoFolder) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  for (const std::u16string& path : {file, In(u"missing"), In(u"a*"), std::u16string()})
    EXPECT_TRUE(files_.FilesIn(path).empty());
}

TEST_F(FilesContract, OneOnlyHasALockAtATime) {
  std::unique_ptr<FileLock> lock = files_.Lock(In(u"1.lock"));
  ASSERT_TRUE(lock);
  EXPECT_FALSE(files_.Lock(In(u"1.LOCK")));
  EXPECT_TRUE(files_.Lock(In(u"2.lock")));
  lock.reset();
  EXPECT_TRUE(files_.Lock(In(u"1.lock")));
  EXPECT_EQ(world_->CountFiles(), 0) << "a lock that has ended leaves nothing behind";
}

TEST_F(FilesContract, LocksWithALockFileThatIsLeftOver) {
  MakeFile(u"1.lock", "");
  EXPECT_TRUE(files_.Lock(In(u"1.lock")));
}

TEST_F(FilesContract, LocksNothingWhereNoFileCanBeMade) {
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  for (const std::u16string& path :
       {In(u"missing\\1.lock"), In(u"sub"), In(u"a*.lock"), std::u16string()}) {
    EXPECT_FALSE(files_.Lock(path));
  }
}

TEST_F(FilesContract, TheStampTellsThatAFileWasWritten) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  const auto stamp = [&] { return files_.Attributes(file)->stamp; };
  const std::uint64_t first = stamp();
  EXPECT_EQ(stamp(), first);
  ASSERT_TRUE(files_.Read(file));
  EXPECT_EQ(stamp(), first) << "reading is not writing";
  ASSERT_TRUE(files_.Replace(file, "xy"));
  EXPECT_NE(stamp(), first);
}

TEST_F(FilesContract, ChangesTheCurrentFolderOnlyToFolders) {
  const std::u16string file = MakeFile(u"a.tmj", "x");
  ASSERT_TRUE(files_.CreateFolder(In(u"sub")));
  ASSERT_TRUE(files_.SetCurrentFolder(world_->Folder() + u"\\"));
  for (const std::u16string& path : {In(u"missing"), file, In(u"*"), std::u16string()}) {
    EXPECT_FALSE(files_.SetCurrentFolder(path));
    EXPECT_EQ(files_.Absolute(u"x"), In(u"x"));
  }
  EXPECT_TRUE(files_.SetCurrentFolder(u"sub"));
  EXPECT_EQ(files_.Absolute(u"x"), In(u"sub\\x"));
  EXPECT_TRUE(files_.SetCurrentFolder(world_->Folder().substr(0, 3)));
  EXPECT_EQ(files_.Absolute(u"x"), world_->Folder().substr(0, 3) + u"x");
}

}  // namespace
}  // namespace deck
