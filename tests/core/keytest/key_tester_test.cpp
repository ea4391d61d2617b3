#include "keytest/key_tester.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace deck {
namespace {

using Lines = std::vector<std::u16string>;

// Both boxes as the machine's reactions fill them.
class KeyTesterTest : public testing::Test {
 protected:
  KeyReaction Down(int code, int modifiers = 0) {
    return CarryOut(OnKeyDown(state, table, Stroke(code, modifiers)));
  }
  KeyReaction Up(int code, int modifiers = 0) {
    return CarryOut(OnKeyUp(state, table, Stroke(code, modifiers)));
  }
  KeyReaction Character(char16_t character) { return CarryOut(OnKeyPress(state, character)); }
  KeyReaction Tick() { return CarryOut(OnTimer1(state)); }

  KeyStroke Stroke(int code, int modifiers) const {
    return {static_cast<std::int16_t>(code), static_cast<std::int16_t>(modifiers), numLockOn};
  }
  KeyReaction CarryOut(const KeyReaction& reaction) {
    if (reaction.clearBoxes) {
      events.clear();
      names.clear();
    }
    if (reaction.event) events.push_back(*reaction.event);
    if (reaction.name) names.push_back(*reaction.name);
    return reaction;
  }

  KeyTesterState state;
  KeyCodeTable table;
  bool numLockOn = false;
  Lines events;
  Lines names;
};

// ---- The texts of events.

struct EventCase {
  int code;
  const char16_t* text;
};

class EventTexts : public KeyTesterTest, public testing::WithParamInterface<EventCase> {
 protected:
  // Names that are wrong on purpose for keys that the log of events never looks up.
  EventTexts() {
    table = ParseKeyCodes(
        u"16,x\n17,x\n18,x\n48,x\n57,x\n65,x\n90,x\n"
        u"13,ENT\n112,F1\n20,CAPS\n44,PRTSC\n188,,\n");
  }
};

TEST_P(EventTexts, NameTheKeyWithoutItsModifiers) {
  const std::u16string text = GetParam().text;
  Down(GetParam().code, 0);
  Down(GetParam().code, 7);
  Up(GetParam().code, 0);
  Up(GetParam().code, 7);
  EXPECT_EQ(events, (Lines{u"Down: " + text, u"Down: " + text, u"Up: " + text, u"Up: " + text}));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, EventTexts,
    testing::Values(EventCase{16, u"SHF"}, EventCase{17, u"CTL"}, EventCase{18, u"ALT"},
                    EventCase{48, u"0"}, EventCase{49, u"1"}, EventCase{57, u"9"},
                    EventCase{65, u"a"}, EventCase{90, u"z"},
                    // Beside the digits and letters.
                    EventCase{47, u"47"}, EventCase{58, u"58"}, EventCase{64, u"64"},
                    EventCase{91, u"91"},
                    // From the table, or the bare number.
                    EventCase{13, u"ENT"}, EventCase{112, u"F1"}, EventCase{20, u"CAPS"},
                    EventCase{44, u"PRTSC"}, EventCase{188, u","}, EventCase{255, u"255"},
                    EventCase{0, u"0"}, EventCase{-1, u"-1"},
                    // The two keys of one modifier, when they come with codes of their own.
                    EventCase{160, u"160"}, EventCase{163, u"163"}));

// ---- Sequences as the system sends them.

TEST_F(KeyTesterTest, ControlAndALetter) {
  Down(17, 2);
  Down(65, 2);
  Character(1);  // Ctrl+A
  Up(65, 2);
  Up(17, 0);
  EXPECT_EQ(events, (Lines{u"Down: CTL", u"Down: a", u"Up: a", u"Up: CTL"}));
  EXPECT_EQ(names, Lines{u"Ctrl a"});
}

TEST_F(KeyTesterTest, ControlAndALetterThatTheTableNames) {
  table = ParseKeyCodes(u"65,key A");
  Down(17, 2);
  Down(65, 2);
  Character(1);
  Up(65, 2);
  Up(17, 0);
  EXPECT_EQ(events, (Lines{u"Down: CTL", u"Down: a", u"Up: a", u"Up: CTL"}));
  EXPECT_EQ(names, Lines{u"Ctrl key A"});
}

TEST_F(KeyTesterTest, AnUnmappedLetterIsNamedByItsCharacter) {
  Down(65);
  EXPECT_TRUE(Character(u'a').swallow);
  Up(65);
  EXPECT_EQ(names, Lines{u" a"});
}

TEST_F(KeyTesterTest, AMappedLetterIsNamedOnce) {
  table = ParseKeyCodes(u"65,key A");
  Down(65);
  EXPECT_EQ(Character(u'a'), KeyReaction{});
  Up(65);
  EXPECT_EQ(names, Lines{u"key A"});
}

TEST_F(KeyTesterTest, AnUnmappedLetterWithShiftHasNoName) {
  Down(16, 1);
  Down(65, 1);
  Character(u'A');
  Up(65, 1);
  Up(16, 0);
  EXPECT_EQ(events, (Lines{u"Down: SHF", u"Down: a", u"Up: a", u"Up: SHF"}));
  EXPECT_EQ(names, Lines{});
}

TEST_F(KeyTesterTest, AMappedShiftHasItsOwnLine) {
  table = ParseKeyCodes(u"16,SHF\n65,a");
  Down(16, 1);
  Down(65, 1);
  Character(u'A');
  EXPECT_EQ(names, (Lines{u"Shift SHF", u"Shift a"}));
}

TEST_F(KeyTesterTest, AutoRepeatIsLoggedPressByPress) {
  for (int repeat = 0; repeat < 3; ++repeat) {
    Down(65);
    Character(u'a');
  }
  Up(65);
  EXPECT_EQ(events, (Lines{u"Down: a", u"Down: a", u"Down: a", u"Up: a"}));
  EXPECT_EQ(names, (Lines{u" a", u" a", u" a"}));
}

TEST_F(KeyTesterTest, AltAloneStaysWithTheTester) {
  const KeyReaction down = Down(18, 4);
  EXPECT_TRUE(down.swallow);
  EXPECT_TRUE(state.lamps.alt);
  EXPECT_TRUE(Up(18, 0).swallow);
  EXPECT_FALSE(state.lamps.alt);
  EXPECT_EQ(events, (Lines{u"Down: ALT", u"Up: ALT"}));
  EXPECT_EQ(names, Lines{});
}

TEST_F(KeyTesterTest, AltAndALetter) {
  Down(18, 4);
  EXPECT_FALSE(Down(70, 4).swallow);
  Up(70, 4);
  Up(18, 0);
  EXPECT_EQ(names, Lines{u"Alt f"});
}

TEST_F(KeyTesterTest, AltGrArrivesAsControlAndAlt) {
  Down(17, 2);
  Down(18, 6);
  Down(81, 6);
  Character(u'@');
  Up(81, 6);
  Up(17, 4);
  Up(18, 0);
  EXPECT_EQ(events,
            (Lines{u"Down: CTL", u"Down: ALT", u"Down: q", u"Up: q", u"Up: CTL", u"Up: ALT"}));
  EXPECT_EQ(names, Lines{u"Ctrl Alt q"});
  EXPECT_EQ(state.lamps, KeyLamps{});
}

TEST_F(KeyTesterTest, MappedF10AndF1OpenNeitherMenusNorHelp) {
  table = ParseKeyCodes(u"121,F10\n112,F1\n113,F2");
  EXPECT_TRUE(Down(121).swallow);
  EXPECT_TRUE(Up(121).swallow);
  EXPECT_TRUE(Down(112).swallow);
  EXPECT_TRUE(Up(112).swallow);
  EXPECT_FALSE(Down(113).swallow);
  EXPECT_EQ(names, (Lines{u"F10", u"F1", u"F2"}));
}

TEST_F(KeyTesterTest, MenusAndHelpStayClosedWhateverTheTableSays) {
  table = ParseKeyCodes(u"121,menu bar\n200,F10\n201,F1");
  EXPECT_TRUE(Down(121, 1).swallow) << "Shift+F10 opens the context menu";
  EXPECT_TRUE(Down(112).swallow);
  EXPECT_TRUE(Down(93).swallow) << "the menu key";
  EXPECT_TRUE(Up(93).swallow);
  EXPECT_TRUE(Down(200).swallow);
  EXPECT_TRUE(Down(201).swallow);
}

TEST_F(KeyTesterTest, AltAndF4IsLeftToTheSystem) {
  table = ParseKeyCodes(u"115,F4");
  Down(18, 4);
  EXPECT_FALSE(Down(115, 4).swallow);
  EXPECT_EQ(names, Lines{u"Alt F4"});
}

TEST_F(KeyTesterTest, AKeyThatOnlyComesUpIsLoggedAsSuch) {
  table = ParseKeyCodes(u"44,PRTSC");
  Up(44);
  EXPECT_EQ(events, Lines{u"Up: PRTSC"});
  EXPECT_EQ(names, Lines{});
}

TEST_F(KeyTesterTest, ControlCharactersAreNeitherShownNorSwallowed) {
  for (const char16_t character : {u'\r', u'\b', u'\t', u'\x12'}) {
    Down(255);
    EXPECT_EQ(Character(character), KeyReaction{});
  }
  EXPECT_EQ(names, Lines{});
}

TEST_F(KeyTesterTest, TheFirstCharacterShownIsNumber19) {
  Down(255);
  EXPECT_TRUE(Character(u'\x13').swallow);
  EXPECT_EQ(names, Lines{u" \x13"});
}

TEST_F(KeyTesterTest, OnlyTheNextCharacterIsPassedOver) {
  table = ParseKeyCodes(u"65,key A");
  Down(65);
  Character(u'a');
  Character(u'b');
  EXPECT_EQ(names, (Lines{u"key A", u" b"}));
}

TEST_F(KeyTesterTest, AKeyUpLeavesTheCharacterToItsKeyDown) {
  table = ParseKeyCodes(u"65,key A");
  Down(65);
  Up(65);
  Character(u'a');
  EXPECT_EQ(names, Lines{u"key A"});
}

TEST_F(KeyTesterTest, ASkippedKeyDownDoesNothingOnce) {
  state.skipNextKeyDown = true;
  state.clearPending = true;
  state.handled = true;
  EXPECT_EQ(Down(65, 7), KeyReaction{});
  EXPECT_EQ(state.lamps, KeyLamps{});
  EXPECT_TRUE(state.clearPending);
  EXPECT_TRUE(state.handled);
  Down(65);
  EXPECT_EQ(events, Lines{u"Down: a"});
}

// ---- Lamps.

TEST_F(KeyTesterTest, LampsFollowTheModifiers) {
  Down(65, 1);
  EXPECT_EQ(state.lamps, (KeyLamps{.shift = true}));
  Down(65, 6);
  EXPECT_EQ(state.lamps, (KeyLamps{.shift = true, .control = true, .alt = true}))
      << "a key-down turns none off";
  Up(16, 6);
  EXPECT_EQ(state.lamps, (KeyLamps{.control = true, .alt = true}));
  Up(17, 4);
  EXPECT_EQ(state.lamps, (KeyLamps{.alt = true}));
  Up(18, 0);
  EXPECT_EQ(state.lamps, KeyLamps{});
}

TEST_F(KeyTesterTest, ALampStaysLitUntilBothKeysOfTheModifierAreUp) {
  Down(16, 1);
  Down(16, 1);
  Up(16, 1);
  EXPECT_TRUE(state.lamps.shift);
  Up(16, 0);
  EXPECT_FALSE(state.lamps.shift);
}

TEST_F(KeyTesterTest, TheKeyUpOfAnotherKeyLeavesTheLamps) {
  Down(16, 1);
  Up(65, 0);
  EXPECT_TRUE(state.lamps.shift);
}

TEST_F(KeyTesterTest, TheNumLockLampFollowsItsToggleAtEachKeyUp) {
  numLockOn = true;
  Down(144);
  EXPECT_FALSE(state.lamps.numLock);
  Up(144);
  EXPECT_TRUE(state.lamps.numLock);
  numLockOn = false;
  Up(65);
  EXPECT_FALSE(state.lamps.numLock);
}

TEST_F(KeyTesterTest, KeysReleasedUnseenLeaveNoLampLit) {
  Down(65, 7);
  OnKeysUnseen(state, kControlModifier, true);
  EXPECT_EQ(state.lamps, (KeyLamps{.control = true, .numLock = true}));
  OnKeysUnseen(state, 0, false);
  EXPECT_EQ(state.lamps, KeyLamps{});
  OnKeysUnseen(state, 7, false);
  EXPECT_EQ(state.lamps, KeyLamps{}) << "lamps are lit by key-downs only";
}

// ---- CAPS LOCK.

TEST_F(KeyTesterTest, CapsLockIsSwitchedOffAtItsDownAndItsUp) {
  EXPECT_TRUE(Down(20).turnOffCapsLock);
  EXPECT_TRUE(Up(20).turnOffCapsLock);
  EXPECT_FALSE(Down(65).turnOffCapsLock);
  EXPECT_FALSE(Up(65).turnOffCapsLock);
  EXPECT_FALSE(Down(144).turnOffCapsLock);
}

// ---- Clearing after a pause.

TEST_F(KeyTesterTest, TheBoxesAreClearedByTheFirstKeyDownBehindATick) {
  state.clearDelay = 2;
  Down(65);
  EXPECT_EQ(Up(65).timer, Timer1Action::kStart);
  EXPECT_EQ(Tick().timer, Timer1Action::kStop);
  EXPECT_EQ(events, (Lines{u"Down: a", u"Up: a"})) << "not by the tick itself";
  const KeyReaction next = Down(66);
  EXPECT_TRUE(next.clearBoxes);
  EXPECT_EQ(next.timer, Timer1Action::kStop);
  EXPECT_EQ(events, Lines{u"Down: b"});
  EXPECT_FALSE(Down(67).clearBoxes);
}

TEST_F(KeyTesterTest, AKeyUpBehindATickKeepsTheBoxes) {
  state.clearDelay = 0;
  Down(65);
  Tick();
  Up(65);
  EXPECT_FALSE(Down(66).clearBoxes);
}

TEST_F(KeyTesterTest, WithTheDelayOffNoKeyUpStartsTheTimer) {
  Down(65);
  EXPECT_EQ(Up(65).timer, Timer1Action::kStop);
  EXPECT_FALSE(Down(65).clearBoxes);
}

TEST_F(KeyTesterTest, ACharacterTouchesNeitherTimerNorBoxes) {
  state.clearPending = true;
  const KeyReaction reaction = Character(u'a');
  EXPECT_EQ(reaction.timer, Timer1Action::kLeave);
  EXPECT_FALSE(reaction.clearBoxes);
  EXPECT_TRUE(state.clearPending);
}

}  // namespace
}  // namespace deck
