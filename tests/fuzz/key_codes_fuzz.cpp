// Any bytes as KeyCodes.txt, and any sequence of events with the names from it.
#include <cstdint>
#include <string>

#include "tests/core/keytest/key_test_rules.h"
#include "tests/fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto require = [](bool holds, const char*) { deck::Require(holds); };
  deck::FuzzInput input(bytes, size);
  std::u16string text;
  for (int length = input.Number() % 512; length > 0; --length) {
    text += static_cast<char16_t>(input.Byte());
  }
  deck::RequireTableRules(text, require);
  const deck::KeyCodeTable table = deck::ParseKeyCodes(text);
  deck::RuledKeyTester tester(table, require);
  for (std::size_t event = 0; event < size; ++event) {
    const int kind = input.Byte();
    const auto number = static_cast<std::int16_t>(input.Number());
    tester.Do(kind, number, static_cast<std::int16_t>(input.Byte() % 16));
  }
  return 0;
}
