#include "tests/core/keytest/key_test_rules.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/core/keytest/plain_key_tester.h"

namespace deck {
namespace {

void Expect(bool holds, const char* rule) {
  EXPECT_TRUE(holds) << rule;
}

// The same every time.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }

 private:
  std::mt19937 engine_;
};

std::u16string RandomTable(Dice& dice) {
  constexpr std::u16string_view kParts[] = {
      u"65", u",",      u"\r\n", u"\n", u"-1", u"name", u"32768",  u" ",          u"112",
      u"\r", u"\u00E9", u",,",   u"+7", u"-0", u"#",    u"\xD800", u"99999999999"};
  std::u16string text;
  for (int part = dice.Below(60); part > 0; --part) {
    text += kParts[dice.Below(static_cast<int>(std::size(kParts)))];
  }
  return text;
}

TEST(KeyTestRules, HoldForAnyTable) {
  Dice dice(1);
  for (int round = 0; round < 2000; ++round) RequireTableRules(RandomTable(dice), Expect);
}

TEST(KeyTestRules, HoldForAnySequenceOfEvents) {
  Dice dice(2);
  for (int round = 0; round < 200; ++round) {
    const KeyCodeTable table = ParseKeyCodes(RandomTable(dice));
    RuledKeyTester tester(table, Expect);
    for (int event = 0; event < 500; ++event) {
      const int code = dice.Below(4) == 0 ? dice.Below(65536) - 32768 : dice.Below(256);
      const int modifiers = dice.Below(8) == 0 ? dice.Below(65536) - 32768 : dice.Below(8);
      tester.Do(dice.Below(8), static_cast<std::int16_t>(code),
                static_cast<std::int16_t>(modifiers));
    }
  }
}

TEST(KeyTestRules, AgreeStepByStepWithTheMachineOnAnyKeys) {
  Dice dice(3);
  for (int round = 0; round < 200; ++round) {
    ComparedKeyTester tester(RandomTable(dice));
    for (int event = 0; event < 300; ++event) {
      const int code = dice.Below(8) == 0 ? dice.Below(65536) - 32768 : dice.Below(256);
      const int mask = dice.Below(8) == 0 ? dice.Below(65536) - 32768 : dice.Below(128);
      ASSERT_TRUE(tester.Do(dice.Below(8), static_cast<std::int16_t>(code),
                            static_cast<std::int16_t>(mask)))
          << "round " << round << ", event " << event;
    }
  }
}

}  // namespace
}  // namespace deck
