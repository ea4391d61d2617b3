#include "app/editor.h"

#include <gtest/gtest.h>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

using Captions = std::vector<std::u16string>;
using Texts = std::vector<std::u16string>;

struct StartTest : EditorFixture {};
struct CloseTest : EditorFixture {};
struct CommandTest : EditorFixture {};
struct MainJobTest : EditorFixture {};

TEST_F(StartTest, RefusesToRunWithoutItsHost) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.exe"));
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.ini"));
  EXPECT_FALSE(editor.Load(kHostFolder, u"WrenDeck.exe"));
  EXPECT_EQ(prompts.shown,
            (std::vector<Message>{
                {u"Sorry, but Deck requires Wren to run correctly. Make sure that WrenDeck.exe is "
                 u"in the same directory as Wren.exe",
                 u"Wren not detected", BoxStyle::kCritical}}));
  EXPECT_TRUE(view.tabs.empty());
  EXPECT_TRUE(profiles.writes.empty());
}

TEST_F(StartTest, RefusesToRunWithoutTheHostsPreferences) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.ini"));
  EXPECT_FALSE(editor.Load(kHostFolder, u"WrenDeck.exe"));
  EXPECT_EQ(prompts.shown,
            (std::vector<Message>{
                {u"Sorry, but Deck requires that you've setup your preferences in Wren. Make sure "
                 u"that WrenDeck.exe is in the same directory as Wren.ini",
                 u"Wren incorrectly setup", BoxStyle::kCritical}}));
  EXPECT_TRUE(profiles.writes.empty());
}

TEST_F(StartTest, AFolderIsNoHost) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.exe"));
  files.AddFolder(u"C:\\Host\\Wren.exe");
  EXPECT_FALSE(editor.Load(kHostFolder, u"WrenDeck.exe"));
}

TEST_F(StartTest, ShowsOneUntitledTabAndItsPanels) {
  Start();
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_EQ(Panel(2), u"Line no: 1");
  EXPECT_EQ(Panel(3), u"New file");
  EXPECT_EQ(Panel(8), u"No macro file analysed");
  EXPECT_EQ(view.macroFrameWidth, 0) << "the macro panel is hidden";
  EXPECT_EQ(view.positionings, 1);
  EXPECT_TRUE(profiles.writes.empty()) << "a start writes no settings";
}

TEST_F(StartTest, RestoresTicksAndPlace) {
  profiles.SetText(kOwnIni,
                   u"[Miscellaneous]\r\nEnableJoystick=0\r\nRunAppsWithDownload=1\r\n"
                   u"EditorTopAtStartup=30\r\nEditorLeftAtStartup=45\r\n"
                   u"EditorWidthAtStartup=9000\r\nEditorHeightAtStartup=6000\r\n"
                   u"EditorWindowstate=0\r\n[Unsupported]\r\nIndentAsWell=1\r\n");
  Start();
  EXPECT_EQ(view.placements,
            (std::vector<WindowPlacement>{{45, 30, 9000, 6000, WindowState::kNormal}}));
  EXPECT_FALSE(view.commands[CommandId::kEnableAfterDownload].checked);
  EXPECT_TRUE(view.commands[CommandId::kIgnoreRunApp].checked);
  EXPECT_TRUE(view.commands[CommandId::kIndentWhenAligning].checked);
}

TEST_F(StartTest, OpensMaximisedWithDefaultTicksAtTheFirstStart) {
  Start();
  ASSERT_EQ(view.placements.size(), 1u);
  EXPECT_EQ(view.placements[0].state, WindowState::kMaximised);
  EXPECT_TRUE(view.commands[CommandId::kEnableAfterDownload].checked);
  EXPECT_FALSE(view.commands[CommandId::kIgnoreRunApp].checked);
  EXPECT_FALSE(view.commands[CommandId::kIndentWhenAligning].checked);
}

TEST_F(StartTest, GivesEveryMenuItemItsCaption) {
  Start();
  for (const CommandRow& row : kCommands) {
    if (row.caption.empty()) continue;
    EXPECT_EQ(view.commands[row.id].caption, row.caption);
  }
}

TEST_F(StartTest, LoadsTheRecentFiles) {
  profiles.SetText(kOwnIni,
                   u"[Previous Files]\r\nNumberPreviousFiles=1\r\nPreviousFilePath1=C:\\a.tmj\r\n");
  Start();
  EXPECT_EQ(view.recentFiles, Texts{u"C:\\a.tmj"});
}

