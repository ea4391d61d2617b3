// What only real INI files can show: their bytes, and paths that the code page cannot hold.
#include "platform/win32/win32_profile_files.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_files.h"
#include "tests/contract/win32/temporary_folder.h"

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
