#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

class KeyTestCommandTest : public EditorFixture {
 protected:
  KeyTestCommandTest() {
    files.AddFile(u"C:\\Host\\KeyCodes.txt", "65,key A\r\n");
    files.AddFile(u"C:\\Host\\HOTASConfig.exe", "");
    profiles.SetText(kHotasIni, u"[TMMODE]\r\nStatus=OK\r\nButtons=1\r\n");
  }

  void Open(std::u16string_view mode) {
    profiles.SetText(kHotasIni, u"[TMMODE]\r\n" + std::u16string(mode));
    Start();
    editor.Execute(CommandId::kKeyTest);
  }
  std::vector<std::u16string> CommandLines() const {
    std::vector<std::u16string> lines;
    for (const FakePrograms::Started& program : programs.started) {
      lines.push_back(program.commandLine);
    }
    return lines;
  }
};

TEST_F(KeyTestCommandTest, OpensTheKeyTester) {
  Start();
  EXPECT_FALSE(keyTest.open);
  editor.Execute(CommandId::kKeyTest);
  EXPECT_TRUE(keyTest.visible);
  keyTest.PressKey(65);
  EXPECT_EQ(keyTest.Text(KeyBox::kNames), u"key A\r\n");
  EXPECT_TRUE(programs.started.empty()) << "the controllers are in programmed mode already";
}

TEST_F(KeyTestCommandTest, AsksTheControllersForProgrammedMode) {
  files.SetCurrentFolder(u"C:\\Host");
  Open(u"Status=OK\r\nButtons=0\r\n");
  ASSERT_EQ(programs.started.size(), 1U);
  EXPECT_EQ(programs.started[0].commandLine, u"C:\\Host\\HOTASConfig.exe /MODE /WREN /BU");
  EXPECT_EQ(programs.started[0].currentFolder, u"C:\\");
  EXPECT_EQ(Panel(kMessagePanel), u" Done");
  EXPECT_TRUE(keyTest.look.modeWarning) << "nothing reported the new mode";
}

TEST_F(KeyTestCommandTest, NeitherASwitchNorADownloadStartsTheTimerOfTheMode) {
  files.AddFile(u"C:\\Host\\Files\\a.tmj", "rem a joystick file\r\n");
  Open(u"Status=OK\r\nButtons=0\r\n");
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer));
  keyTest.Choose(KeyTestCommand::kStickOff);
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer));
  EditorFixture::Open(u"C:\\Host\\Files\\a.tmj");
  CompilerReports(u"OK", 0, 10, u"");
  bool runsInWait = false;
  events.actions.push_back([&] { runsInWait = events.IsRunning(TimerId::kStatusModeTimer); });
  editor.Execute(CommandId::kDownload);
  EXPECT_FALSE(runsInWait || events.IsRunning(TimerId::kStatusModeTimer));
}

TEST_F(KeyTestCommandTest, ASwitchThatIsReportedAtOnceGivesNoWarning) {
  profiles.SetText(kHotasIni, u"");
  programs.onStart = [this](const FakePrograms::Started&) {
    profiles.SetText(kHotasIni, u"[TMMODE]\r\nStatus=OK\r\nButtons=1\r\n");
  };
  Start();
  editor.Execute(CommandId::kKeyTest);
  EXPECT_FALSE(keyTest.look.modeWarning);
}

TEST_F(KeyTestCommandTest, AMissingControlPanelGivesTheWarning) {
  files.Delete(u"C:\\Host\\HOTASConfig.exe");
  Open(u"");
  EXPECT_TRUE(programs.started.empty());
  EXPECT_TRUE(keyTest.visible);
  EXPECT_TRUE(keyTest.look.modeWarning);
  keyTest.ClickModeWarning();
  EXPECT_NE(prompts.shown.back().text.find(u"generated an error. "), std::u16string::npos)
      << "without a report the status reads as an error";
}

TEST_F(KeyTestCommandTest, SwitchesTheStickOff) {
  Open(u"Status=OK\r\nButtons=1\r\n");
  keyTest.Choose(KeyTestCommand::kStickOff);
  EXPECT_EQ(CommandLines(),
            std::vector<std::u16string>{u"C:\\Host\\HOTASConfig.exe /MODE /WREN /BW"});
}

TEST_F(KeyTestCommandTest, NoModeIsSwitchedWithoutATable) {
  files.Delete(u"C:\\Host\\KeyCodes.txt");
  Open(u"Status=OK\r\nButtons=0\r\n");
  EXPECT_FALSE(keyTest.open);
  EXPECT_TRUE(programs.started.empty());
  EXPECT_EQ(prompts.shown.back().title, u"It didn't work :(");
}

TEST_F(KeyTestCommandTest, ClosesWithTheMainWindowAndKeepsItsSettings) {
  Open(u"Status=OK\r\nButtons=1\r\n");
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_FALSE(keyTest.open);
  EXPECT_EQ(profiles.Value(kHostIni, u"Key Tester", u"ClearDelay"), u"2");
  EXPECT_EQ(profiles.Value(kHostIni, u"Key Tester", u"KeyViewAll"), u"-1");
}

TEST_F(KeyTestCommandTest, ACompileClosesItAndADownloadLeavesIt) {
  files.AddFile(u"C:\\Host\\Files\\a.tmj", "rem a joystick file\r\n");
  Open(u"Status=OK\r\nButtons=1\r\n");
  EditorFixture::Open(u"C:\\Host\\Files\\a.tmj");
  CompilerReports(u"OK", 0, 10, u"");
  editor.Execute(CommandId::kDownload);
  EXPECT_TRUE(keyTest.open);
  CompilerReports(u"OK", 0, 10, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_FALSE(keyTest.open);
}

}  // namespace
}  // namespace deck
