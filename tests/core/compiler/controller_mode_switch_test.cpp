#include "compiler/controller_mode_switch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/core/compiler/compiler_fixture.h"

namespace deck {
namespace {

class ControllerModeSwitchTest : public CompilerFixture {
 protected:
  ControllerModeSwitchTest() {
    files.AddFile(u"C:\\HOTAS\\HOTASConfig.exe", "");
    log.clear();
  }

  ControllerModeSwitch modeSwitch{hotasIni, wait, status, settings, {files, programs, events}};
};

struct ModeCase {
  std::int16_t mode;
  const char16_t* commandLine;
};

class ButtonsModes : public ControllerModeSwitchTest,
                     public testing::WithParamInterface<ModeCase> {};

TEST_P(ButtonsModes, StartTheControlPanelFromTheRootOfItsDrive) {
  files.SetCurrentFolder(u"C:\\HOTAS");
  modeSwitch.SwitchButtonsMode(GetParam().mode);
  const std::vector<FakePrograms::Started> expected = {
      {GetParam().commandLine, ProgramWindow::kNormal, u"C:\\", u"C:\\HOTAS\\HOTASConfig.exe"}};
  EXPECT_EQ(programs.started, expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ButtonsModes,
                         testing::Values(ModeCase{0, u"C:\\HOTAS\\HOTASConfig.exe /MODE /WREN /BW"},
                                         ModeCase{1, u"C:\\HOTAS\\HOTASConfig.exe /MODE /WREN /BU"},
                                         ModeCase{2, u"C:\\HOTAS\\HOTASConfig.exe /MODE /WREN "},
                                         ModeCase{-1, u"C:\\HOTAS\\HOTASConfig.exe /MODE /WREN "}));

TEST_F(ControllerModeSwitchTest, EverythingHappensInItsOrder) {
  AtPump(1, [&] { log.push_back(u"events"); });
  modeSwitch.SwitchButtonsMode(1);
  EXPECT_EQ(log, (Log{u"status:  Changing buttons mode - hold on ...", u"folder: C:\\",
                      u"start: C:\\HOTAS\\HOTASConfig.exe /MODE /WREN /BU", u"events",
                      u"status:  Done"}));
  EXPECT_EQ(events.pumps, 1);
}

TEST_F(ControllerModeSwitchTest, AMissingControlPanelIsPassedOverInSilence) {
  files.Delete(u"C:\\HOTAS\\HOTASConfig.exe");
  modeSwitch.SwitchButtonsMode(1);
  EXPECT_EQ(log, Log{});
  EXPECT_EQ(events.pumps, 0);
  EXPECT_TRUE(programs.started.empty());
}

TEST_F(ControllerModeSwitchTest, AProgramThatDoesNotStartIsNotTold) {
  programs.refuses = true;
  modeSwitch.SwitchButtonsMode(0);
  EXPECT_EQ(Status(), u" Done");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(ControllerModeSwitchTest, ASwitchNeitherWaitsNorReadsNorSetsTheBusyFlag) {
  profiles.SetText(kReportFile, u"[TMMODE]\nStatus=OK\nButtons=1\n");
  modeSwitch.SwitchButtonsMode(1);
  EXPECT_EQ(hotasIni.Mode(), ControllerMode{});
  EXPECT_EQ(documents.CompilerBusy, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer)) << "no command starts this timer";
}

TEST_F(ControllerModeSwitchTest, TheTimersTickEndsWithAReport) {
  events.StartTimer(TimerId::kStatusModeTimer, 1000);
  modeSwitch.StatusModeTimer_Timer();
  EXPECT_EQ(modeSwitch.ModeWaitOutcome(), 0);
  EXPECT_EQ(modeSwitch.ModeWaitElapsed(), 1000);
  EXPECT_TRUE(events.IsRunning(TimerId::kStatusModeTimer));

  profiles.SetText(kReportFile, u"[TMMODE]\nStatus=OK\n");
  modeSwitch.StatusModeTimer_Timer();
  EXPECT_EQ(modeSwitch.ModeWaitOutcome(), 1);
  EXPECT_EQ(modeSwitch.ModeWaitElapsed(), 1000);
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer));
  EXPECT_EQ(hotasIni.Mode().Status, u"OK");
}

TEST_F(ControllerModeSwitchTest, TheTimersTicksGiveUpByTheSettingsOfTheCompilersWait) {
  SetWait(u"1000", u"500");
  events.StartTimer(TimerId::kStatusModeTimer, 500);
  modeSwitch.StatusModeTimer_Timer();
  modeSwitch.StatusModeTimer_Timer();
  EXPECT_EQ(modeSwitch.ModeWaitOutcome(), 0);
  modeSwitch.StatusModeTimer_Timer();
  EXPECT_EQ(modeSwitch.ModeWaitOutcome(), 2);
  EXPECT_EQ(modeSwitch.ModeWaitElapsed(), 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer));
}

TEST_F(ControllerModeSwitchTest, TheTwoPollsKeepTheirOwnTime) {
  modeSwitch.StatusModeTimer_Timer();
  EXPECT_EQ(wait.WaitElapsed(), 0);
  EXPECT_EQ(modeSwitch.ModeWaitElapsed(), 1000);
}

}  // namespace
}  // namespace deck
