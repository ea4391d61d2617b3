#include "keytest/key_test_presenter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/strings.h"
#include "tests/fakes/fake_clipboard.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_key_test_view.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

const std::u16string kHostIni = u"C:\\Host\\Wren.ini";
const std::u16string kTable = u"C:\\Host\\KeyCodes.txt";

class KeyTestPresenterTest : public testing::Test {
 protected:
  KeyTestPresenterTest() {
    settings.applicationFolder = u"C:\\Host";
    settings.HostPath = kHostIni;
    settings.FilesFolder = u"C:\\Host\\Files\\";
    files.AddFolder(u"C:\\Host\\Files");
    files.AddFile(kTable, "112,F1\r\n121,F10\r\n");
    presenter.links.readControllerMode = [this] {
      log.push_back(u"read");
      return report;
    };
    presenter.links.switchButtonsMode = [this](bool programmed) {
      log.push_back(programmed ? u"programmed" : u"Windows");
      if (onSwitch) onSwitch();
    };
    prompts.onShow = [this](const Message& message) { log.push_back(message.title); };
  }
  ~KeyTestPresenterTest() override { EXPECT_TRUE(prompts.unexpected.empty()); }

  void Store(const std::u16string& lines) {
    profiles.SetText(kHostIni, u"[Key Tester]\r\n" + lines);
  }
  std::u16string Stored(std::u16string_view key) const {
    return profiles.Value(kHostIni, u"Key Tester", key);
  }
  std::u16string Events() const { return view.Text(KeyBox::kEvents); }
  std::u16string Names() const { return view.Text(KeyBox::kNames); }

  FakeKeyTestView view;
  FakeFiles files;
  FakeProfileFiles profiles;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakeEventLoop events;
  FakeKeyboard keyboard;
  FakeClipboard clipboard;
  FakeCodePage codePage;
  Settings settings;
  ControllerReport report{u"OK", 1};
  std::vector<std::u16string> log;
  std::function<void()> onSwitch;
  KeyTestPresenter presenter{
      view, settings, {files, profiles, dialogs, prompts, events, keyboard, clipboard, codePage}};
};

// ---- Opening.

TEST_F(KeyTestPresenterTest, OpensWithTheDefaultSettings) {
  presenter.Show();
  EXPECT_TRUE(presenter.IsOpen());
  EXPECT_TRUE(view.visible);
  EXPECT_EQ(view.placement, (WindowPlacement{100, 100, 13320, 8895, WindowState::kNormal}));
  EXPECT_EQ(view.look, (KeyTestLook{.viewAll = true,
                                    .heading = u"Up/Down/Keycode events",
                                    .menusShown = true,
                                    .clearDelay = 2,
                                    .modeWarning = false}));
  EXPECT_EQ(view.timer1, 600) << "as if the delay had been chosen now";
  EXPECT_EQ(Events(), u"");
  EXPECT_EQ(Names(), u"");
}

TEST_F(KeyTestPresenterTest, OpensWithTheStoredSettings) {
  Store(
      u"KeyTopAtStartup=300\r\nKeyLeftAtStartup=450\r\nKeyWidthAtStartup=9000\r\n"
      u"KeyHeightAtStartup=6000\r\nClearDelay=65535\r\nKeyViewAll=0\r\nMenuDisplay=0\r\n");
  presenter.Show();
  EXPECT_EQ(view.placement, (WindowPlacement{450, 300, 9000, 6000, WindowState::kNormal}));
  EXPECT_EQ(view.look, (KeyTestLook{.viewAll = false,
                                    .heading = u"Events",
                                    .menusShown = false,
                                    .clearDelay = kClearDelayOff,
                                    .modeWarning = false}));
  EXPECT_EQ(view.timer1, 0);
}

TEST_F(KeyTestPresenterTest, EveryNumberButZeroTicksViewAllAndShowsTheMenus) {
  for (const std::u16string number : {u"1", u"-1", u"2"}) {
    Store(u"KeyViewAll=" + number + u"\r\nMenuDisplay=" + number + u"\r\n");
    presenter.Show();
    EXPECT_TRUE(view.look.viewAll);
    EXPECT_TRUE(view.look.menusShown);
    presenter.Unload();
  }
}