TEST_F(StartTest, MakesTheInfoFolderOnly) {
  Start();
  EXPECT_TRUE(files.Attributes(u"C:\\Host\\Info") && files.Attributes(u"C:\\Host\\Info")->folder);
  EXPECT_FALSE(files.Attributes(u"C:\\Host\\Temp"));
}

TEST_F(StartTest, GoesOnWhenTheInfoFolderCannotBeMade) {
  files.Fail(FileOperation::kCreateFolder, u"C:\\Host\\Info");
  Start();
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(StartTest, OpensTheFileOfTheCommandLineIntoTheFirstTab) {
  files.AddFile(u"C:\\My files\\a.tmj", "BTN S1 X\r\n");
  Start(u"\"C:\\Host\\WrenDeck.exe\" \"C:\\My files\\a.tmj\"");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(Box().Text(), u"BTN S1 X\n");
  EXPECT_EQ(view.recentFiles, Texts{u"C:\\My files\\a.tmj"});
}

TEST_F(StartTest, MakesARelativeStartupFileAbsolute) {
  files.AddFile(u"C:\\Work\\a.tmj", "x");
  ASSERT_TRUE(files.SetCurrentFolder(u"C:\\Work"));
  Start(u"WrenDeck.exe a.tmj");
  ASSERT_TRUE(files.SetCurrentFolder(u"C:\\Host"));
  Box().Type(u"y");
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(files.Content(u"C:\\Work\\a.tmj"), "yx");
}

TEST_F(StartTest, PrintingTakesTheCurrentDocument) {
  StartWith(u"C:\\a.tmj", "BTN S1 X\r\n");
  editor.Execute(CommandId::kPrinterSetup);
  EXPECT_EQ(printer.setups, 1);
  editor.Execute(CommandId::kPrint);
  ASSERT_EQ(printer.finished.size(), 1u);
  EXPECT_EQ(printer.finished[0].pages[0].lines[0], u"a.tmj");
}

TEST_F(StartTest, ATickOfTheTimerThatNobodyStartsOnlyLooksAtTheModesStatus) {
  Start();
  const std::size_t writes = profiles.writes.size();
  editor.OnTimer(TimerId::kStatusModeTimer);
  EXPECT_EQ(profiles.writes.size(), writes);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(StartTest, ATickOfThatTimerEndsItWhenTheModeIsReported) {
  Start();
  events.StartTimer(TimerId::kStatusModeTimer, 1000);
  editor.OnTimer(TimerId::kStatusModeTimer);
  EXPECT_TRUE(events.IsRunning(TimerId::kStatusModeTimer));
  profiles.SetText(kHotasIni, u"[TMMODE]\r\nStatus=OK\r\n");
  editor.OnTimer(TimerId::kStatusModeTimer);
  EXPECT_FALSE(events.IsRunning(TimerId::kStatusModeTimer));
}

TEST_F(StartTest, IgnoresACommandLineThatNamesNoFile) {
  for (const std::u16string_view line : {u"WrenDeck.exe C:\\missing.tmj", u"WrenDeck.exe C:\\Host",
                                         u"WrenDeck.exe C:\\Host\\*.exe", u"WrenDeck.exe /help"}) {
    FakeMainWindowView otherView;
    FakeKeyTestView otherKeyTest;
    FakeFindDialogView otherFindDialog{prompts};
    otherView.makeEditBox = view.makeEditBox;
    Editor other{{otherView, panel, files, profiles, dialogs, prompts, programs, events, keyboard,
                  codePage, system, help, infoWindow, printer, clipboard, otherKeyTest,
                  otherFindDialog, background}};
    ASSERT_TRUE(other.Load(kHostFolder, line));
    EXPECT_EQ(otherView.Captions(), Captions{u"Untitled"});
  }
  EXPECT_TRUE(prompts.shown.empty());
}

struct HelpCase {
  std::optional<SystemVersion> version;
  std::u16string_view prefersHlp;
  bool useHlp;
};

class HelpChoice : public EditorFixture, public testing::WithParamInterface<HelpCase> {};

TEST_P(HelpChoice, IsCompiledHelpOnVersionSixOnly) {
  system.version = GetParam().version;
  ASSERT_TRUE(profiles.WriteText(kHostIni, u"Unsupported", u"UseHLPnotCHM", GetParam().prefersHlp));
  Start();
  EXPECT_EQ(editor.Help().UseHlpFile, GetParam().useHlp);
  EXPECT_EQ(help.prepared, GetParam().useHlp ? 0 : 1);
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_EQ(help.closed, GetParam().useHlp ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(Systems, HelpChoice,
                         testing::Values(HelpCase{SystemVersion{2, 6, 0}, u"0", false},
                                         HelpCase{SystemVersion{2, 6, 2}, u"0", false},
                                         HelpCase{SystemVersion{2, 6, 2}, u"1", true},
                                         HelpCase{SystemVersion{2, 6, 2}, u"-1", true},
                                         HelpCase{SystemVersion{2, 5, 1}, u"0", true},
                                         HelpCase{SystemVersion{2, 10, 0}, u"0", true},
                                         HelpCase{SystemVersion{1, 6, 0}, u"0", true},
                                         HelpCase{std::nullopt, u"0", true}));

TEST_F(CloseTest, WritesSettingsAndPlace) {
  Start();
  view.placement = {-15, -200, 9000, 6000, WindowState::kNormal};
  editor.Execute(CommandId::kIndentWhenAligning);
  editor.Execute(CommandId::kEnableAfterDownload);
  ASSERT_TRUE(editor.QueryUnload());
  EXPECT_TRUE(profiles.writes.empty()) << "nothing is written before the close is certain";
  editor.Unload();
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorTopAtStartup"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorLeftAtStartup"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorWindowstate"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"IndentAsWell"), u"1");
  EXPECT_EQ(Own(u"Miscellaneous", u"EnableJoystick"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"RunAppsWithDownload"), u"0");
}

TEST_F(CloseTest, AsksForEachModifiedDocumentUntilCancel) {
  Start();
  for (const std::u16string name : {u"a", u"b", u"c", u"d"}) {
    files.AddFile(u"C:\\" + name + u".tmj", "old");
    Open(u"C:\\" + name + u".tmj");
    Box().Type(u"x");
  }
  prompts.answers = {Answer::kYes, Answer::kNo, Answer::kCancel};
  EXPECT_FALSE(editor.QueryUnload());
  ASSERT_EQ(prompts.shown.size(), 3u);
  EXPECT_EQ(prompts.shown[0], (Message{u"a.tmj isn't saved. Do you want to save it now?",
                                       u"Save a.tmj?", BoxStyle::kYesNoCancel}));
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "old");
  EXPECT_EQ(files.Content(u"C:\\c.tmj"), "old");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"b.tmj", u"c.tmj", u"d.tmj"}));
  EXPECT_EQ(view.selectedTab, 3);
  EXPECT_EQ(editor.Documents()[0].modifiedFlag, 0);
  EXPECT_EQ(editor.Documents()[1].modifiedFlag, 1);
  EXPECT_EQ(editor.Documents().SkipMacroRefresh, 0);
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorWindowstate"), u"");
}

