#include "tools/align_slashes.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "platform/text_edits.h"

namespace deck {
namespace {

constexpr int kMostBlanks = 69;

constexpr std::u16string_view kStatements[] = {u"btn",  u"curve", u"joyx", u"joyy", u"thr", u"rddr",
                                               u"lbrk", u"rbrk",  u"mix",  u"miy",  u"ant", u"rng"};

bool IsBlank(char16_t character) {
  return character == u' ' || character == u'\t';
}

// In any case; `word` is of small letters, which differ from the capital ones in one bit.
bool BeginsWith(std::u16string_view line, std::u16string_view word) {
  constexpr int kSmall = 0x20;
  if (line.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if ((line[i] | kSmall) != word[i]) return false;
  return true;
}

bool BeginsWithRem(std::u16string_view line) {
  return BeginsWith(line, u"rem");
}

bool IsComment(std::u16string_view rawLine) {
  return BeginsWithRem(rawLine) || rawLine.starts_with(u'~');
}

bool IsStatement(std::u16string_view line) {
  return std::ranges::any_of(kStatements,
                             [line](std::u16string_view word) { return BeginsWith(line, word); });
}

void Normalise(std::u16string_view rawLine, std::u16string& line) {
  line.resize(rawLine.size());
  auto end = line.begin();
  bool afterBlank = true;
  for (const char16_t character : rawLine) {
    const bool blank = IsBlank(character);
    if (!blank || !afterBlank) *end++ = blank ? u' ' : character;
    afterBlank = blank;
  }
  line.erase(end, line.end());
}

// Where a line has its slash modifiers.
class Modifiers {
 public:
  Modifiers() = default;
  explicit Modifiers(std::u16string_view line) {
    for (std::size_t slash = line.find(u'/'); slash != std::u16string_view::npos;
         slash = line.find(u'/', slash + 1)) {
      hasSlash_ = true;
      if (slash + 1 < line.size()) Found(line[slash + 1], static_cast<int>(slash) + 1);
    }
  }

  bool HasSlash() const { return hasSlash_; }
  // Of the first one in the line; 0 when there is none.
  int ColumnOf(char16_t letter) const { return columns_[IndexOf(letter)]; }
  // Of the first of these letters that the line has, in the order given.
  int ColumnOfFirst(std::u16string_view letters) const {
    for (const char16_t letter : letters)
      if (const int column = ColumnOf(letter)) return column;
    return 0;
  }
  void MoveBy(int blanks) {
    for (int& column : columns_)
      if (column > 0) column += blanks;
  }

 private:
  static constexpr std::size_t kLetters = 8;

  // kLetters for a letter that is none of theirs.
  static constexpr std::size_t IndexOf(char16_t letter) {
    switch (letter) {
      case u'U':
        return 0;
      case u'M':
        return 1;
      case u'D':
        return 2;
      case u'I':
        return 3;
      case u'O':
        return 4;
      case u'P':
        return 5;
      case u'R':
        return 6;
      case u'T':
        return 7;
      default:
        return kLetters;
    }
  }
  void Found(char16_t letter, int column) {
    const std::size_t index = IndexOf(letter);
    if (index < kLetters && columns_[index] == 0) columns_[index] = column;
  }

  std::array<int, kLetters> columns_{};
  bool hasSlash_ = false;
};

class Aligner {
 public:
  explicit Aligner(const AlignOptions& options)
      : indent_(options.indent ? std::clamp(options.indentSpaces, 0, kMostBlanks) : 0) {}

  void Append(std::u16string_view rawLine, std::u16string& result) {
    if (IsComment(rawLine)) {
      result += rawLine;
      return;
    }
    Normalise(rawLine, line_);
    if (line_.empty()) return;
    const int blanks = Pad();
    const bool indented =
        blanks + static_cast<int>(line_.size()) >= 3 && (blanks > 0 || !BeginsWithRem(line_));
    result.append(static_cast<std::size_t>(blanks + (indented ? indent_ : 0)), u' ');
    result += line_;
  }

 private:
  // How many blanks go in front of line_; remembers what later lines are aligned to.
  int Pad() {
    Modifiers modifiers(line_);
    const bool statement = IsStatement(line_);
    if (statement) Remember(modifiers);
    const int blanks = statement ? 0 : std::clamp(Target(modifiers) - 1, 0, kMostBlanks);
    if (modifiers.HasSlash()) {
      modifiers.MoveBy(blanks);
      previousSlashLine_ = modifiers;
    }
    return blanks;
  }

  void Remember(const Modifiers& statement) {
    const auto keep = [](int& column, int found) {
      if (found > 0) column = found;
    };
    keep(columnUmd_, statement.ColumnOfFirst(u"UMD"));
    keep(columnIo_, statement.ColumnOfFirst(u"IO"));
    keep(columnPr_, statement.ColumnOfFirst(u"PR"));
    keep(columnT_, statement.ColumnOf(u'T'));
  }

  // The column of the line's first character; 0: where it is.
  int Target(const Modifiers& modifiers) const {
    const char16_t leading = line_.size() >= 2 && line_[0] == u'/' ? line_[1] : u'\0';
    switch (leading) {
      case u'I':
        return Under(u'O', columnIo_);
      case u'O':
        return Under(u'I', columnIo_);
      case u'P':
        return Under(u'R', columnPr_);
      case u'R':
        return Under(u'P', columnPr_);
      case u'T':
        return Under(u'T', columnT_);
      default:
        return modifiers.ColumnOfFirst(u"UMD") > 0 ? columnUmd_ : 0;
    }
  }

  int Under(char16_t letter, int otherwise) const {
    const int column = previousSlashLine_.ColumnOf(letter);
    return column > 0 ? column : otherwise;
  }

  int indent_;
  std::u16string line_;  // kept between lines for its memory only
  Modifiers previousSlashLine_;
  int columnUmd_ = 0;
  int columnIo_ = 0;
  int columnPr_ = 0;
  int columnT_ = 0;
};

bool IsBlankAt(std::u16string_view text, std::size_t position) {
  return position < text.size() && IsBlank(text[position]);
}

std::size_t EndOfBlanks(std::u16string_view text, std::size_t position) {
  while (IsBlankAt(text, position)) ++position;
  return position;
}

}  // namespace

std::u16string AlignSlashes(std::u16string_view text, const AlignOptions& options) {
  std::u16string result;
  result.reserve(text.size() + text.size() / 4);
  Aligner aligner(options);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = std::min(text.find(u'\n', start), text.size());
    aligner.Append(text.substr(start, end - start), result);
    if (end == text.size()) return result;
    result += u'\n';
    start = end + 1;
  }
}

std::vector<TextEdit> BlankEdits(std::u16string_view before, std::u16string_view after) {
  std::vector<TextEdit> edits;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < before.size() || j < after.size()) {
    const std::u16string_view old = before.substr(i, EndOfBlanks(before, i) - i);
    const std::u16string_view blanks = after.substr(j, EndOfBlanks(after, j) - j);
    if (old != blanks) {
      edits.push_back(
          {{static_cast<int>(i), static_cast<int>(old.size())}, std::u16string(blanks)});
    }
    i += old.size();
    j += blanks.size();
    while (i < before.size() && j < after.size() && before[i] == after[j] && !IsBlank(before[i])) {
      ++i;
      ++j;
    }
    assert(IsBlankAt(before, i) || IsBlankAt(after, j) ||
           (i == before.size() && j == after.size()));
  }
  return Reduced(before, edits);
}

}  // namespace deck