TEST_F(KeyTestPresenterTest, ASecondCommandBringsTheWindowToTheFront) {
  presenter.Show();
  view.PressKey(65);
  presenter.Show();
  EXPECT_EQ(view.shows, 2);
  EXPECT_EQ(Events(), u"Down: a\r\n");
}

TEST_F(KeyTestPresenterTest, TheNumLockLampShowsTheToggleFromTheStart) {
  keyboard.on = {ToggleKey::kNumLock};
  presenter.Show();
  EXPECT_EQ(view.lamps, (KeyLamps{.numLock = true}));
  presenter.Unload();
  keyboard.on = {};
  presenter.Show();
  EXPECT_EQ(view.lamps, KeyLamps{});
}

TEST_F(KeyTestPresenterTest, CapsLockIsSwitchedOffAtTheStart) {
  keyboard.on = {ToggleKey::kCapsLock, ToggleKey::kNumLock};
  presenter.Show();
  EXPECT_EQ(keyboard.on, std::set{ToggleKey::kNumLock});
  EXPECT_EQ(events.pumps, 1);
}

TEST_F(KeyTestPresenterTest, NoEventsRunWhereNothingHasToBeSwitched) {
  presenter.Show();
  EXPECT_EQ(events.pumps, 0);
}

// ---- The controllers' mode.

TEST_F(KeyTestPresenterTest, ControllersInProgrammedModeAreLeftAlone) {
  presenter.Show();
  EXPECT_EQ(log, std::vector<std::u16string>{u"read"});
  EXPECT_FALSE(view.look.modeWarning);
}

TEST_F(KeyTestPresenterTest, ControllersInWindowsModeAreSwitchedAndReadAgain) {
  report.buttons = 0;
  onSwitch = [this] { report.buttons = 1; };
  presenter.Show();
  EXPECT_EQ(log, (std::vector<std::u16string>{u"read", u"programmed", u"read"}));
  EXPECT_EQ(events.pumps, 1);
  EXPECT_FALSE(view.look.modeWarning);
}

TEST_F(KeyTestPresenterTest, ASwitchThatShowsOnlyWithTheEventsCounts) {
  report.buttons = 0;
  events.actions.push_back([this] { report.buttons = 1; });
  presenter.Show();
  EXPECT_FALSE(view.look.modeWarning);
}

TEST_F(KeyTestPresenterTest, ASwitchThatIsNotReportedGivesTheWarning) {
  report.buttons = 0;
  presenter.Show();
  EXPECT_TRUE(view.look.modeWarning);
  EXPECT_TRUE(view.visible);
  view.ClickModeWarning();
  EXPECT_EQ(prompts.shown.back().title, u"Your Cougar needs a slap");
  EXPECT_NE(prompts.shown.back().text.find(u"they didn't generate an error"), std::u16string::npos);
}

TEST_F(KeyTestPresenterTest, AnErrorGivesTheWarningEvenInProgrammedMode) {
  report = {u"ERROR", 1};
  presenter.Show();
  EXPECT_EQ(log, std::vector<std::u16string>{u"read"});
  EXPECT_TRUE(view.look.modeWarning);
  view.ClickModeWarning();
  EXPECT_NE(prompts.shown.back().text.find(u"generated an error. "), std::u16string::npos);
}

TEST_F(KeyTestPresenterTest, TheKeyboardComesBackFromABoxToTheWindow) {
  report.buttons = 0;
  presenter.Show();
  view.ClickModeWarning();
  EXPECT_EQ(view.shows, 2);
  dialogs.saveResults = {std::nullopt};
  view.Choose(KeyTestCommand::kSaveAsText);
  EXPECT_EQ(view.shows, 3);
}

TEST_F(KeyTestPresenterTest, OnlyOneBoxIsOpenAtATime) {
  report.buttons = 0;
  presenter.Show();
  prompts.onShow = [this](const Message&) {
    view.ClickModeWarning();
    view.Choose(KeyTestCommand::kSaveAsText);
  };
  view.ClickModeWarning();
  EXPECT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(dialogs.saveRequests.empty());
}