TEST_F(CloseTest, SelectsEveryTabInTurnWithoutAnalysingMacros) {
  Start();
  files.AddFile(u"C:\\a.tmm", "A = b\r\nC = d\r\n");
  Open(u"C:\\a.tmm");
  editor.Execute(CommandId::kFileNew);
  Box().Type(u"x");
  std::vector<int> selected;
  prompts.onShow = [&](const Message&) { selected.push_back(view.selectedTab); };
  prompts.answers = {Answer::kNo};
  EXPECT_TRUE(editor.QueryUnload());
  EXPECT_EQ(selected, std::vector<int>{2});
  EXPECT_EQ(Panel(1), u"Editing Untitled") << "no text of macro analysis";
}

TEST_F(CloseTest, AFailedOrCancelledSaveKeepsTheWindowOpen) {
  Start();
  files.AddFile(u"C:\\a.tmj", "old");
  Open(u"C:\\a.tmj");
  Box().Type(u"x");
  files.Fail(FileOperation::kReplace, u"C:\\a.tmj");
  prompts.answers = {Answer::kYes};
  EXPECT_FALSE(editor.QueryUnload());
  EXPECT_EQ(view.selectedTab, 1);
  files.StopFailing();
  editor.Execute(CommandId::kFileNew);
  Box().Type(u"y");
  prompts.answers = {Answer::kYes, Answer::kYes};
  dialogs.saveResults = {std::nullopt};
  EXPECT_FALSE(editor.QueryUnload());
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
  EXPECT_EQ(view.selectedTab, 2);
}

TEST_F(CloseTest, DoesNotAskAboutAnyOtherFlag) {
  Start();
  editor.Documents()[0].modifiedFlag = 2;
  EXPECT_TRUE(editor.QueryUnload());
}

