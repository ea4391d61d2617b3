// What only real files can show.
#include "platform/win32/win32_files.h"

#include <windows.h>

#include <sddl.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/strings.h"
#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_profile_files.h"
#include "tests/contract/win32/temporary_folder.h"
#include "tests/contract/win32/writing_program.h"

namespace deck {
namespace {

class Win32FilesTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(files_.Create(path_, "old")); }

  std::string Content() const {
    const Result<std::string> bytes = files_.Read(path_);
    return bytes ? *bytes : "missing";
  }

  // Another program that has the file open and lets others do what `share` says.
  FileHandle OpenElsewhere(DWORD share) const {
    FileHandle file(
        CreateFileW(Wide(path_), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(file);
    return file;
  }

  TemporaryFolder folder_;
  Win32Files files_;
  const std::u16string path_ = folder_.In(u"a.tmj");
};

TEST_F(Win32FilesTest, KeepsAHiddenFileHidden) {
  SetFileAttributesW(Wide(path_), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  ASSERT_TRUE(files_.Replace(path_, "new"));
  EXPECT_EQ(Content(), "new");
  const DWORD attributes = GetFileAttributesW(Wide(path_));
  EXPECT_TRUE(attributes & FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(attributes & FILE_ATTRIBUTE_SYSTEM);
}

TEST_F(Win32FilesTest, WaitsForAReaderThatHasTheFileForAMoment) {
  FileHandle reader = OpenElsewhere(FILE_SHARE_READ);
  std::thread moment([&reader] {
    Sleep(20);
    reader.Reset();
  });
  EXPECT_TRUE(files_.ReplaceWhole(path_, "new"));
  moment.join();
  EXPECT_EQ(Content(), "new");
}

// The rights on the file, in a form that can be compared.
std::vector<std::byte> AccessRights(const std::u16string& path) {
  DWORD size = 0;
  GetFileSecurityW(Wide(path), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> rights(size);
  GetFileSecurityW(Wide(path), DACL_SECURITY_INFORMATION, rights.data(), size, &size);
  return rights;
}

TEST_F(Win32FilesTest, KeepsWhoMayUseTheFile) {
  const std::vector<std::byte> usual = AccessRights(path_);
  PSECURITY_DESCRIPTOR onlyMe = nullptr;
  ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(
      L"D:P(A;;FA;;;BA)(A;;FA;;;OW)", SDDL_REVISION_1, &onlyMe, nullptr));
  ASSERT_TRUE(SetFileSecurityW(Wide(path_), DACL_SECURITY_INFORMATION, onlyMe));
  LocalFree(onlyMe);
  const std::vector<std::byte> restricted = AccessRights(path_);
  ASSERT_NE(restricted, usual);
  ASSERT_TRUE(files_.Replace(path_, "new"));
  EXPECT_EQ(AccessRights(path_), restricted);
  EXPECT_EQ(Content(), "new");
}

// Looks at the file without opening it, which would keep it from being replaced on some systems.
std::int64_t WrittenAt(const std::u16string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(Wide(path), GetFileExInfoStandard, &data);
  const FILETIME& time = data.ftLastWriteTime;
  return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

TEST_F(Win32FilesTest, AProcessThatIsKilledWhileItWritesLeavesAWholeFile) {
  constexpr ULONGLONG kPatience = 60'000;
  for (DWORD round = 0; round < Kills(); ++round) {
    const std::int64_t before = WrittenAt(path_);
    {
      const KilledProgram writer(WritingCommandLine(path_));
      const ULONGLONG start = GetTickCount64();
      while (WrittenAt(path_) == before && GetTickCount64() - start < kPatience) Sleep(1);
      // Each time at another point between two writes.
      Sleep(round % 40);
    }
    const std::string content = Content();
    ASSERT_NE(WrittenAt(path_), before) << "nothing was written";
    EXPECT_EQ(content.size(), kWrittenLength);
    EXPECT_EQ(content.find_first_not_of(content[0]), std::string::npos) << "of two writes";
  }
  ASSERT_TRUE(files_.ReplaceWhole(path_, "new"));
  EXPECT_EQ(folder_.CountFiles(), 1) << "what the killed ones left is gone";
}

// Written long ago by a process with this number.
std::u16string LeftBeside(const std::u16string& path, DWORD process) {
  std::u16string name = path + u"~" + Decimal(process) + u"-1234567.tmp";
  EXPECT_TRUE(Win32Files().Create(name, "half of a te"));
  return name;
}

// No process has it: numbers of processes are multiples of four.
constexpr DWORD kNoProcess = 0x7FFFFFF1;

TEST_F(Win32FilesTest, TakesAwayWhatProcessesThatDiedWhileTheyWroteTheFileLeft) {
  LeftBeside(path_, kNoProcess);
  LeftBeside(path_, GetCurrentProcessId());
  ASSERT_TRUE(files_.ReplaceWhole(path_, "new"));
  EXPECT_EQ(Content(), "new");
  EXPECT_EQ(folder_.CountFiles(), 1);
}

TEST_F(Win32FilesTest, LeavesWhatIsNotCertainlyLeftOver) {
  const KilledProgram alive(WritingCommandLine(folder_.In(u"other")));
  LeftBeside(path_, alive.Number());
  const std::u16string open = LeftBeside(path_, kNoProcess);
  const FileHandle reader(
      CreateFileW(Wide(open), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  LeftBeside(folder_.In(u"b.tmj"), kNoProcess);
  const std::u16string number = Decimal(kNoProcess);
  const std::vector<std::u16string> ofUsers = {
      u"~" + number + u".tmp",    u"~-1.tmp",
      u"~" + number + u"-.tmp",   u"~x" + number + u"-1.tmp",
      u"~" + number + u"-1x.tmp", u"~" + number + u"-1.tmp.tmp",
      u"~99999999999-1.tmp",      u"~" + number + u"-1.tmj",
      u"x~" + number + u"-1.tmp", u"~.tmp"};
  for (const std::u16string& name : ofUsers) {
    ASSERT_TRUE(files_.Create(path_ + name, "of a user"));
  }
  const auto others = [&] {
    std::vector<std::u16string> names = files_.FilesIn(folder_.Path());
    std::erase_if(names, [](const std::u16string& name) { return name.starts_with(u"other"); });
    return names.size();
  };
  const std::size_t before = others();
  ASSERT_EQ(before, 14u);
  ASSERT_TRUE(files_.ReplaceWhole(path_, "new"));
  EXPECT_EQ(others(), before);
}

TEST_F(Win32FilesTest, FailsToReplaceWholeWhatAnotherProgramKeepsFromBeingReplaced) {
  const FileHandle other = OpenElsewhere(FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_FALSE(files_.ReplaceWhole(path_, "new"));
  EXPECT_EQ(Content(), "old");
  EXPECT_EQ(folder_.CountFiles(), 1);
}

TEST_F(Win32FilesTest, WritesOverAFileThatAnotherProgramKeepsFromBeingReplaced) {
  for (const char* bytes : {"longer than it was", "short", ""}) {
    const FileHandle other = OpenElsewhere(FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(files_.Replace(path_, bytes));
    EXPECT_EQ(Content(), bytes);
    EXPECT_EQ(folder_.CountFiles(), 1);
  }
}

TEST_F(Win32FilesTest, LeavesAFileThatAnotherProgramKeepsForItself) {
  const FileHandle other = OpenElsewhere(FILE_SHARE_READ);
  const Result<void> result = files_.Replace(path_, "new");
  ASSERT_FALSE(result);
  EXPECT_FALSE(result.problem().reason.empty());
  EXPECT_EQ(Content(), "old");
  EXPECT_EQ(folder_.CountFiles(), 1);
}

TEST_F(Win32FilesTest, WritesFilesWhoseNamesLeaveNoRoomForASecondOne) {
  const std::size_t room = MAX_PATH - 1 - folder_.In(u"").size();
  const std::u16string longest = folder_.In(std::u16string(room, u'n'));
  ASSERT_TRUE(files_.Replace(longest, "old"));
  ASSERT_TRUE(files_.Replace(longest, "new"));
  const Result<std::string> bytes = files_.Read(longest);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(*bytes, "new");
  EXPECT_EQ(folder_.CountFiles(), 2);
}

// An empty folder on a disk of 256 kB, which scripts/small_disk.sh makes where it may.
class SmallDiskTest : public testing::Test {
 protected:
  void SetUp() override {
    const wchar_t* const folder = _wgetenv(L"DECK_SMALL_DISK");
    if (folder == nullptr) GTEST_SKIP() << "DECK_SMALL_DISK names no small disk";
    folder_ = FromWide(folder);
  }
  void TearDown() override {
    for (const std::u16string& name : files_.FilesIn(folder_)) files_.Delete(In(name));
  }
  std::u16string In(const std::u16string& name) const { return folder_ + u"\\" + name; }

  std::u16string folder_;
  Win32Files files_;
};

TEST_F(SmallDiskTest, AFullDiskLeavesTheOldFileWhole) {
  const std::string old(100'000, 'o');
  ASSERT_TRUE(files_.Create(In(u"a.tmj"), old));
  for (const std::size_t size : {300'000U, 5'000'000U}) {
    EXPECT_FALSE(files_.ReplaceWhole(In(u"a.tmj"), std::string(size, 'n')));
    const Result<void> result = files_.Replace(In(u"a.tmj"), std::string(size, 'n'));
    ASSERT_FALSE(result);
    EXPECT_FALSE(result.problem().reason.empty());
    EXPECT_TRUE(*files_.Read(In(u"a.tmj")) == old);
    EXPECT_EQ(files_.FilesIn(folder_).size(), 1U) << "no second file is left";
    EXPECT_FALSE(files_.Create(In(u"b.tmj"), std::string(size, 'n')));
    EXPECT_EQ(files_.FilesIn(folder_).size(), 1U);
  }
}

TEST_F(SmallDiskTest, AFileThatHasNoRoomBesideTheOldOneIsWrittenOverIt) {
  ASSERT_TRUE(files_.Create(In(u"a.tmj"), std::string(150'000, 'o')));
  const std::string bytes(180'000, 'n');
  EXPECT_FALSE(files_.ReplaceWhole(In(u"a.tmj"), bytes));
  ASSERT_TRUE(files_.Replace(In(u"a.tmj"), bytes));
  EXPECT_TRUE(*files_.Read(In(u"a.tmj")) == bytes);
}

TEST_F(SmallDiskTest, AFullDiskLeavesTheSettingsWhole) {
  const Win32CodePage codePage;
  Win32ProfileFiles profiles(codePage);
  ASSERT_TRUE(profiles.WriteText(In(u"a.ini"), u"Files", u"Number", u"5"));
  const std::string before = *files_.Read(In(u"a.ini"));
  for (int piece = 0; files_.Create(In(u"full" + Decimal(piece)), std::string(4096, 'x'));
       ++piece) {
  }
  EXPECT_FALSE(profiles.WriteText(In(u"a.ini"), u"Files", u"Number", u"6"));
  EXPECT_FALSE(profiles.WriteTexts(In(u"a.ini"), u"Files", {{u"Number", u"7"}, {u"More", u"8"}}));
  EXPECT_EQ(*files_.Read(In(u"a.ini")), before);
  EXPECT_EQ(profiles.ReadInteger(In(u"a.ini"), u"Files", u"Number", 0), 5);
}

TEST_F(Win32FilesTest, TakesNoDeviceForAFile) {
  for (const std::u16string& path :
       {std::u16string(u"NUL"), folder_.In(u"nul"), std::u16string(u"CON"), folder_.In(u"AUX"),
        folder_.In(u"LPT1"), std::u16string(u"\\\\.\\NUL")}) {
    EXPECT_FALSE(files_.Create(path, "x"));
    EXPECT_FALSE(files_.Replace(path, "x"));
    EXPECT_FALSE(files_.Read(path));
    EXPECT_FALSE(files_.Delete(path));
  }
}

TEST_F(Win32FilesTest, TakesNoPathForItsBeginning) {
  const std::u16string path = path_ + u'\0' + u"x";
  EXPECT_FALSE(files_.Replace(path, "new"));
  EXPECT_FALSE(files_.Read(path));
  EXPECT_FALSE(files_.Delete(path));
  EXPECT_FALSE(files_.Attributes(path).has_value());
  EXPECT_FALSE(files_.SetCurrentFolder(folder_.Path() + u'\0' + u"x"));
  EXPECT_EQ(Content(), "old");
}

TEST_F(Win32FilesTest, ReadsAFileThatAnotherProgramWrites) {
  const FileHandle other(CreateFileW(Wide(path_), GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                     nullptr));
  EXPECT_EQ(Content(), "old");
}

}  // namespace
}  // namespace deck
