// What the fuzz targets make of the bytes they are given.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/text_edits.h"

namespace deck {

// Numbers come from the front of the bytes, the text is what remains.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

  bool IsAtEnd() const { return size_ == 0; }
  // 0 when no bytes are left.
  int Byte() {
    if (size_ == 0) return 0;
    --size_;
    return *bytes_++;
  }
  int Number() { return 256 * Byte() + Byte(); }

  // A byte below 0x80 is the character of its number; the others stand for words and characters
  // that an editor of joystick files meets, so that few bytes make a telling text.
  std::u16string Text() {
    static constexpr std::u16string_view kWords[] = {u"\n",
                                                     u"  ",
                                                     u"\t",
                                                     u"rem",
                                                     u"REM ",
                                                     u"Rem ",
                                                     u"rem\n",
                                                     u"~",
                                                     u"BTN ",
                                                     u"thr",
                                                     u"CURVE",
                                                     u"/I",
                                                     u"/O",
                                                     u"/P",
                                                     u"/R",
                                                     u"/T",
                                                     u"/U",
                                                     u"/M",
                                                     u"/D",
                                                     u"/",
                                                     u"//",
                                                     u"\u00E9",
                                                     u"\u00A0",
                                                     u"\u2028",
                                                     u"\xD83D\xDE00",
                                                     u"\xD800",
                                                     u"\xDC00",
                                                     u"\x1A",
                                                     u"= ",
                                                     u"\"",
                                                     u"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx",
                                                     u"          "};
    std::u16string text;
    for (; size_ > 0;) {
      const int byte = Byte();
      if (byte < 0x80) {
        text += static_cast<char16_t>(byte);
      } else {
        text += kWords[static_cast<std::size_t>(byte) % std::size(kWords)];
      }
    }
    return BoxText(text);
  }

 private:
  const std::uint8_t* bytes_;
  std::size_t size_;
};

// Ends the run with the input that broke a rule. Who gives the bytes says how.
[[noreturn]] void RuleBroken();

inline void Require(bool holds) {
  if (!holds) RuleBroken();
}

}  // namespace deck