TEST_F(CloseTest, ClosesTheQuickHelpAfterTheSettingsAreWritten) {
  Start();
  editor.Execute(CommandId::kHelpSyntax);
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_FALSE(infoWindow.loaded);
  ASSERT_GE(profiles.writes.size(), 2u);
  EXPECT_EQ(profiles.writes.front().section, u"Miscellaneous");
  EXPECT_EQ(profiles.writes.back().section, u"Online Help");
}

TEST_F(CloseTest, AShutdownThatIsCalledOffLeavesTheProgramAsItWas) {
  files.AddFile(u"C:\\a.tmj", "BTN S1 X");
  Start();
  Open(u"C:\\a.tmj");
  ASSERT_TRUE(editor.QueryUnload());
  editor.StayOpen();
  CompilerReports(u"OK", 0, 3, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(prompts.shown.back().title, u"Compile results");
}

TEST_F(CloseTest, ExitClosesTheWindow) {
  Start();
  editor.Execute(CommandId::kExit);
  EXPECT_EQ(view.closings, 1);
}

TEST_F(CommandTest, OpensARecentFile) {
  files.AddFile(u"C:\\a.tmj", "x");
  files.AddFile(u"C:\\b.tmj", "y");
  profiles.SetText(kOwnIni,
                   u"[Previous Files]\r\nNumberPreviousFiles=2\r\nPreviousFilePath1=C:\\a.tmj\r\n"
                   u"PreviousFilePath2=C:\\b.tmj\r\n");
  Start();
  editor.Execute(static_cast<CommandId>(static_cast<int>(CommandId::kRecentFile1) + 1));
  EXPECT_EQ(view.Captions(), Captions{u"b.tmj"});
  EXPECT_EQ(view.recentFiles, (Texts{u"C:\\b.tmj", u"C:\\a.tmj"}));
}

TEST_F(CommandTest, ARecentFileThatIsOpenAsksFirst) {
  files.AddFile(u"C:\\a.tmj", "x");
  Start();
  Open(u"C:\\a.tmj");
  prompts.answers = {Answer::kNo, Answer::kYes};
  editor.Execute(CommandId::kRecentFile1);
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  editor.Execute(CommandId::kRecentFile1);
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"a.tmj"}));
  EXPECT_EQ(prompts.shown[0].title, u"File already open");
}

TEST_F(CommandTest, ARecentFileThatIsGoneStaysInTheList) {
  profiles.SetText(kOwnIni,
                   u"[Previous Files]\r\nNumberPreviousFiles=1\r\nPreviousFilePath1=C:\\a.tmj\r\n");
  Start();
  editor.Execute(CommandId::kRecentFile1);
  EXPECT_EQ(prompts.shown,
            (std::vector<Message>{
                {u"There's a problem here ... I couldn't find C:\\a.tmj which probably means "
                 u"you've deleted it or moved it. Sorry!",
                 u"Can't find file", BoxStyle::kExclamation}}));
  EXPECT_EQ(view.recentFiles, Texts{u"C:\\a.tmj"});
}

TEST_F(CommandTest, ARecentFileWhoseNameIsAFoldersNowCannotBeFound) {
  files.AddFolder(u"C:\\a.tmj");
  profiles.SetText(kOwnIni,
                   u"[Previous Files]\r\nNumberPreviousFiles=1\r\nPreviousFilePath1=C:\\a.tmj\r\n");
  Start();
  editor.Execute(CommandId::kRecentFile1);
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0].title, u"Can't find file");
}

TEST_F(CommandTest, NumbersBeyondTheListAndUnknownCommandsDoNothing) {
  Start();
  editor.Execute(CommandId::kRecentFile1);
  editor.Execute(CommandId::kRecentFileLast);
  editor.Execute(CommandId::kNone);
  editor.Execute(static_cast<CommandId>(-1));
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(CommandTest, SavesUnderAnotherName) {
  StartWith(u"C:\\a.tmj", "one");
  Box().Type(u"x");
  dialogs.saveResults.push_back(SaveChoice{u"C:\\b.tmj", 1});
  editor.Execute(CommandId::kFileSaveAs);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "one");
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "xone");
  EXPECT_EQ(view.Captions(), Captions{u"b.tmj"});
}

TEST_F(CommandTest, TogglesTheTicks) {
  Start();
  for (const CommandId id : {CommandId::kEnableAfterDownload, CommandId::kIgnoreRunApp,
                             CommandId::kIndentWhenAligning, CommandId::kViewMacros}) {
    const bool before = view.commands[id].checked;
    editor.Execute(id);
    EXPECT_NE(view.commands[id].checked, before);
    editor.Execute(id);
    EXPECT_EQ(view.commands[id].checked, before);
  }
}

