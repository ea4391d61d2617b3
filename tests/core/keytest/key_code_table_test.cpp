#include "keytest/key_code_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/strings.h"

namespace deck {
namespace {

struct LineCase {
  const char16_t* text;
  std::int16_t code;
  const char16_t* name;  // null: no entry with this code
};

class KeyCodeLines : public testing::TestWithParam<LineCase> {};

TEST_P(KeyCodeLines, GiveTheNameOfACode) {
  const KeyCodeTable table = ParseKeyCodes(GetParam().text);
  const std::u16string* name = table.NameOf(GetParam().code);
  if (GetParam().name == nullptr) {
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(table.Count(), 0);
  } else {
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(*name, GetParam().name);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Entries, KeyCodeLines,
    testing::Values(LineCase{u"65,A", 65, u"A"},              //
                    LineCase{u"188,,comma", 188, u",comma"},  // the first comma splits
                    LineCase{u"32, the long one ", 32, u" the long one "},  // blanks stay
                    LineCase{u"65,A\r\n", 65, u"A"},                        //
                    LineCase{u"65,A\n66,B", 65, u"A"},                      //
                    LineCase{u"65,A\r66,B", 66, u"B"},                      //
                    LineCase{u" 65 ,A", 65, u"A"},                          //
                    LineCase{u"+65,A", 65, u"A"},                           //
                    LineCase{u"065,A", 65, u"A"},                           //
                    LineCase{u"32767,top", 32767, u"top"},                  //
                    LineCase{u"-32768,low", -32768, u"low"},                //
                    LineCase{u"8,\tBSP", 8, u"\tBSP"},                      //
                    LineCase{u"65,\u00E9\u20AC", 65, u"\u00E9\u20AC"}));

INSTANTIATE_TEST_SUITE_P(LinesThatAreNoEntries, KeyCodeLines,
                         testing::Values(LineCase{u"", 65, nullptr},             //
                                         LineCase{u"Letters", 65, nullptr},      //
                                         LineCase{u"65 A", 65, nullptr},         //
                                         LineCase{u",A", 0, nullptr},            //
                                         LineCase{u"key,A", 0, nullptr},         //
                                         LineCase{u"65x,A", 65, nullptr},        //
                                         LineCase{u"6 5,A", 65, nullptr},        //
                                         LineCase{u"0x41,A", 65, nullptr},       //
                                         LineCase{u"65.0,A", 65, nullptr},       //
                                         LineCase{u"-,A", 0, nullptr},           //
                                         LineCase{u"+-65,A", 65, nullptr},       //
                                         LineCase{u"32768,A", -32768, nullptr},  //
                                         LineCase{u"-32769,A", 32767, nullptr},  //
                                         LineCase{u"65601,A", 65, nullptr},      // 65 in 16 bits
                                         LineCase{u"99999999999999999999,A", -1, nullptr}));

TEST(KeyCodeTable, TheLastOfEqualCodesCounts) {
  const KeyCodeTable table = ParseKeyCodes(u"65,first\r\n66,other\r\n65,second\r\n");
  EXPECT_EQ(*table.NameOf(65), u"second");
  EXPECT_EQ(table.Count(), 3);
}

TEST(KeyCodeTable, WhatStandsBeforeTheFirstEntryIsNeverFound) {
  EXPECT_EQ(KeyCodeTable().NameOf(-1), nullptr);
  EXPECT_EQ(ParseKeyCodes(u"65,A").NameOf(-1), nullptr);
  EXPECT_EQ(WhichKey(KeyCodeTable(), -1, 0), (KeyName{u"", false}));
  // A line may still give that code a name.
  EXPECT_EQ(*ParseKeyCodes(u"-1,minus").NameOf(-1), u"minus");
}

TEST(KeyCodeTable, HeadingsAndBlankLinesMayStandAnywhere) {
  const KeyCodeTable table = ParseKeyCodes(u"Names\r\n\r\n65,A\r\n\r\nmore\r\n66,B");
  EXPECT_EQ(table.Count(), 2);
  EXPECT_EQ(*table.NameOf(66), u"B");
}

TEST(KeyCodeTable, HoldsNoMoreEntriesThanANumberOf16BitsCounts) {
  std::u16string text;
  for (int entry = 0; entry < 32767; ++entry) text += u"65,A" + Decimal(entry) + u"\n";
  KeyCodeTable table = ParseKeyCodes(text + u"65,one too many\n66,B\n");
  EXPECT_EQ(table.Count(), 32767);
  EXPECT_EQ(*table.NameOf(65), u"A32766");
  EXPECT_EQ(table.NameOf(66), nullptr);
  EXPECT_FALSE(table.Add(66, u"B"));
}

struct NameCase {
  std::int16_t code;
  std::int16_t modifiers;
  const char16_t* name;
  bool modifierOnly;
};

class KeyNames : public testing::TestWithParam<NameCase> {};

// Mapped: 16, 17, 18, 65 and 112; 67 has an entry without a name.
TEST_P(KeyNames, ComeFromTheTableAndTheModifiers) {
  const KeyCodeTable table =
      ParseKeyCodes(u"16,SHF\n17,CTL\n18,ALT\n65,key A\n112,F1\n67,see\n67,\n");
  const KeyName expected{GetParam().name, GetParam().modifierOnly};
  EXPECT_EQ(WhichKey(table, GetParam().code, GetParam().modifiers), expected);
}

INSTANTIATE_TEST_SUITE_P(MappedKeys, KeyNames,
                         testing::Values(NameCase{65, 0, u"key A", false},                 //
                                         NameCase{65, 1, u"Shift key A", false},           //
                                         NameCase{65, 2, u"Ctrl key A", false},            //
                                         NameCase{65, 3, u"Shift Ctrl key A", false},      //
                                         NameCase{65, 4, u"Alt key A", false},             //
                                         NameCase{65, 5, u"Shift Alt key A", false},       //
                                         NameCase{65, 6, u"Ctrl Alt key A", false},        //
                                         NameCase{65, 7, u"Shift Ctrl Alt key A", false},  //
                                         NameCase{65, 8, u"key A", false},                 //
                                         NameCase{65, -1, u"key A", false}));

INSTANTIATE_TEST_SUITE_P(UnmappedKeys, KeyNames,
                         testing::Values(NameCase{66, 0, u"", false},                  //
                                         NameCase{66, 1, u"", true},                   //
                                         NameCase{66, 2, u"Ctrl b", false},            //
                                         NameCase{66, 3, u"Shift Ctrl b", false},      //
                                         NameCase{66, 4, u"Alt b", false},             //
                                         NameCase{66, 5, u"Shift Alt b", false},       //
                                         NameCase{66, 6, u"Ctrl Alt b", false},        //
                                         NameCase{66, 7, u"Shift Ctrl Alt b", false},  //
                                         NameCase{66, 8, u"b", false},                 //
                                         NameCase{66, -1, u"", true},                  //
                                         NameCase{222, 2, u"Ctrl \u00FE", false},      //
                                         NameCase{0, 2, u"Ctrl ", false},              //
                                         NameCase{67, 0, u"", false},  // the last name is none
                                         NameCase{67, 2, u"Ctrl c", false}));

INSTANTIATE_TEST_SUITE_P(Modifiers, KeyNames,
                         testing::Values(NameCase{17, 0, u"", true},            // never looked up
                                         NameCase{17, 2, u"", true},            //
                                         NameCase{18, 4, u"", true},            //
                                         NameCase{18, 7, u"", true},            //
                                         NameCase{16, 0, u"SHF", false},        // looked up
                                         NameCase{16, 1, u"Shift SHF", false},  //
                                         NameCase{16, 3, u"Shift Ctrl SHF", false}));

TEST(KeyNames, AnUnmappedShiftIsAModifierByItself) {
  EXPECT_EQ(WhichKey(KeyCodeTable(), kShiftKey, 1), (KeyName{u"", true}));
  EXPECT_EQ(WhichKey(KeyCodeTable(), kShiftKey, 3), (KeyName{u"", true}));
  EXPECT_EQ(WhichKey(KeyCodeTable(), kShiftKey, 0), (KeyName{u"", false}));
}

}  // namespace
}  // namespace deck