TEST_F(KeyTestPresenterTest, AWindowThatWasClosedBehindItsBoxStaysClosed) {
  report.buttons = 0;
  presenter.Show();
  prompts.onShow = [this](const Message&) { presenter.Unload(); };
  view.ClickModeWarning();
  EXPECT_FALSE(view.open);
  EXPECT_EQ(view.shows, 1);
}

TEST_F(KeyTestPresenterTest, TheWarningIsGoneWhenTheNextOpeningSucceeds) {
  report.buttons = 0;
  presenter.Show();
  presenter.Unload();
  report.buttons = 1;
  presenter.Show();
  EXPECT_FALSE(view.look.modeWarning);
}

TEST_F(KeyTestPresenterTest, SwitchStickOffAsksForWindowsMode) {
  presenter.Show();
  log.clear();
  view.Choose(KeyTestCommand::kStickOff);
  EXPECT_EQ(log, std::vector<std::u16string>{u"Windows"});
}

// ---- The table.

TEST_F(KeyTestPresenterTest, KeysHaveTheNamesOfTheTable) {
  presenter.Show();
  view.PressKey(112);
  view.ReleaseKey(112);
  EXPECT_EQ(Events(), u"Down: F1\r\nUp: F1\r\n");
  EXPECT_EQ(Names(), u"F1\r\n");
}

TEST_F(KeyTestPresenterTest, AMissingTableIsRestoredBeforeTheModeIsAskedFor) {
  files.Delete(kTable);
  files.AddFile(u"C:\\Host\\Info\\KeyCodes.txt", "65,backup\r\n");
  presenter.Show();
  EXPECT_EQ(log, (std::vector<std::u16string>{u"KeyCodes.txt is missing !!!",
                                              u"Well I saved your butt!", u"read"}));
  view.PressKey(65);
  EXPECT_EQ(Names(), u"backup\r\n");
}

TEST_F(KeyTestPresenterTest, ATableThatCannotBeRestoredEndsTheLoad) {
  files.Delete(kTable);
  report.buttons = 0;
  presenter.Show();
  EXPECT_EQ(log,
            (std::vector<std::u16string>{u"KeyCodes.txt is missing !!!", u"It didn't work :("}))
      << "no mode is read or switched";
  EXPECT_FALSE(presenter.IsOpen());
  EXPECT_FALSE(view.open);
  EXPECT_EQ(view.shows, 0);
}

TEST_F(KeyTestPresenterTest, TheTableIsReadAnewAtEachOpening) {
  presenter.Show();
  presenter.Unload();
  files.AddFile(kTable, "65,new\r\n");
  presenter.Show();
  view.PressKey(65);
  EXPECT_EQ(Names(), u"new\r\n");
}

// ---- Keys.

TEST_F(KeyTestPresenterTest, BothBoxesTakeTheirLinesInOrder) {
  presenter.Show();
  view.PressKey(17, 2);
  view.PressKey(65, 2);
  view.Type(u'\x01');
  view.ReleaseKey(65, 2);
  view.ReleaseKey(17);
  EXPECT_EQ(Events(), u"Down: CTL\r\nDown: a\r\nUp: a\r\nUp: CTL\r\n");
  EXPECT_EQ(Names(), u"Ctrl a\r\n");
}

TEST_F(KeyTestPresenterTest, TheWindowIsToldWhatTheSystemMustNotSee) {
  presenter.Show();
  EXPECT_TRUE(view.PressKey(18, 4));
  EXPECT_TRUE(view.PressKey(112));
  EXPECT_FALSE(view.PressKey(115, 4));
  EXPECT_FALSE(view.PressKey(65));
  EXPECT_TRUE(view.Type(u'a'));
  EXPECT_FALSE(view.Type(u'\r'));
}

TEST_F(KeyTestPresenterTest, LampsAreShownAndGoOutWithTheKeyboard) {
  presenter.Show();
  view.PressKey(16, 1);
  EXPECT_EQ(view.lamps, (KeyLamps{.shift = true}));
  view.LoseKeyboard();
  EXPECT_EQ(view.lamps, KeyLamps{});
}

TEST_F(KeyTestPresenterTest, NumLockIsShownAtEachKeyUp) {
  presenter.Show();
  keyboard.on = {ToggleKey::kNumLock};
  view.PressKey(144);
  view.ReleaseKey(144);
  EXPECT_EQ(view.lamps, (KeyLamps{.numLock = true}));
}

