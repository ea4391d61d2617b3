#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class ProgramsContract : public testing::Test {
 protected:
  const std::unique_ptr<ProgramsWorld> world_ = MakeProgramsWorld();
  Programs& programs_ = world_->Port();
};

TEST_F(ProgramsContract, StartsACommandLineInTheCurrentFolder) {
  ASSERT_TRUE(world_->FilesPort().SetCurrentFolder(world_->Folder()));
  ASSERT_TRUE(programs_.Start(world_->ReportingCommand(u"one"), ProgramWindow::kNormal));
  const auto report = world_->WaitForReport();
  ASSERT_TRUE(report.has_value());
  EXPECT_EQ(*report, (ProgramsWorld::Report{u"one", world_->Folder(), 1}));
}

TEST_F(ProgramsContract, HandsArgumentsOverAsTheyAre) {
  const std::u16string argument = u"/WREN /CO \"C:\\Übung полёт\\a b.tmj\"";
  ASSERT_TRUE(programs_.Start(world_->ReportingCommand(argument), ProgramWindow::kHidden));
  const auto report = world_->WaitForReport();
  ASSERT_TRUE(report.has_value());
  EXPECT_EQ(report->argument, argument);
}

TEST_F(ProgramsContract, TellsTheProgramHowToShowItsWindow) {
  for (const ProgramWindow window :
       {ProgramWindow::kHidden, ProgramWindow::kNormal, ProgramWindow::kMinimised,
        ProgramWindow::kMaximised, ProgramWindow::kNormalWithoutFocus,
        ProgramWindow::kMinimisedWithoutFocus}) {
    ASSERT_TRUE(programs_.Start(world_->ReportingCommand(u"x"), window));
    const auto report = world_->WaitForReport();
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->window, static_cast<int>(window));
  }
}

TEST_F(ProgramsContract, StartsThePathThatIsNamedAlsoWhereAShorterOneIsThere) {
  const std::u16string program = world_->MakeProgram(u"some good program.exe");
  for (const char16_t* decoy : {u"\\some.exe", u"\\some good.exe", u"\\some"})
    ASSERT_TRUE(world_->FilesPort().Create(world_->Folder() + decoy, "no program"));
  ASSERT_TRUE(programs_.StartProgram(program, program + u" " + world_->ReportingArguments(u"/WREN"),
                                     ProgramWindow::kMinimised));
  const auto report = world_->WaitForReport();
  ASSERT_TRUE(report.has_value());
  EXPECT_EQ(report->argument, u"/WREN");
  EXPECT_EQ(report->window, 2);
}

TEST_F(ProgramsContract, SaysWhenNothingWasStarted) {
  EXPECT_FALSE(programs_.Start(world_->ImpossibleCommand(), ProgramWindow::kNormal));
  EXPECT_FALSE(programs_.StartProgram(world_->Folder() + u"\\missing.exe",
                                      world_->Folder() + u"\\missing.exe /x",
                                      ProgramWindow::kNormal));
}

}  // namespace
}  // namespace deck
