#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/strings.h"
#include "tests/contract/key_test_view/key_test_view_world.h"

namespace deck {
namespace {

class KeyTestViewContract : public testing::Test {
 protected:
  KeyTestViewContract() {
    KeyTestView::Events& e = view.events;
    e.keyDown = [this](std::int16_t code, std::int16_t modifiers) {
      return Note(u"down " + Decimal(code) + u" " + Decimal(modifiers));
    };
    e.keyUp = [this](std::int16_t code, std::int16_t modifiers) {
      return Note(u"up " + Decimal(code) + u" " + Decimal(modifiers));
    };
    e.keyPress = [this](char16_t character) { return Note(u"character " + Decimal(character)); };
    e.keysUnseen = [this](std::int16_t modifiers) { Note(u"unseen " + Decimal(modifiers)); };
    e.timer1 = [this] { Note(u"tick"); };
    e.command = [this](KeyTestCommand command, KeyBox) {
      Note(u"command " + Decimal(static_cast<int>(command)));
      if (onCommand) onCommand();
    };
    e.menusLabelClicked = [this] { Note(u"menus label"); };
    e.modeWarningClicked = [this] { Note(u"mode warning"); };
    e.boxEntered = [this] { Note(u"box entered"); };
    e.closing = [this] { Note(u"closing"); };
  }
  ~KeyTestViewContract() override {
    view.Close();
    view.events = {};
  }

  // With everything that opening brings behind it.
  void OpenAndShow() {
    view.Open();
    view.SetLook({.modeWarning = true});
    view.Show();
    world->Wait(50);
    log.clear();
  }

  bool Note(std::u16string text) {
    log.push_back(std::move(text));
    return true;
  }
  int Count(std::u16string_view text) const {
    int count = 0;
    for (const std::u16string& line : log) count += line == text ? 1 : 0;
    return count;
  }