TEST_F(KeyTestPresenterTest, TheBoxesAreClearedAfterThePauseByTheNextKey) {
  presenter.Show();
  view.PressKey(65);
  EXPECT_EQ(view.timer1, 0) << "a key-down stops the timer";
  view.ReleaseKey(65);
  EXPECT_EQ(view.timer1, 600);
  view.Wait(600);
  EXPECT_EQ(view.timer1, 0);
  EXPECT_EQ(Events(), u"Down: a\r\nUp: a\r\n");
  view.PressKey(112);
  EXPECT_EQ(Events(), u"Down: F1\r\n");
  EXPECT_EQ(Names(), u"F1\r\n");
}

TEST_F(KeyTestPresenterTest, WithTheDelayOffTheBoxesAreNeverCleared) {
  Store(u"ClearDelay=65535\r\n");
  presenter.Show();
  view.PressKey(65);
  view.ReleaseKey(65);
  EXPECT_EQ(view.timer1, 0);
  view.PressKey(66);
  EXPECT_EQ(Events(), u"Down: a\r\nUp: a\r\nDown: b\r\n");
}

TEST_F(KeyTestPresenterTest, CapsLockIsSwitchedOffWithItsKey) {
  presenter.Show();
  keyboard.on = {ToggleKey::kCapsLock};
  view.PressKey(20);
  EXPECT_TRUE(keyboard.on.empty());
  EXPECT_EQ(events.pumps, 1);
  keyboard.on = {ToggleKey::kCapsLock};
  view.ReleaseKey(20);
  EXPECT_TRUE(keyboard.on.empty());
  EXPECT_EQ(events.pumps, 2);
}

TEST_F(KeyTestPresenterTest, KeysThatComeWhileCapsLockIsSwitchedOffKeepTheirOrder) {
  presenter.Show();
  events.actions.push_back([this] {
    view.PressKey(20);  // runs no events of its own
    view.PressKey(65);
  });
  view.PressKey(20);
  view.ReleaseKey(20);
  EXPECT_EQ(Events(), u"Down: 20\r\nDown: 20\r\nDown: a\r\nUp: 20\r\n");
  EXPECT_EQ(events.pumps, 2);
}

// ---- Menus.

class ClearDelays : public KeyTestPresenterTest, public testing::WithParamInterface<int> {};

TEST_P(ClearDelays, AreTickedTimedAndKept) {
  const int index = GetParam();
  presenter.Show();
  view.PressKey(65);
  view.Choose(static_cast<KeyTestCommand>(static_cast<int>(KeyTestCommand::kClearDelay0) + index));
  EXPECT_EQ(view.look.clearDelay, index);
  EXPECT_EQ(view.timer1, 200 * (index + 1));
  view.PressKey(65);
  view.ReleaseKey(65);
  EXPECT_EQ(view.timer1, 200 * (index + 1));
  presenter.Unload();
  EXPECT_EQ(Stored(u"ClearDelay"), Decimal(index));
}

INSTANTIATE_TEST_SUITE_P(Items, ClearDelays, testing::Range(0, 5));

TEST_F(KeyTestPresenterTest, ViewAllToggles) {
  presenter.Show();
  view.Choose(KeyTestCommand::kViewAll);
  EXPECT_FALSE(view.look.viewAll);
  EXPECT_EQ(view.look.heading, u"Events");
  view.Choose(KeyTestCommand::kViewAll);
  EXPECT_TRUE(view.look.viewAll);
  EXPECT_EQ(view.look.heading, u"Up/Down/Keycode events");
}

TEST_F(KeyTestPresenterTest, TheMenusAreHiddenAndShownByTheirLabel) {
  presenter.Show();
  view.ClickMenusLabel();
  EXPECT_FALSE(view.look.menusShown);
  view.ClickMenusLabel();
  EXPECT_TRUE(view.look.menusShown);
}

TEST_F(KeyTestPresenterTest, ClearAllClearsBothBoxesAtOnce) {
  presenter.Show();
  view.PressKey(112);
  view.Choose(KeyTestCommand::kClearAll);
  EXPECT_EQ(Events() + Names(), u"");
}

