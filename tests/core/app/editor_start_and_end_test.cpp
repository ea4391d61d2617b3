// In which order a session begins and ends.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

using Captions = std::vector<std::u16string>;

class StartOrder : public EditorFixture {};
class EndOrder : public EditorFixture {};

TEST_F(StartOrder, EventsOfTheBoxThatTellsOfAMissingHostDoNothing) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.exe"));
  files.AddFile(u"C:\\a.tmj", "x");
  prompts.onShow = [this](const Message&) {
    for (const CommandRow& row : kCommands) editor.Execute(row.id);
    editor.OnMenuOpening(Menu::kEdit);
    editor.OnFilesDropped({u"C:\\a.tmj"});
    editor.OnTabClicked(1);
    editor.OnTabMiddleClicked(1);
    editor.OnTabHovered(1);
    editor.OnTimer(TimerId::kTimer1);
    editor.OnFocus();
    editor.OnMinimised();
    EXPECT_TRUE(editor.QueryUnload());
    editor.Unload();
  };
  EXPECT_FALSE(editor.Load(kHostFolder, u"WrenDeck.exe"));
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_TRUE(profiles.writes.empty());
  EXPECT_TRUE(view.tabs.empty());
}

TEST_F(StartOrder, AMissingHostIsToldBeforeTheInfoFolderIsMade) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Wren.ini"));
  EXPECT_FALSE(editor.Load(kHostFolder, u"WrenDeck.exe"));
  EXPECT_FALSE(files.Attributes(u"C:\\Host\\Info"));
}

TEST_F(StartOrder, MakesNeitherTheFilesNorTheTempFolder) {
  files.AddFile(u"C:\\Bare\\Wren.exe", "");
  files.AddFile(u"C:\\Bare\\Wren.ini", "");
  ASSERT_TRUE(editor.Load(u"C:\\Bare", u"WrenDeck.exe"));
  EXPECT_TRUE(files.Attributes(u"C:\\Bare\\Info"));
  EXPECT_FALSE(files.Attributes(u"C:\\Bare\\Files"));
  EXPECT_FALSE(files.Attributes(u"C:\\Bare\\Temp"));
}

TEST_F(StartOrder, TheKeyboardLayoutOfTheStartIsTheOneThatNewBoxesGet) {
  profiles.SetText(kHostIni, u"[Unsupported]\r\nForeignLanguageKBInputFix=-1\r\n");
  keyboard.layoutName = u"00000407";
  Start();
  EXPECT_TRUE(keyboard.activated.empty());
  keyboard.layoutName = u"00000409";
  editor.Execute(CommandId::kFileNew);
  EXPECT_EQ(keyboard.activated, std::vector<std::u16string>{u"00000407"});
}

TEST_F(StartOrder, TheHostSaysHowOftenAndHowLongTheCompilerIsWaitedFor) {
  profiles.SetText(kHostIni,
                   u"[Unsupported]\r\nRegainControlAfter=300\r\nCheckForCompletionTime=200\r\n");
  StartWith(u"C:\\a.tmj", "BTN S1 X\r\n");
  int interval = 0;
  events.actions.push_back([&] { interval = events.Interval(TimerId::kDownloadTimer); });
  const int before = events.now;
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(interval, 200);
  EXPECT_EQ(prompts.shown.front().title,
            u"Now this is taking rather a long time buddy, isn't it?!");
  EXPECT_LE(events.now - before, 800) << "two ticks of 200 ms are more than 300 ms";
}

TEST_F(StartOrder, NoRecentFileIsLookedForBeforeItIsChosen) {
  profiles.SetText(
      kOwnIni,
      u"[Previous Files]\r\nNumberPreviousFiles=2\r\n"
      u"PreviousFilePath1=\\\\dead\\share\\a.tmj\r\nPreviousFilePath2=C:\\gone.tmj\r\n");
  Start();
  editor.OnMenuOpening(Menu::kFile);
  EXPECT_EQ(view.recentFiles,
            (std::vector<std::u16string>{u"\\\\dead\\share\\a.tmj", u"C:\\gone.tmj"}));
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_FALSE(files.WasAsked(u"\\\\dead\\share\\a.tmj"));
  EXPECT_FALSE(files.WasAsked(u"C:\\gone.tmj"));
  editor.Execute(CommandId::kRecentFile1);
  EXPECT_TRUE(files.WasAsked(u"\\\\dead\\share\\a.tmj"));
  EXPECT_FALSE(files.WasAsked(u"C:\\gone.tmj"));
}

TEST_F(StartOrder, OnlyTheValueOneTicksTheIndentItem) {
  profiles.SetText(kOwnIni, u"[Unsupported]\r\nIndentAsWell=2\r\n");
  Start();
  EXPECT_FALSE(view.commands[CommandId::kIndentWhenAligning].checked);
  editor.Execute(CommandId::kIndentWhenAligning);
  EXPECT_TRUE(view.commands[CommandId::kIndentWhenAligning].checked);
}