  std::unique_ptr<KeyTestViewWorld> world = MakeKeyTestViewWorld();
  KeyTestView& view = world->View();
  std::vector<std::u16string> log;
  std::function<void()> onCommand;
};

using Log = std::vector<std::u16string>;

TEST_F(KeyTestViewContract, OpensHiddenAndEmpty) {
  EXPECT_FALSE(world->IsOpen());
  view.Open();
  EXPECT_TRUE(world->IsOpen());
  EXPECT_FALSE(world->IsVisible());
  EXPECT_EQ(view.Text(KeyBox::kEvents), u"");
  EXPECT_EQ(view.Text(KeyBox::kNames), u"");
  EXPECT_EQ(world->SeenLamps(), KeyLamps{});
  view.Show();
  EXPECT_TRUE(world->IsVisible());
}

TEST_F(KeyTestViewContract, LinesFollowEachOtherInTheirBox) {
  OpenAndShow();
  view.Append(KeyBox::kEvents, u"Down: a");
  view.Append(KeyBox::kNames, u" \u00E9\u4E2D");
  view.Append(KeyBox::kEvents, u"");
  view.Append(KeyBox::kEvents, u"Up: a");
  EXPECT_EQ(view.Text(KeyBox::kEvents), u"Down: a\r\n\r\nUp: a\r\n");
  EXPECT_EQ(view.Text(KeyBox::kNames), u" \u00E9\u4E2D\r\n");
}

TEST_F(KeyTestViewContract, ABoxIsClearedByItself) {
  OpenAndShow();
  view.Append(KeyBox::kEvents, u"Down: a");
  view.Append(KeyBox::kNames, u"a");
  world->SelectLines(KeyBox::kEvents, 0, 1);
  view.Clear(KeyBox::kEvents);
  EXPECT_EQ(view.Text(KeyBox::kEvents), u"");
  EXPECT_EQ(view.SelectedText(KeyBox::kEvents), u"");
  EXPECT_EQ(view.Text(KeyBox::kNames), u"a\r\n");
}

TEST_F(KeyTestViewContract, SelectedLinesAreWholeLines) {
  OpenAndShow();
  for (const char16_t* line : {u"one", u"two", u"three"}) view.Append(KeyBox::kNames, line);
  EXPECT_EQ(view.SelectedText(KeyBox::kNames), u"");
  world->SelectLines(KeyBox::kNames, 1, 3);
  EXPECT_EQ(view.SelectedText(KeyBox::kNames), u"two\r\nthree\r\n");
  EXPECT_EQ(view.SelectedText(KeyBox::kEvents), u"");
  view.Append(KeyBox::kNames, u"four");
  EXPECT_EQ(view.SelectedText(KeyBox::kNames), u"two\r\nthree\r\n");
}

TEST_F(KeyTestViewContract, KeysAreReportedInTheirOrder) {
  OpenAndShow();
  world->PressKey(65);
  world->Type(u'a');
  world->ReleaseKey(65);
  world->PressKey(18);
  world->ReleaseKey(18);
  EXPECT_EQ(log, (Log{u"down 65 0", u"character 97", u"up 65 0", u"down 18 0", u"up 18 0"}));
}

TEST_F(KeyTestViewContract, ALostKeyboardIsReported) {
  OpenAndShow();
  world->LoseKeyboard();
  EXPECT_EQ(Count(u"unseen 0"), 1);
}

TEST_F(KeyTestViewContract, MenusAndLabelsReportTheirClicks) {
  OpenAndShow();
  world->Choose(KeyTestCommand::kStickOff);
  world->Choose(KeyTestCommand::kClearDelay4);
  world->ClickMenusLabel();
  world->ClickMenusLabel();
  world->ClickModeWarning();
  world->CloseWindow();
  EXPECT_EQ(log, (Log{u"command 1403", u"command 1415", u"menus label", u"menus label",
                      u"mode warning", u"closing"}));
  EXPECT_TRUE(world->IsOpen()) << "to close it is not the window's own decision";
}

TEST_F(KeyTestViewContract, KeysArriveWhereverTheUserClicked) {
  OpenAndShow();
  view.Append(KeyBox::kEvents, u"Down: a");
  for (const KeyBox box : {KeyBox::kEvents, KeyBox::kNames}) {
    world->ClickBox(box);
    world->PressKey(13);
    world->PressKey(8);
  }
  EXPECT_EQ(Count(u"down 13 0"), 2);
  EXPECT_EQ(Count(u"down 8 0"), 2);
  EXPECT_EQ(view.Text(KeyBox::kEvents), u"Down: a\r\n") << "no key edits the log";
}

TEST_F(KeyTestViewContract, TheTimerTicksUntilItIsStopped) {
  OpenAndShow();
  world->Wait(100);
  EXPECT_EQ(Count(u"tick"), 0);
  view.SetTimer1(50);
  world->Wait(300);
  EXPECT_GE(Count(u"tick"), 2);
  view.SetTimer1(0);
  log.clear();
  world->Wait(150);
  EXPECT_EQ(Count(u"tick"), 0);
}

TEST_F(KeyTestViewContract, TheTimerStartsAnewEachTime) {
  OpenAndShow();
  view.SetTimer1(100);
  view.SetTimer1(60'000);
  world->Wait(300);
  EXPECT_EQ(Count(u"tick"), 0);
}

TEST_F(KeyTestViewContract, LampsAreLitAndUnlit) {
  OpenAndShow();
  for (const KeyLamps& lamps :
       {KeyLamps{.shift = true}, KeyLamps{.control = true, .numLock = true}, KeyLamps{.alt = true},
        KeyLamps{true, true, true, true}, KeyLamps{}}) {
    view.SetLamps(lamps);
    EXPECT_EQ(world->SeenLamps(), lamps);
  }
}

TEST_F(KeyTestViewContract, TheLookIsSeenAsItWasSet) {
  OpenAndShow();
  const KeyTestLook looks[] = {
      {.viewAll = true, .heading = u"Both", .menusShown = true, .clearDelay = 0},
      {.viewAll = false, .heading = u"One", .menusShown = true, .clearDelay = 4},
      {.viewAll = true, .heading = u"", .menusShown = false, .modeWarning = true},
      {.viewAll = false, .heading = u"Events & more", .menusShown = true, .modeWarning = true},
  };
  for (const KeyTestLook& look : looks) {
    view.SetLook(look);
    EXPECT_EQ(world->SeenLook(), look);
  }
}

TEST_F(KeyTestViewContract, APlaceIsKept) {
  view.Open();
  view.SetLook({});
  const WindowPlacement place{1500, 750, 9000, 6000};
  view.Place(place);
  EXPECT_EQ(view.Placement(), place);
  view.Show();
  world->Wait(50);
  EXPECT_EQ(view.Placement(), place);
}

TEST_F(KeyTestViewContract, AClosedWindowReportsNothing) {
  OpenAndShow();
  view.SetTimer1(20);
  view.Close();
  log.clear();
  EXPECT_FALSE(world->IsOpen());
  world->Wait(100);
  EXPECT_EQ(log, Log{});
}

TEST_F(KeyTestViewContract, ClosingWhatIsClosedDoesNothing) {
  view.Close();
  OpenAndShow();
  view.Close();
  view.Close();
  EXPECT_FALSE(world->IsOpen());
}

TEST_F(KeyTestViewContract, ACommandMayCloseTheWindow) {
  OpenAndShow();
  onCommand = [this] { view.Close(); };
  world->Choose(KeyTestCommand::kClose);
  EXPECT_FALSE(world->IsOpen());
}

TEST_F(KeyTestViewContract, ACommandMayCloseTheWindowAndOpenTheNext) {
  OpenAndShow();
  view.Append(KeyBox::kNames, u"old");
  onCommand = [this] {
    view.Close();
    view.Open();
    view.Append(KeyBox::kNames, u"new");
  };
  world->Choose(KeyTestCommand::kClose);
  EXPECT_TRUE(world->IsOpen());
  EXPECT_EQ(view.Text(KeyBox::kNames), u"new\r\n");
}

TEST_F(KeyTestViewContract, EachOpeningBeginsAnew) {
  OpenAndShow();
  view.Append(KeyBox::kEvents, u"Down: a");
  view.SetLamps({true, true, true, true});
  view.SetTimer1(20);
  view.Close();
  view.Open();
  log.clear();
  EXPECT_EQ(view.Text(KeyBox::kEvents), u"");
  EXPECT_EQ(world->SeenLamps(), KeyLamps{});
  world->Wait(100);
  EXPECT_EQ(Count(u"tick"), 0);
}

}  // namespace
}  // namespace deck
