#include "find/line_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace deck {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

// Reads characters one after the other.
class Reader {
 public:
  explicit Reader(std::u16string_view text) : text_(text) {}

  bool AtEnd() const { return position_ == text_.size(); }
  bool Take(std::u16string_view anyOf) {
    if (AtEnd() || anyOf.find(text_[position_]) == std::u16string_view::npos) return false;
    ++position_;
    return true;
  }
  std::u16string_view TakeDigits() {
    const std::size_t start = position_;
    while (Take(u"0123456789")) {
    }
    return text_.substr(start, position_ - start);
  }
  void SkipBlanks() {
    while (Take(u" \t")) {
    }
  }

 private:
  std::u16string_view text_;
  std::size_t position_ = 0;
};

int Number(std::u16string_view digits) {
  std::int64_t number = 0;
  for (const char16_t digit : digits) {
    number = std::min<std::int64_t>(number * 10 + (digit - u'0'), kMost);
  }
  return static_cast<int>(number);
}

// Digits with the decimal point moved behind the first `places` of them.
int IntegerPart(std::u16string_view digits, std::int64_t places) {
  if (places <= 0) return 0;
  const auto size = static_cast<std::int64_t>(digits.size());
  if (places <= size) return Number(digits.substr(0, static_cast<std::size_t>(places)));
  // With so many behind it, any digit but 0 makes the number too large.
  constexpr std::int64_t kZeros = 11;
  const std::int64_t zeros = std::min(places - size, kZeros);
  return Number(std::u16string(digits) + std::u16string(static_cast<std::size_t>(zeros), u'0'));
}

}  // namespace

int LineNumberOf(std::u16string_view text) {
  Reader reader(text);
  reader.SkipBlanks();
  const bool negative = reader.Take(u"-");
  if (!negative) reader.Take(u"+");
  const std::u16string_view whole = reader.TakeDigits();
  const std::u16string_view fraction = reader.Take(u".") ? reader.TakeDigits() : u"";
  if (whole.empty() && fraction.empty()) return 0;
  std::int64_t exponent = 0;
  if (reader.Take(u"eE")) {
    const bool down = reader.Take(u"-");
    if (!down) reader.Take(u"+");
    const std::u16string_view digits = reader.TakeDigits();
    if (digits.empty()) return 0;
    exponent = down ? -std::int64_t{Number(digits)} : std::int64_t{Number(digits)};
  }
  reader.SkipBlanks();
  if (!reader.AtEnd() || negative) return 0;
  return IntegerPart(std::u16string(whole) + std::u16string(fraction),
                     static_cast<std::int64_t>(whole.size()) + exponent);
}

}  // namespace deck