TEST_F(CommandTest, TheTicksOfTheDownloadMenuDecideWhatADownloadDoes) {
  files.AddFile(u"C:\\a.tmj", "use wren run_app C:\\game.exe\r\nBTN S1 X\r\n");
  files.AddFile(u"C:\\game.exe", "");
  Start(u"WrenDeck.exe C:\\a.tmj");
  const auto download = [this] {
    programs.started.clear();
    CompilerReports(u"OK", 0, 3, u"");
    editor.Execute(CommandId::kDownload);
  };
  download();
  ASSERT_GE(programs.started.size(), 1u);
  EXPECT_EQ(programs.started[0].commandLine,
            u"C:\\Host\\HOTASCompiler.exe /WREN /CE \"C:\\a.tmj\"");
  const std::size_t withApps = programs.started.size();
  EXPECT_EQ(withApps, 2u);
  editor.Execute(CommandId::kEnableAfterDownload);
  editor.Execute(CommandId::kIgnoreRunApp);
  download();
  ASSERT_EQ(programs.started.size(), 1u) << "programs to run are ignored";
  EXPECT_EQ(programs.started[0].commandLine,
            u"C:\\Host\\HOTASCompiler.exe /WREN /CD \"C:\\a.tmj\"");
}

TEST_F(CommandTest, ClicksOnTabsSelectAndMiddleClicksClose) {
  files.AddFile(u"C:\\a.tmj", "x");
  files.AddFile(u"C:\\b.tmj", "y");
  Start();
  Open(u"C:\\a.tmj");
  Open(u"C:\\b.tmj");
  editor.OnTabClicked(1);
  EXPECT_EQ(view.selectedTab, 1);
  editor.OnTabClicked(3);
  editor.OnTabClicked(0);
  EXPECT_EQ(view.selectedTab, 1);
  editor.OnTabClicked(2);
  EXPECT_EQ(view.selectedTab, 2);
  editor.OnTabMiddleClicked(2);
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  editor.OnTabMiddleClicked(2);
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  editor.OnTabMiddleClicked(1);
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(CommandTest, CtrlTabGoesRoundTheTabs) {
  Start();
  editor.Execute(CommandId::kFileNew);
  editor.Execute(CommandId::kNextTab);
  EXPECT_EQ(view.selectedTab, 1);
  editor.Execute(CommandId::kPreviousTab);
  EXPECT_EQ(view.selectedTab, 2);
}

TEST_F(CommandTest, PointingAtATabNamesThatTab) {
  Start();
  editor.OnTabHovered(1);
  EXPECT_EQ(Panel(1), u"Click to select Untitled for editing.");
}

TEST_F(CommandTest, DroppedFilesOpenLikeAMultipleSelection) {
  files.AddFile(u"C:\\a.tmj", "x");
  files.AddFile(u"C:\\b.tmm", "y");
  Start();
  editor.OnFilesDropped({u"C:\\a.tmj", u"C:\\gone.tmj", u"C:\\b.tmm"});
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"b.tmm"}));
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(CommandTest, ExplainsTheButtonUnderThePointerButNotOverACompileResult) {
  Start();
  editor.OnToolbarHovered(CommandId::kGotoLine);
  EXPECT_EQ(Panel(1),
            u"Goto line number - useful when a download files with an error at a line number");
  editor.OnToolbarHovered(CommandId::kFileSaveAll);
  EXPECT_EQ(Panel(1),
            u"Goto line number - useful when a download files with an error at a line number");
  files.AddFile(u"C:\\a.tmj", "BTN S1 X");
  Open(u"C:\\a.tmj");
  CompilerReports(u"OK", 0, 3, u"");
  editor.Execute(CommandId::kCompile);
  editor.OnToolbarHovered(CommandId::kCut);
  EXPECT_EQ(Panel(1), u" Compiled successfully. (Memory used: 3%)");
}

TEST_F(StartTest, ShowsToolTipsUnlessTheHostSaysNo) {
  Start();
  EXPECT_TRUE(view.toolTips);
  ASSERT_TRUE(profiles.WriteText(kHostIni, u"Miscellaneous", u"OKtoShowToolTips", u"0"));
  Editor next(ports);
  view.tabs.clear();
  ASSERT_TRUE(next.Load(kHostFolder, u"WrenDeck.exe"));
  EXPECT_FALSE(view.toolTips);
}

