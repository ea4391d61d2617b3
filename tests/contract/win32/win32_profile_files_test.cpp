// What only real INI files can show: their bytes, and paths that the code page cannot hold.
#include "platform/win32/win32_profile_files.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_files.h"
#include "tests/contract/win32/temporary_folder.h"
#include "tests/contract/win32/writing_program.h"

namespace deck {
namespace {

class Win32ProfileFilesTest : public testing::Test {
 protected:
  void SetUp() override {
    if (GetACP() != 1252) GTEST_SKIP() << "the system's code page is not 1252";
  }

  std::string Content(const std::u16string& path) const {
    const Result<std::string> bytes = Win32Files().Read(path);
    return bytes ? *bytes : "missing";
  }

  TemporaryFolder folder_;
  Win32CodePage codePage_;
  Win32ProfileFiles profiles_{codePage_};
};

TEST_F(Win32ProfileFilesTest, WritesTheCodePageThatOtherProgramsRead) {
  const std::u16string path = folder_.In(u"a.ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Files", u"Path", u"Übung"));
  EXPECT_EQ(Content(path),
            "[Files]\r\nPath=\xDC"
            "bung\r\n");
}

TEST_F(Win32ProfileFilesTest, WritesUtf8ForWhatTheCodePageCannotHold) {
  const std::u16string path = folder_.In(u"a.ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Files", u"Path", u"Ж"));
  EXPECT_EQ(Content(path), "[Files]\r\nPath=\xD0\x96\r\n");
}

TEST_F(Win32ProfileFilesTest, AProcessThatIsKilledWhileItWritesLeavesWholeSettings) {
  constexpr ULONGLONG kPatience = 60'000;
  const std::u16string path = folder_.In(u"a.ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Other", u"Key", u"kept"));
  const auto number = [&](int key) {
    return profiles_.ReadInteger(path, u"Written", u"Key" + Decimal(key), 0);
  };
  for (unsigned round = 0; round < Kills(); ++round) {
    const std::string before = Content(path);
    {
      const KilledProgram writer(SettingsWritingCommandLine(path));
      const ULONGLONG start = GetTickCount64();
      while (Content(path) == before && GetTickCount64() - start < kPatience) Sleep(1);
      // Each time at another point between two writes.
      Sleep(round % 40);
    }
    ASSERT_NE(Content(path), before) << "nothing was written";
    const int first = number(0);
    EXPECT_GT(first, 0);
    for (int key = 1; key < kSettingsWritten; ++key) EXPECT_EQ(number(key), first) << round;
    EXPECT_EQ(profiles_.ReadText(path, u"Other", u"Key", u""), u"kept");
  }
  ASSERT_TRUE(profiles_.WriteText(path, u"Other", u"Key", u"new"));
  EXPECT_EQ(folder_.CountFiles(), 1) << "what the killed ones left is gone";
}

// The recent files are written in the background while the window writes settings of its own.
TEST_F(Win32ProfileFilesTest, TwoThreadsTakeNothingFromEachOther) {
  constexpr int kWrites = 60;
  const std::u16string path = folder_.In(u"a.ini");
  const auto write = [&](std::u16string_view section) {
    for (int key = 1; key <= kWrites; ++key)
      EXPECT_TRUE(profiles_.WriteText(path, section, u"Key" + Decimal(key), Decimal(key)));
  };
  std::thread other(write, u"Other");
  write(u"Own");
  other.join();
  for (const std::u16string_view section : {u"Own", u"Other"}) {
    for (int key = 1; key <= kWrites; ++key)
      EXPECT_EQ(profiles_.ReadInteger(path, section, u"Key" + Decimal(key), 0), key);
  }
}

TEST_F(Win32ProfileFilesTest, WritesTheFileItselfWhereTheFolderTakesNoSecondOne) {
  // With the number of this process behind it the name would be too long.
  const std::size_t room = MAX_PATH - 1 - folder_.In(u"").size();
  const std::u16string path = folder_.In(std::u16string(room - 4, u'n') + u".ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Files", u"Number", u"5"));
  ASSERT_TRUE(profiles_.WriteTexts(path, u"Files", {{u"Number", u"6"}, {u"More", u"7"}}));
  EXPECT_EQ(profiles_.ReadInteger(path, u"Files", u"Number", 0), 6);
  EXPECT_EQ(profiles_.ReadInteger(path, u"Files", u"More", 0), 7);
  EXPECT_EQ(folder_.CountFiles(), 1);
}

TEST_F(Win32ProfileFilesTest, LeavesNoCopyBehind) {
  const std::u16string path = folder_.In(u"a.ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Files", u"Number", u"5"));
  SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
  // Wine writes for root what Windows refuses.
  const bool written = profiles_.WriteText(path, u"Files", u"Number", u"6");
  EXPECT_EQ(folder_.CountFiles(), 1);
  SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(Content(path), written ? "[Files]\r\nNumber=6\r\n" : "[Files]\r\nNumber=5\r\n");
}

TEST_F(Win32ProfileFilesTest, WorksInFoldersThatTheCodePageCannotName) {
  ASSERT_TRUE(Win32Files().CreateFolder(folder_.In(u"полёт")));
  const std::u16string path = folder_.In(u"полёт\\a.ini");
  ASSERT_TRUE(profiles_.WriteText(path, u"Files", u"Number", u"5"));
  EXPECT_EQ(profiles_.ReadInteger(path, u"Files", u"Number", 0), 5);
  EXPECT_EQ(profiles_.ReadText(path, u"Files", u"Number", u""), u"5");
  EXPECT_EQ(Content(path), "[Files]\r\nNumber=5\r\n");
}

}  // namespace
}  // namespace deck
