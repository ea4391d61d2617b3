#include "tests/fakes/fake_code_page.h"

#include <algorithm>
#include <iterator>

namespace deck {
namespace {

// The characters of the bytes 80 to 9F; all others stand for the character of their number.
constexpr char16_t kFrom80To9F[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(std::size(kFrom80To9F) == 0x20);

}  // namespace

std::optional<std::u16string> FakeCodePage::Decode(std::string_view bytes) const {
  std::u16string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    text += number >= 0x80 && number <= 0x9F ? kFrom80To9F[number - 0x80] : char16_t{number};
  }
  return text;
}

std::optional<std::string> FakeCodePage::Encode(std::u16string_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t character : text) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      bytes += static_cast<char>(character);
      continue;
    }
    const char16_t* found = std::find(std::begin(kFrom80To9F), std::end(kFrom80To9F), character);
    if (found == std::end(kFrom80To9F)) return std::nullopt;
    bytes += static_cast<char>(0x80 + (found - std::begin(kFrom80To9F)));
  }
  return bytes;
}

}  // namespace deck