TEST_F(CommandTest, GreetsOverTheStatusBarWhateverStandsThere) {
  const std::u16string greeting = u"Hi there buddy, welcome to WrenDeck  - another handy utility!";
  files.AddFile(u"C:\\a.tmj", "BTN S1 X");
  Start();
  editor.OnStatusBarHovered();
  EXPECT_EQ(Panel(1), greeting);
  Open(u"C:\\a.tmj");
  editor.Execute(CommandId::kFileSave);
  ASSERT_EQ(editor.Documents().CompilerBusy, 1);
  editor.OnStatusBarHovered();
  EXPECT_EQ(Panel(1), greeting);
  CompilerReports(u"OK", 0, 3, u"");
  editor.Execute(CommandId::kCompile);
  editor.OnStatusBarHovered();
  EXPECT_EQ(Panel(1), greeting);
}

TEST_F(CommandTest, ShowsToggleKeysAndClock) {
  Start();
  keyboard.on = {ToggleKey::kCapsLock};
  editor.OnKeysAndClock(true, u"14:08");
  EXPECT_EQ(Panel(4), u"INS");
  EXPECT_EQ(Panel(5), u"CAPS");
  EXPECT_EQ(Panel(6), u"");
  EXPECT_EQ(Panel(7), u"14:08");
  keyboard.on = {ToggleKey::kNumLock};
  editor.OnKeysAndClock(false, u"14:09");
  EXPECT_EQ(Panel(4), u"");
  EXPECT_EQ(Panel(5), u"");
  EXPECT_EQ(Panel(6), u"NUM");
  EXPECT_EQ(Panel(7), u"14:09");
}

TEST_F(CommandTest, TheTimerAfterASaveTicksOnce) {
  files.AddFile(u"C:\\a.tmj", "x");
  Start();
  Open(u"C:\\a.tmj");
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(editor.Documents().CompilerBusy, 1);
  events.Advance(2999);
  EXPECT_EQ(editor.Documents().CompilerBusy, 1);
  events.Advance(1);
  EXPECT_EQ(editor.Documents().CompilerBusy, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kTimer1));
}

TEST_F(CommandTest, ShowsTheQuickHelpPages) {
  files.AddFile(u"C:\\Host\\Info\\Syntax.rtf", "{\\rtf1 a}");
  files.AddFile(u"C:\\Host\\Info\\Slash modifiers.rtf", "{\\rtf1 b}");
  files.AddFile(u"C:\\Host\\Info\\Error codes.rtf", "{\\rtf1 c}");
  Start();
  for (const auto& [id, page] : {std::pair{CommandId::kHelpSyntax, "{\\rtf1 a}"},
                                 {CommandId::kHelpSlashModifiers, "{\\rtf1 b}"},
                                 {CommandId::kHelpErrorCodes, "{\\rtf1 c}"}}) {
    editor.Execute(id);
    EXPECT_EQ(infoWindow.page, page);
  }
  editor.OnMinimised();
  EXPECT_TRUE(infoWindow.minimised);
}

TEST_F(CommandTest, PrintsAndSetsThePrinterUp) {
  Start();
  editor.Execute(CommandId::kPrint);
  EXPECT_EQ(printer.finished.size(), 1u);
  editor.Execute(CommandId::kPrinterSetup);
  EXPECT_EQ(printer.setups, 1);
}

TEST_F(CommandTest, StartsTheHostsApps) {
  files.AddFile(u"C:\\Host\\Starter.exe", "");
  files.AddFile(u"C:\\Host\\HOTASConfig.exe", "");
  Start();
  editor.Execute(CommandId::kAppWren);
  editor.Execute(CommandId::kAppStarter);
  editor.Execute(CommandId::kAppControlPanel);
  ASSERT_EQ(programs.started.size(), 3u);
  EXPECT_EQ(programs.started[0].commandLine, u"C:\\Host\\Wren.exe");
  EXPECT_EQ(programs.started[1].commandLine, u"C:\\Host\\Starter.exe");
  EXPECT_EQ(programs.started[2].commandLine, u"C:\\Host\\HOTASConfig.exe");
}

TEST_F(CommandTest, ShowsHelpTopicsAndVersion) {
  Start();
  editor.Execute(CommandId::kHelpTopics);
  EXPECT_EQ(help.topics.size(), 1u);
  editor.Execute(CommandId::kHelpVersion);
  EXPECT_EQ(prompts.shown.back().title, u"Version information");
}

TEST_F(CommandTest, GivesTheFocusToTheText) {
  Start();
  editor.OnFocus();
  EXPECT_TRUE(Box().focused());
}