TEST_F(StartOrder, WhatTheHostChangesLaterCountsFromTheNextStart) {
  Start();
  profiles.SetText(kHostIni,
                   u"[Miscellaneous]\r\nAlwaysShowCompileDownload=1\r\nOKtoShowToolTips=0\r\n"
                   u"[FileLocations]\r\nHOTASStatusBarErrors=1\r\n"
                   u"[Unsupported]\r\nForeignLanguageKBInputFix=1\r\nUseHLPnotCHM=1\r\n"
                   u"CheckForCompletionTime=1\r\n");
  files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  Open(u"C:\\a.tmj");
  CompilerReports(u"OK", 0, 3, u"");
  int interval = 0;
  events.actions.push_front([&] { interval = events.Interval(TimerId::kDownloadTimer); });
  editor.Execute(CommandId::kCompile);
  EXPECT_EQ(interval, 1000);
  ASSERT_EQ(prompts.shown.size(), 1u) << "not in the status bar only";
  EXPECT_EQ(prompts.shown[0].title, u"Compile results");
  editor.Execute(CommandId::kFileNew);
  EXPECT_FALSE(view.commands[CommandId::kCompile].enabled);
  EXPECT_TRUE(view.toolTips);
}

TEST_F(EndOrder, EveryTabIsSelectedInTurnAlsoTheUnmodifiedOnes) {
  for (const std::u16string name : {u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"}) {
    files.AddFile(name, "x");
  }
  Start();
  for (const std::u16string name : {u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"}) Open(name);
  editor.OnTabClicked(2);
  view.selections.clear();
  EXPECT_TRUE(editor.QueryUnload());
  EXPECT_EQ(view.selections, (std::vector<int>{1, 2, 3}));
}

TEST_F(EndOrder, NoTabSwitchOfTheCloseReadsAMacroFile) {
  files.AddFile(u"C:\\a.tmm", "A = b\r\n");
  files.AddFile(u"C:\\b.tmm", "B = b\r\n");
  Start();
  Open(u"C:\\a.tmm");
  Open(u"C:\\b.tmm");
  ASSERT_EQ(panel.macros, std::vector<std::u16string>{u"B"});
  editor.OnTabClicked(1);
  ASSERT_EQ(panel.macros, std::vector<std::u16string>{u"A"});
  EXPECT_TRUE(editor.QueryUnload());
  EXPECT_EQ(view.selectedTab, 2);
  EXPECT_EQ(panel.macros, std::vector<std::u16string>{u"A"});
  EXPECT_EQ(Panel(1), u"Editing b.tmm");
}

TEST_F(EndOrder, AfterACancelledCloseTabSwitchesReadMacroFilesAgain) {
  files.AddFile(u"C:\\a.tmm", "A = b\r\n");
  files.AddFile(u"C:\\b.tmm", "B = b\r\n");
  Start();
  Open(u"C:\\a.tmm");
  Open(u"C:\\b.tmm");
  Box().Type(u"rem\n");
  prompts.answers = {Answer::kCancel};
  EXPECT_FALSE(editor.QueryUnload());
  editor.OnTabClicked(1);
  EXPECT_EQ(panel.macros, std::vector<std::u16string>{u"A"});
}

TEST_F(EndOrder, SettingsComeFirstThenFindQuickHelpKeyTesterAndHelp) {
  system.version = SystemVersion{2, 6, 2};
  files.AddFile(u"C:\\Host\\Info\\Syntax.rtf", "{\\rtf1 a}");
  files.AddFile(u"C:\\Host\\KeyCodes.txt", "65,key A\r\n");
  profiles.SetText(kHotasIni, u"[TMMODE]\r\nStatus=OK\r\nButtons=1\r\n");
  Start();
  editor.Execute(CommandId::kFind);
  editor.Execute(CommandId::kHelpSyntax);
  editor.Execute(CommandId::kKeyTest);
  ASSERT_TRUE(findDialog.IsOpen() && infoWindow.loaded && keyTest.open);
  ASSERT_TRUE(editor.QueryUnload());

  // What was still open when something was written.
  std::vector<std::u16string> order;
  const auto note = [&](const std::u16string& what) {
    std::u16string step = what + u":";
    if (findDialog.IsOpen()) step += u" find";
    if (infoWindow.loaded) step += u" quick help";
    if (keyTest.open) step += u" key tester";
    if (order.empty() || order.back() != step) order.push_back(step);
  };
  profiles.onWrite = [&](const FakeProfileFiles::Write& write) { note(write.section); };
  help.onCloseAll = [&] { note(u"help"); };
  editor.Unload();
  EXPECT_EQ(order, (std::vector<std::u16string>{
                       u"Miscellaneous: find quick help key tester",
                       u"Online Help: quick help key tester",
                       u"Key Tester: key tester",
                       u"help:",
                   }));
}

TEST_F(EndOrder, TheTicksOfTheMenusAreKeptAndShown) {
  profiles.SetText(kOwnIni,
                   u"[Miscellaneous]\r\nEnableJoystick=1\r\nRunAppsWithDownload=0\r\n"
                   u"[Unsupported]\r\nIndentAsWell=0\r\n");
  Start();
  const auto ticked = [this](CommandId command) { return view.commands[command].checked; };
  EXPECT_TRUE(ticked(CommandId::kEnableAfterDownload));
  EXPECT_FALSE(ticked(CommandId::kIgnoreRunApp));
  EXPECT_FALSE(ticked(CommandId::kIndentWhenAligning));
  for (const CommandId command : {CommandId::kEnableAfterDownload, CommandId::kIgnoreRunApp,
                                  CommandId::kIndentWhenAligning}) {
    const bool before = ticked(command);
    editor.Execute(command);
    EXPECT_EQ(ticked(command), !before);
  }
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_EQ(Own(u"Miscellaneous", u"EnableJoystick"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"RunAppsWithDownload"), u"1");
  EXPECT_EQ(Own(u"Miscellaneous", u"IndentAsWell"), u"1");
}

TEST_F(EndOrder, TheRecentFilesAreWrittenAlsoWhenNobodyWasAsked) {
  files.AddFile(u"C:\\a.tmj", "x");
  Start();
  background.held = true;
  Open(u"C:\\a.tmj");
  EXPECT_EQ(Own(u"Previous Files", u"PreviousFilePath1"), u"") << "on its way";
  editor.Unload();
  EXPECT_EQ(Own(u"Previous Files", u"PreviousFilePath1"), u"C:\\a.tmj");
}

TEST_F(EndOrder, SettingsThatCannotBeWrittenEndTheSessionAllTheSame) {
  system.version = SystemVersion{2, 6, 2};
  files.AddFile(u"C:\\Host\\Info\\Syntax.rtf", "{\\rtf1 a}");
  Start();
  editor.Execute(CommandId::kFind);
  editor.Execute(CommandId::kHelpSyntax);
  profiles.writable = false;
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_FALSE(findDialog.IsOpen());
  EXPECT_FALSE(infoWindow.loaded);
  EXPECT_EQ(help.closed, 1);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(EndOrder, OfTheHostsPreferencesOnlyThoseOfTheKeyTesterAreWritten) {
  files.AddFile(u"C:\\Host\\KeyCodes.txt", "65,key A\r\n");
  files.AddFile(u"C:\\Host\\HOTASConfig.exe", "");
  files.AddFile(u"C:\\a.tmj", "USE MDEF a\r\nBTN S1 X\r\n");
  files.AddFile(u"C:\\a.tmm", "A = b\r\n");
  Start();
  Open(u"C:\\a.tmj");
  editor.Execute(CommandId::kFileSaveAll);
  editor.Macros().OnSplitterDragged(250);
  for (const CommandId command :
       {CommandId::kIndentWhenAligning, CommandId::kEnableAfterDownload, CommandId::kIgnoreRunApp,
        CommandId::kHelpSyntax, CommandId::kFind, CommandId::kClearRecentFiles}) {
    editor.Execute(command);
  }
  for (const CommandId command : {CommandId::kCompile, CommandId::kDownload, CommandId::kKeyTest}) {
    CompilerReports(u"OK", 0, 3, u"");
    editor.Execute(command);
  }
  ASSERT_TRUE(keyTest.open);
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  int written = 0;
  for (const FakeProfileFiles::Write& write : profiles.writes) {
    if (write.file != kHostIni) continue;
    ++written;
    EXPECT_EQ(write.section, u"Key Tester");
  }
  EXPECT_EQ(written, 7);
}

TEST_F(EndOrder, AMinimisedWindowKeepsThePlaceOfTheLastEnd) {
  profiles.SetText(kOwnIni, u"[Miscellaneous]\r\nEditorTopAtStartup=30\r\nEditorWindowstate=0\r\n");
  Start();
  view.placement.state = WindowState::kMinimised;
  ASSERT_TRUE(editor.QueryUnload());
  editor.Unload();
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorTopAtStartup"), u"30");
  EXPECT_EQ(Own(u"Miscellaneous", u"EditorWindowstate"), u"0");
  EXPECT_EQ(Own(u"Miscellaneous", u"IndentSpaces"), u"5");
  EXPECT_EQ(Own(u"Miscellaneous", u"EnableJoystick"), u"1");
}

}  // namespace
}  // namespace deck
