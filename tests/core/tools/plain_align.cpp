#include "tests/core/tools/plain_align.h"

#include <algorithm>
#include <vector>

#include "platform/strings.h"

namespace deck {
namespace {

using Line = std::u16string;

std::vector<Line> SplitLines(std::u16string_view text) {
  std::vector<Line> lines(1);
  for (const char16_t character : text) {
    if (character == u'\n') {
      lines.emplace_back();
    } else {
      lines.back() += character;
    }
  }
  return lines;
}

Line WithoutLeadingBlanks(Line line, std::u16string_view blanks) {
  line.erase(0, std::min(line.find_first_not_of(blanks), line.size()));
  return line;
}

Line Normalised(Line line) {
  std::replace(line.begin(), line.end(), u'\t', u' ');
  line = WithoutLeadingBlanks(line, u" ");
  for (std::size_t pair = line.find(u"  "); pair != Line::npos; pair = line.find(u"  ")) {
    line.erase(pair, 1);
  }
  return line;
}

// From 1; 0 when it is not there.
int Column(const Line& line, const char16_t* modifier) {
  const std::size_t found = line.find(modifier);
  return found == Line::npos ? 0 : static_cast<int>(found) + 1;
}

bool Begins(const Line& line, std::u16string_view prefix) {
  return ToLower(line).starts_with(prefix);
}

struct State {
  Line previousSlashLine;
  int columnUmd = 0;
  int columnIo = 0;
  int columnPr = 0;
  int columnT = 0;
};

bool IsStatement(const Line& line) {
  const std::vector<std::u16string_view> words = {u"btn", u"curve", u"joyx", u"joyy",
                                                  u"thr", u"rddr",  u"lbrk", u"rbrk",
                                                  u"mix", u"miy",   u"ant",  u"rng"};
  return std::any_of(words.begin(), words.end(), [&](auto word) { return Begins(line, word); });
}

void RecordColumns(const Line& line, State& state) {
  if (Column(line, u"/U") != 0) {
    state.columnUmd = Column(line, u"/U");
  } else if (Column(line, u"/M") != 0) {
    state.columnUmd = Column(line, u"/M");
  } else if (Column(line, u"/D") != 0) {
    state.columnUmd = Column(line, u"/D");
  }
  if (Column(line, u"/I") != 0) {
    state.columnIo = Column(line, u"/I");
  } else if (Column(line, u"/O") != 0) {
    state.columnIo = Column(line, u"/O");
  }
  if (Column(line, u"/P") != 0) {
    state.columnPr = Column(line, u"/P");
  } else if (Column(line, u"/R") != 0) {
    state.columnPr = Column(line, u"/R");
  }
  if (Column(line, u"/T") != 0) state.columnT = Column(line, u"/T");
}

int TargetOf(const Line& line, const State& state) {
  const auto under = [&](const char16_t* modifier, int otherwise) {
    const int column = Column(state.previousSlashLine, modifier);
    return column != 0 ? column : otherwise;
  };
  int target = 0;
  if (!IsStatement(line) &&
      (Column(line, u"/U") != 0 || Column(line, u"/M") != 0 || Column(line, u"/D") != 0)) {
    target = state.columnUmd;
  }
  if (line.starts_with(u"/I")) target = under(u"/O", state.columnIo);
  if (line.starts_with(u"/O")) target = under(u"/I", state.columnIo);
  if (line.starts_with(u"/P")) target = under(u"/R", state.columnPr);
  if (line.starts_with(u"/R")) target = under(u"/P", state.columnPr);
  if (line.starts_with(u"/T")) target = under(u"/T", state.columnT);
  return target;
}

Line Blanks(int count) {
  return Line(static_cast<std::size_t>(std::clamp(count, 0, 69)), u' ');
}

Line AlignedLine(const Line& raw, const AlignOptions& options, State& state) {
  if (Begins(raw, u"rem") || raw.starts_with(u"~")) return raw;
  Line line = Normalised(raw);
  if (IsStatement(line)) RecordColumns(line, state);
  const int target = TargetOf(line, state);
  if (target >= 1) line = Blanks(target - 1) + line;
  if (line.find(u'/') != Line::npos) state.previousSlashLine = line;
  if (options.indent && line.size() >= 3 && !Begins(line, u"rem")) {
    line = Blanks(options.indentSpaces) + line;
  }
  return line;
}

}  // namespace

std::u16string PlainAlign(std::u16string_view text, const AlignOptions& options) {
  State state;
  std::u16string result;
  for (const Line& line : SplitLines(text)) result += AlignedLine(line, options, state) + u'\n';
  result.pop_back();
  return result;
}

bool HasIndentedCommentWithSlash(std::u16string_view text) {
  const std::vector<Line> lines = SplitLines(text);
  return std::any_of(lines.begin(), lines.end(), [](const Line& raw) {
    const Line line = WithoutLeadingBlanks(raw, u" \t");
    return line.size() < raw.size() && (Begins(line, u"rem") || line.starts_with(u"~")) &&
           line.find(u'/') != Line::npos;
  });
}

}  // namespace deck