TEST_F(MainJobTest, OpensInsertsSavesCompilesAndLandsOnTheErrorLine) {
  files.AddFile(u"C:\\Host\\Files\\f16.tmj", "USE MDEF f16\r\nBTN S1 GUN\r\nBTN S2 \r\n");
  files.AddFile(u"C:\\Host\\Files\\f16.tmm",
                "GUN = SPC\r\nrem ----\r\nrem STORES\r\nrem ----\r\nDROP = b\r\nrem end\r\n");
  Start();
  Open(u"C:\\Host\\Files\\f16.tmj");
  EXPECT_EQ(view.Captions(), (Captions{u"f16.tmj", u"f16.tmm"}));
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_EQ(Panel(8), u"f16.tmm");
  EXPECT_EQ(view.PanelToolTip(8), u"Contains 2 macros and 1 macro headings");
  EXPECT_EQ(panel.headings, (Texts{u"All", u"Stores"}));
  EXPECT_EQ(panel.macros, (Texts{u"GUN", u"DROP"}));
  EXPECT_EQ(view.macroFrameWidth, 300);
  EXPECT_TRUE(view.commands[CommandId::kViewMacros].checked);
  EXPECT_EQ(view.recentFiles, (Texts{u"C:\\Host\\Files\\f16.tmm", u"C:\\Host\\Files\\f16.tmj"}));

  Box().MoveCaret({31, 0});
  editor.Macros().OnMacroClicked(1);
  EXPECT_EQ(Panel(1), u"DROP = b");
  editor.Macros().OnMacroDoubleClicked(1);
  EXPECT_EQ(Box().Text(), u"USE MDEF f16\nBTN S1 GUN\nBTN S2 DROP \n");
  EXPECT_EQ(Panel(3), u"Modified");

  editor.Execute(CommandId::kHelpSyntax);
  CompilerReports(u"ERROR", 2, 0, u"Error 2002: something");
  editor.Execute(CommandId::kCompile);
  EXPECT_TRUE(infoWindow.minimised);
  EXPECT_EQ(files.Content(u"C:\\Host\\Files\\f16.tmj"),
            "USE MDEF f16\r\nBTN S1 GUN\r\nBTN S2 DROP \r\n");
  ASSERT_EQ(programs.started.size(), 1u);
  EXPECT_EQ(
      programs.started[0],
      (FakePrograms::Started{u"C:\\Host\\HOTASCompiler.exe /WREN /CO \"C:\\Host\\Files\\f16.tmj\"",
                             ProgramWindow::kNormal, u"C:\\Host", u"C:\\Host\\HOTASCompiler.exe"}));
  EXPECT_EQ(prompts.shown.back(),
            (Message{u"Compiler reported an error at line 2: Error 2002: something",
                     u"The compile was unsuccessful", BoxStyle::kExclamation}));
  EXPECT_EQ(Panel(1), u" Compiler reported an error at line 2: Error 2002: something");
  EXPECT_EQ(Panel(2), u"Line no: 2");
  EXPECT_EQ(Box().Selection(), (TextSpan{13, 11}));
  EXPECT_TRUE(Box().focused());

  CompilerReports(u"OK", 0, 12, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(Panel(1), u" Compiled successfully. (Memory used: 12%)");
  EXPECT_EQ(prompts.shown.back(),
            (Message{u"f16.tmj was compiled successfully.\r\nCompiled file size: 12% of the Cougar "
                     u"memory.",
                     u"Compile results", BoxStyle::kInformation}));
  EXPECT_EQ(editor.Documents().CompilerBusy, 0);
}

TEST_F(MainJobTest, SavingTheMacroFileShowsItsNewMacros) {
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  Start();
  Open(u"C:\\a.tmm");
  EXPECT_EQ(panel.macros, Texts{u"A1"});
  Box().Type(u"B2 = c\n");
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(panel.macros, (Texts{u"B2", u"A1"}));
  EXPECT_EQ(Panel(1), u"a.tmm successfully saved");
}

TEST_F(MainJobTest, TheViewMenuShowsThePanelAndBringsTheListUpToDate) {
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  Start();
  editor.Execute(CommandId::kViewMacros);
  EXPECT_EQ(view.macroFrameWidth, 300);
  editor.Execute(CommandId::kViewMacros);
  EXPECT_EQ(view.macroFrameWidth, 0);

  Open(u"C:\\a.tmm");
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\nB2 = c\r\n");
  editor.Execute(CommandId::kUpdateMacroList);
  EXPECT_EQ(panel.macros, (Texts{u"A1", u"B2"}));
  EXPECT_EQ(view.macroFrameWidth, 300);
}

TEST_F(MainJobTest, BringingTheListUpToDateSavesTheMacroFileFirst) {
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  Start();
  Open(u"C:\\a.tmm");
  Box().Type(u"B2 = c\n");
  prompts.answers = {Answer::kYes};
  editor.Execute(CommandId::kUpdateMacroList);
  EXPECT_EQ(files.Content(u"C:\\a.tmm"), "B2 = c\r\nA1 = b\r\n");
  EXPECT_EQ(panel.macros, (Texts{u"B2", u"A1"}));
  EXPECT_EQ(Panel(3), u"Saved");
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(MainJobTest, AJoystickFileThatNamesItselfIsAskedAboutOnce) {
  files.AddFile(u"C:\\a.tmj", "USE MDEF .\\sub\\..\\a.tmj\r\n");
  files.AddFolder(u"C:\\sub");
  Start();
  prompts.answers = {Answer::kNo};
  Open(u"C:\\a.tmj");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0].title, u"File already open");
  EXPECT_EQ(Panel(1), u"a.tmj successfully opened");
  EXPECT_EQ(Box().Selection(), TextSpan{});
}

