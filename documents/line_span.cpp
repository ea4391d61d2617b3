#include "documents/line_span.h"

#include <limits>

namespace deck {

std::optional<TextSpan> SpanOfLine(const EditBox& box, int line) {
  const int start = box.StartOfLine(line);
  if (start < 0 || box.LineOf(start) != line) return std::nullopt;
  const int next = line == std::numeric_limits<int>::max() ? -1 : box.StartOfLine(line + 1);
  const int end = next < 0 ? box.Length() : next;
  return TextSpan{.start = start, .length = end - start};
}

}  // namespace deck
