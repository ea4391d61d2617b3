// The lines of one box of the key tester. One text with the places where its lines begin: adding a
// line costs the same however long the log is, and so does finding the lines that are on the
// screen. Owned by the box that shows it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

class KeyLog {
 public:
  // The line comes without its end. It is one line whatever characters it holds.
  void Append(std::u16string_view line);
  void Clear();

  int LineCount() const { return static_cast<int>(starts_.size()); }
  // Lines count from 0; one that is not there is empty.
  std::u16string_view Line(int line) const;

  // Every line ends with CR LF, also the last one.
  const std::u16string& Text() const { return text_; }
  // The lines from `first` up to and without `end`, each with its CR LF; cut to the lines there
  // are.
  std::u16string_view Lines(int first, int end) const;

 private:
  std::size_t StartOf(int line) const;

  std::u16string text_;
  std::vector<std::size_t> starts_;
};

}  // namespace deck