TEST_F(MainJobTest, ClosingAMacroFileEmptiesThePanel) {
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  Start();
  Open(u"C:\\a.tmm");
  ASSERT_EQ(Panel(8), u"a.tmm");
  editor.Execute(CommandId::kFileClose);
  EXPECT_TRUE(panel.macros.empty());
  EXPECT_TRUE(panel.headings.empty());
  EXPECT_EQ(Panel(8), u"No macro file analysed");
  EXPECT_EQ(view.PanelToolTip(8), u"");
}

TEST_F(MainJobTest, ClosingAMacroFileBesideItsJoystickFileShowsWhatThatOneUses) {
  files.AddFile(u"C:\\a.tmj", "USE MDEF a\r\n");
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  files.AddFile(u"C:\\other.tmm", "B1 = b\r\n");
  Start();
  Open(u"C:\\a.tmj");
  Open(u"C:\\other.tmm");
  ASSERT_EQ(panel.macros, Texts{u"B1"});
  editor.OnTabClicked(1);
  editor.OnTabMiddleClicked(2);
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"other.tmm"}));
  EXPECT_EQ(panel.macros, Texts{u"B1"}) << "the tab that takes its place is a macro file";
  editor.OnTabMiddleClicked(2);
  EXPECT_EQ(panel.macros, Texts{u"A1"}) << "read from disk for the joystick file";
  EXPECT_EQ(Panel(8), u"a.tmm");
}

TEST_F(MainJobTest, SwitchingTabsShowsTheMacrosOfTheirFiles) {
  files.AddFile(u"C:\\a.tmj", "USE MDEF a\r\n");
  files.AddFile(u"C:\\a.tmm", "A1 = b\r\n");
  files.AddFile(u"C:\\b.tmj", "USE MDEF b\r\n");
  files.AddFile(u"C:\\b.tmm", "B1 = b\r\n");
  Start();
  Open(u"C:\\a.tmj");
  Open(u"C:\\b.tmj");
  EXPECT_EQ(panel.macros, Texts{u"B1"});
  editor.OnTabClicked(1);
  EXPECT_EQ(panel.macros, Texts{u"A1"});
  EXPECT_EQ(Panel(8), u"a.tmm");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"a.tmm", u"b.tmj", u"b.tmm"}));
}

TEST_F(MainJobTest, ClosingTheWindowDuringACompileEndsTheWaitInSilence) {
  files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  Start();
  Open(u"C:\\a.tmj");
  events.actions.push_back([this] { EXPECT_TRUE(editor.QueryUnload()); });
  editor.Execute(CommandId::kCompile);
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(programs.started.size(), 1u);
}

TEST_F(MainJobTest, AnErrorThatNobodySeesComeIsShownUntilTheProgramIsLookedAt) {
  files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  Start();
  Open(u"C:\\a.tmj");
  editor.OnLookedAt(true);
  events.actions.emplace_back([this] { editor.OnLookedAt(false); });
  CompilerReports(u"ERROR", 0, 0, u"no such macro");
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(view.work, WorkState::kFailed);
  editor.OnLookedAt(true);
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(MainJobTest, ACancelledCloseDuringACompileLetsTheWaitGoOn) {
  files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  Start();
  Open(u"C:\\a.tmj");
  events.actions.push_back([this] {
    Box().Type(u"y");
    prompts.answers = {Answer::kCancel};
    EXPECT_FALSE(editor.QueryUnload());
  });
  CompilerReports(u"OK", 0, 3, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(prompts.shown.back().title, u"Compile results");
}

}  // namespace
}  // namespace deck
