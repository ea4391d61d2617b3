// Any keys with any table: what stands in the boxes, which lamps are lit and what the system sees
// are what the rules say, event by event.
#include <cstdint>
#include <iterator>
#include <string>

#include "tests/core/keytest/plain_key_tester.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

// Short, so that most of the bytes become events.
std::u16string TableOf(FuzzInput& input) {
  constexpr std::u16string_view kParts[] = {u",",   u"\r\n", u"\n",  u"\r", u"65", u"a",
                                            u"112", u"F1",   u"121", u"16", u"-1", u"32768",
                                            u" ",   u"F10",  u"93",  u"x,"};
  std::u16string text;
  for (int parts = input.Byte() % 64; parts > 0; --parts) {
    const int number = input.Byte();
    text += number < 0x80
                ? std::u16string(1, static_cast<char16_t>(number))
                : std::u16string(kParts[static_cast<std::size_t>(number) % std::size(kParts)]);
  }
  return text;
}

// Mostly what keyboards send, and now and then any number.
std::int16_t CodeOf(FuzzInput& input) {
  const int number = input.Byte();
  return static_cast<std::int16_t>(number == 255 ? input.Number() : number);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  deck::ComparedKeyTester tester(deck::TableOf(input));
  for (std::size_t event = 0; event < size / 3; ++event) {
    const int kind = input.Byte();
    const std::int16_t code = deck::CodeOf(input);
    deck::Require(tester.Do(kind, code, deck::CodeOf(input)));
  }
  return 0;
}
