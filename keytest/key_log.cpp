#include "keytest/key_log.h"

#include <algorithm>

namespace deck {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

}  // namespace

void KeyLog::Append(std::u16string_view line) {
  starts_.push_back(text_.size());
  text_ += line;
  text_ += kLineBreak;
}

void KeyLog::Clear() {
  text_.clear();
  starts_.clear();
}

std::size_t KeyLog::StartOf(int line) const {
  return line < LineCount() ? starts_[static_cast<std::size_t>(line)] : text_.size();
}

std::u16string_view KeyLog::Line(int line) const {
  std::u16string_view text = Lines(line, line < 0 ? line : line + 1);
  if (!text.empty()) text.remove_suffix(kLineBreak.size());
  return text;
}

std::u16string_view KeyLog::Lines(int first, int end) const {
  const std::size_t from = StartOf(std::max(first, 0));
  const std::size_t to = StartOf(std::max(end, 0));
  return from < to ? std::u16string_view(text_).substr(from, to - from) : std::u16string_view();
}

}  // namespace deck