TEST_F(KeyTestPresenterTest, CloseClosesTheWindow) {
  presenter.Show();
  view.Choose(KeyTestCommand::kClose);
  EXPECT_FALSE(view.open);
  EXPECT_FALSE(presenter.IsOpen());
}

TEST_F(KeyTestPresenterTest, EachBoxIsCopiedSavedAndClearedByItself) {
  presenter.Show();
  view.PressKey(112);
  view.ReleaseKey(112);
  view.SelectLines(KeyBox::kEvents, 1, 2);
  view.Choose(KeyTestCommand::kCopy, KeyBox::kEvents);
  EXPECT_EQ(clipboard.Text(), u"Up: F1\n");
  view.Choose(KeyTestCommand::kCopyAll, KeyBox::kEvents);
  EXPECT_EQ(clipboard.Text(), u"Down: F1\nUp: F1\n");
  view.Choose(KeyTestCommand::kCopyAll, KeyBox::kNames);
  EXPECT_EQ(clipboard.Text(), u"F1\n");

  dialogs.saveResults = {SaveChoice{u"C:\\Host\\Files\\keys.txt", 1}};
  view.Choose(KeyTestCommand::kSaveAsText, KeyBox::kEvents);
  EXPECT_EQ(files.Content(u"C:\\Host\\Files\\keys.txt"), "Down: F1\r\nUp: F1\r\n");

  view.Choose(KeyTestCommand::kClearBox, KeyBox::kEvents);
  EXPECT_EQ(Events(), u"");
  EXPECT_EQ(Names(), u"F1\r\n");
}

TEST_F(KeyTestPresenterTest, NothingSelectedLeavesTheClipboardAlone) {
  presenter.Show();
  view.PressKey(112);
  clipboard.PutByOthers(u"kept");
  view.Choose(KeyTestCommand::kCopy, KeyBox::kEvents);
  EXPECT_EQ(clipboard.Text(), u"kept");
}

// ---- The keyboard layout.

TEST_F(KeyTestPresenterTest, TheLayoutOfTheOpeningComesBackWhereTheFixIsOn) {
  settings.ForeignKeyboardFix = 1;
  keyboard.layoutName = u"00000407";
  presenter.Show();
  EXPECT_TRUE(keyboard.activated.empty());
  keyboard.layoutName = u"00000409";
  view.EnterBox();
  EXPECT_EQ(keyboard.layoutName, u"00000407");
  keyboard.layoutName = u"00000409";
  view.PressKey(65);
  EXPECT_EQ(keyboard.layoutName, u"00000407");
  keyboard.layoutName = u"00000409";
  view.Choose(KeyTestCommand::kClearAll);
  EXPECT_EQ(keyboard.layoutName, u"00000407");
  EXPECT_EQ(keyboard.activated.size(), 3U);
}

TEST_F(KeyTestPresenterTest, TheLayoutIsLeftAloneWhereTheFixIsOff) {
  presenter.Show();
  keyboard.layoutName = u"00000407";
  view.EnterBox();
  view.PressKey(65);
  EXPECT_TRUE(keyboard.activated.empty());
}

TEST_F(KeyTestPresenterTest, EachOpeningRemembersItsOwnLayout) {
  settings.ForeignKeyboardFix = -1;  // any number but 0
  presenter.Show();
  presenter.Unload();
  keyboard.layoutName = u"00000407";
  presenter.Show();
  view.EnterBox();
  EXPECT_EQ(keyboard.layoutName, u"00000407") << "not that of the opening before";
  keyboard.layoutName = u"0000040C";
  view.EnterBox();
  EXPECT_EQ(keyboard.layoutName, u"00000407");
}

// ---- Closing.

TEST_F(KeyTestPresenterTest, ClosingWritesAllSevenSettings) {
  Store(u"ClearDelay=65535\r\n");
  presenter.Show();
  view.placement = {-30, 45.4F, 9000.6F, 6000, WindowState::kMinimised};
  view.ClickMenusLabel();
  view.CloseWindow();
  EXPECT_EQ(Stored(u"KeyTopAtStartup"), u"45");
  EXPECT_EQ(Stored(u"KeyLeftAtStartup"), u"-30");
  EXPECT_EQ(Stored(u"KeyWidthAtStartup"), u"9001");
  EXPECT_EQ(Stored(u"KeyHeightAtStartup"), u"6000");
  EXPECT_EQ(Stored(u"ClearDelay"), u"65535");
  EXPECT_EQ(Stored(u"KeyViewAll"), u"-1");
  EXPECT_EQ(Stored(u"MenuDisplay"), u"0");
}

