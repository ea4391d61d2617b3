#include "documents/page_layout.h"

#include <algorithm>

namespace deck {
namespace {

constexpr std::size_t kTabWidth = 8;

bool IsHighSurrogate(char16_t character) {
  return character >= 0xD800 && character <= 0xDBFF;
}

std::u16string ExpandTabs(std::u16string_view line) {
  std::u16string expanded;
  for (const char16_t character : line) {
    if (character == u'\t') {
      expanded.append(kTabWidth - expanded.size() % kTabWidth, u' ');
    } else {
      expanded += character;
    }
  }
  return expanded;
}

// How much of the line stands in its first row; a character of two units stays whole.
std::size_t RowLength(std::u16string_view line, std::size_t columns) {
  if (line.size() <= columns) return line.size();
  const bool splits = columns > 1 && IsHighSurrogate(line[columns - 1]);
  return splits ? columns - 1 : columns;
}

class PageFiller {
 public:
  explicit PageFiller(PageSize size)
      : columns_(static_cast<std::size_t>(std::max(size.columns, 1))),
        rows_(static_cast<std::size_t>(std::max(size.rows, 1))) {}

  void AddLine(std::u16string_view line) {
    const std::u16string expanded = ExpandTabs(line);
    std::u16string_view rest = expanded;
    do {
      const std::size_t length = RowLength(rest, columns_);
      AddRow(rest.substr(0, length));
      rest.remove_prefix(length);
    } while (!rest.empty());
  }

  std::vector<Page> Pages() && { return std::move(pages_); }

 private:
  void AddRow(std::u16string_view row) {
    if (pages_.back().size() == rows_) pages_.emplace_back();
    pages_.back().emplace_back(row);
  }

  std::size_t columns_;
  std::size_t rows_;
  std::vector<Page> pages_ = std::vector<Page>(1);
};

}  // namespace

std::vector<Page> LayOutPages(std::u16string_view text, PageSize size) {
  PageFiller filler(size);
  for (;;) {
    const std::size_t end = text.find(u'\n');
    filler.AddLine(text.substr(0, end));
    if (end == std::u16string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return std::move(filler).Pages();
}

}  // namespace deck
