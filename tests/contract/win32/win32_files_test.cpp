// What only real files can show.
#include "platform/win32/win32_files.h"

#include <windows.h>

#include <sddl.h>

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"
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

TEST_F(Win32FilesTest, TakesNoDeviceForAFile) {
  for (const std::u16string& path : {std::u16string(u"NUL"), folder_.In(u"nul"),
                                     std::u16string(u"CON"), std::u16string(u"\\\\.\\NUL")}) {
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