TEST_F(KeyTestPresenterTest, AViewOfTheNamesAloneIsKeptAsZero) {
  presenter.Show();
  view.Choose(KeyTestCommand::kViewAll);
  presenter.Unload();
  EXPECT_EQ(Stored(u"KeyViewAll"), u"0");
  EXPECT_EQ(Stored(u"MenuDisplay"), u"1");
}

TEST_F(KeyTestPresenterTest, WhatIsClosedCannotBeClosedAgain) {
  presenter.Unload();
  EXPECT_TRUE(profiles.writes.empty());
  presenter.Show();
  presenter.Unload();
  presenter.Unload();
  EXPECT_EQ(profiles.writes.size(), 7U);
}

TEST_F(KeyTestPresenterTest, ANewOpeningStartsWithEmptyBoxesAndDarkLamps) {
  presenter.Show();
  view.PressKey(112, 1);
  presenter.Unload();
  presenter.Show();
  EXPECT_EQ(Events() + Names(), u"");
  EXPECT_EQ(view.lamps, KeyLamps{});
}

// ---- Other events while it opens.

TEST_F(KeyTestPresenterTest, ACloseBeforeTheSettingsAreReadKeepsThem) {
  Store(u"ClearDelay=4\r\nMenuDisplay=0\r\n");
  keyboard.on = {ToggleKey::kCapsLock};
  events.actions.push_back([this] { presenter.Unload(); });
  presenter.Show();
  EXPECT_FALSE(presenter.IsOpen());
  EXPECT_FALSE(view.open);
  EXPECT_EQ(view.shows, 0);
  EXPECT_TRUE(profiles.writes.empty());
  EXPECT_EQ(log, std::vector<std::u16string>{}) << "the load ends there";
}

TEST_F(KeyTestPresenterTest, ACloseDuringTheModeSwitchEndsTheLoad) {
  report.buttons = 0;
  onSwitch = [this] { presenter.Unload(); };
  presenter.Show();
  EXPECT_FALSE(view.open);
  EXPECT_EQ(log, (std::vector<std::u16string>{u"read", u"programmed"}));

  log.clear();
  onSwitch = nullptr;
  events.actions.push_back([this] { presenter.Unload(); });
  presenter.Show();
  EXPECT_FALSE(view.open);
  EXPECT_EQ(log, (std::vector<std::u16string>{u"read", u"programmed"}));
}

TEST_F(KeyTestPresenterTest, ACloseDuringTheRestoreEndsTheLoad) {
  files.Delete(kTable);
  files.AddFile(u"C:\\Host\\Info\\KeyCodes.txt", "65,backup\r\n");
  events.actions.push_back([this] { presenter.Unload(); });
  presenter.Show();
  EXPECT_FALSE(view.open);
  EXPECT_EQ(log.back(), u"Well I saved your butt!");
}

TEST_F(KeyTestPresenterTest, ACommandDuringTheLoadOpensNothingTwice) {
  report.buttons = 0;
  events.actions.push_back([this] { presenter.Show(); });
  presenter.Show();
  EXPECT_EQ(log, (std::vector<std::u16string>{u"read", u"programmed", u"read"}));
  EXPECT_EQ(view.shows, 1);
}

TEST_F(KeyTestPresenterTest, AnOpeningWithinTheLoadOfAClosedOneIsTheOneThatCounts) {
  report.buttons = 0;
  events.actions.push_back([this] {
    presenter.Unload();
    report.buttons = 1;
    presenter.Show();
  });
  presenter.Show();
  EXPECT_TRUE(presenter.IsOpen());
  EXPECT_EQ(view.shows, 1);
  EXPECT_EQ(log, (std::vector<std::u16string>{u"read", u"programmed", u"read"}));
}

}  // namespace
}  // namespace deck
