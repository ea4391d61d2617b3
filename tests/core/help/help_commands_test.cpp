#include "help/help_commands.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_help_system.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

struct HelpCommandsTest : testing::Test {
  HelpCommandsTest() {
    settings.applicationFolder = u"D:\\Cougar\\Host";
    settings.CompilerFolder = u"D:\\Cougar\\Host\\";
    files.AddFolder(u"D:\\Cougar\\Host");
  }

  FakeFiles files;
  FakePrompts prompts;
  FakePrograms programs{files};
  FakeHelpSystem help;
  Settings settings;
  HelpFile helpFile;
  HelpCommands commands{settings, helpFile, {files, prompts, programs, help}};
};

TEST_F(HelpCommandsTest, HelpTopicsOpensTheCompiledHelpAtItsFirstContext) {
  helpFile = {false, u"D:\\Cougar\\Host\\Wren.chm"};
  commands.mnuHelpTopics();
  ASSERT_EQ(help.topics.size(), 1u);
  EXPECT_EQ(help.topics[0].first, u"D:\\Cougar\\Host\\Wren.chm");
  EXPECT_EQ(help.topics[0].second, 1u);
  EXPECT_TRUE(help.opened.empty());
}

TEST_F(HelpCommandsTest, HelpTopicsOpensTheOlderHelpThroughTheShell) {
  helpFile = {true, u"D:\\Cougar\\Host\\Wren.hlp"};
  commands.mnuHelpTopics();
  ASSERT_EQ(help.opened.size(), 1u);
  EXPECT_EQ(help.opened[0].first, u"D:\\Cougar\\Host\\Wren.hlp");
  EXPECT_EQ(help.opened[0].second, u"D:\\Cougar\\Host");
  EXPECT_TRUE(help.topics.empty());
}

TEST_F(HelpCommandsTest, VersionNamesTheProgramAndItsAuthors) {
  commands.mnuHelpVersion();
  EXPECT_EQ(
      prompts.shown,
      (std::vector<Message>{{u"Wren Deck - version 4.4.02\r\nWritten by the WrenDeck developers",
                             u"Version information", BoxStyle::kInformation}}));
}

struct AppCase {
  int index;
  std::u16string_view path;
};

TEST_F(HelpCommandsTest, AppsStartInTheirFolder) {
  for (const AppCase& c :
       {AppCase{0, u"D:\\Cougar\\Host\\Wren.exe"}, AppCase{1, u"D:\\Cougar\\Host\\Starter.exe"},
        AppCase{2, u"D:\\Cougar\\Host\\HOTASConfig.exe"}}) {
    files.AddFile(std::u16string(c.path), "");
    ASSERT_TRUE(files.SetCurrentFolder(u"C:\\"));
    commands.mnuAppsArray(c.index);
    EXPECT_EQ(programs.started.back(),
              (FakePrograms::Started{std::u16string(c.path), ProgramWindow::kNormal,
                                     u"D:\\Cougar\\Host", std::u16string(c.path)}));
  }
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(HelpCommandsTest, AMissingAppIsAskedFor) {
  for (const AppCase& c :
       {AppCase{0, u"D:\\Cougar\\Host\\Wren.exe"}, AppCase{1, u"D:\\Cougar\\Host\\Starter.exe"},
        AppCase{2, u"D:\\Cougar\\Host\\HOTASConfig.exe"}}) {
    commands.mnuAppsArray(c.index);
    EXPECT_EQ(prompts.shown.back(),
              (Message{u"I couldn't find the application: " + std::u16string(c.path) +
                           u" - how very odd to say the least. What have you done with it? ",
                       u"Where is it?", BoxStyle::kInformation}));
  }
  EXPECT_TRUE(programs.started.empty());
}

TEST_F(HelpCommandsTest, OtherIndexesDoNothing) {
  commands.mnuAppsArray(-1);
  commands.mnuAppsArray(3);
  EXPECT_TRUE(programs.started.empty());
  EXPECT_TRUE(prompts.shown.empty());
}

struct ChoiceCase {
  std::optional<SystemVersion> version;
  std::int16_t prefersHlp;
  bool useHlp;
};

class HelpFileChoice : public testing::TestWithParam<ChoiceCase> {};

TEST_P(HelpFileChoice, IsTheCompiledHelpOnVersionSixOnly) {
  Settings settings;
  settings.applicationFolder = u"C:\\Host";
  settings.PreferHlpHelp = GetParam().prefersHlp;
  const HelpFile file = ChooseHelpFile(settings, GetParam().version);
  EXPECT_EQ(file.UseHlpFile, GetParam().useHlp);
  EXPECT_EQ(file.path, GetParam().useHlp ? u"C:\\Host\\Wren.hlp" : u"C:\\Host\\Wren.chm");
}

INSTANTIATE_TEST_SUITE_P(Systems, HelpFileChoice,
                         testing::Values(ChoiceCase{SystemVersion{2, 6, 0}, 0, false},
                                         ChoiceCase{SystemVersion{2, 6, 2}, 0, false},
                                         ChoiceCase{SystemVersion{2, 6, 2}, 1, true},
                                         ChoiceCase{SystemVersion{2, 6, 2}, -1, true},
                                         ChoiceCase{SystemVersion{2, 5, 1}, 0, true},
                                         ChoiceCase{SystemVersion{2, 10, 0}, 0, true},
                                         ChoiceCase{SystemVersion{1, 6, 0}, 0, true},
                                         ChoiceCase{std::nullopt, 0, true}));

}  // namespace
}  // namespace deck
