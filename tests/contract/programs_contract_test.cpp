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

TEST_F(ProgramsContract, SaysWhenNothingWasStarted) {
  EXPECT_FALSE(programs_.Start(world_->ImpossibleCommand(), ProgramWindow::kNormal));
}

}  // namespace
}  // namespace deck
