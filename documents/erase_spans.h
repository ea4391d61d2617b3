// What the erasing keys take away, as spans of the text: whole characters, never half a surrogate
// pair, and whole words while the control key is down.
#pragma once

#include <string_view>

#include "platform/edit_box.h"

namespace deck {

// The character that ends or begins at the position, a line break included; empty at the end of the
// text. The position must lie in the text.
TextSpan CharacterBefore(std::u16string_view text, int position);
TextSpan CharacterBehind(std::u16string_view text, int position);

// Up to the start of a word: the word before the position with the blanks behind it, or the rest of
// the word behind the position with the blanks that follow. Signs side by side are a word too, a
// line break is one by itself.
TextSpan WordBefore(std::u16string_view text, int position);
TextSpan WordBehind(std::u16string_view text, int position);

}  // namespace deck
