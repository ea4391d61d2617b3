#include "standins/cougar_compiler.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

namespace deck {
namespace {

constexpr std::size_t kMemoryBytes = 32768;
constexpr std::size_t kLongestQuote = 60;

constexpr auto kAxisStatements = std::to_array<std::string_view>(
    {"ant", "curve", "joyx", "joyy", "lbrk", "mix", "miy", "rbrk", "rddr", "rng", "thr"});

constexpr auto kKeyWords = std::to_array<std::string_view>(
    {"alt",     "break",  "brk",     "bsp",   "bspace", "caps",     "capslock", "ctl",
     "ctrl",    "darrow", "del",     "dly",   "down",   "end",      "ent",      "enter",
     "esc",     "home",   "ins",     "kd",    "kpent",  "ku",       "lalt",     "larrow",
     "lctl",    "left",   "lshf",    "lwin",  "menu",   "mouse_lb", "mouse_mb", "mouse_rb",
     "null",    "numlck", "numlock", "pause", "pgdn",   "pgup",     "prtsc",    "prntscrn",
     "ralt",    "rarrow", "rctl",    "right", "rpt",    "rshf",     "rwin",     "scrlck",
     "scrllck", "shf",    "shift",   "spc",   "space",  "tab",      "uarrow",   "up",
     "usb"});

// Key words that are a stem with a number, such as F12 or DX32.
struct NumberedKey {
  std::string_view stem;
  int first;
  int last;
};
constexpr auto kNumberedKeys = std::to_array<NumberedKey>(
    {{"f", 1, 24}, {"dx", 1, 32}, {"kp", 0, 9}, {"joy", 1, 32}, {"mb", 1, 5}});

using MacroNames = std::set<std::string, std::less<>>;

struct Line {
  int number;
  std::string_view text;
};

struct Error {
  int code;
  std::string text;
};
using Check = std::optional<Error>;

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ';
}
bool IsBlank(char c) {
  return c == ' ' || IsControl(c);
}
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsNameCharacter(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_';
}
bool IsBracket(char c) {
  return std::string_view("(){}<>[]").find(c) != std::string_view::npos;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

template <typename Stops>
std::string_view TakeUntil(std::string_view text, Stops stops) {
  return {text.begin(), std::find_if(text.begin(), text.end(), stops)};
}

std::string_view FirstWord(std::string_view text) {
  return TakeUntil(text, IsBlank);
}

// An error text is one line of an INI file, so no control character of the source may reach it.
std::string Quoted(std::string_view word) {
  std::string quoted(word.substr(0, kLongestQuote));
  std::replace_if(quoted.begin(), quoted.end(), IsControl, '?');
  return "'" + quoted + "'";
}

bool IsCommentLine(std::string_view line) {
  return line.starts_with('~') || line.starts_with("//") || Lower(line.substr(0, 3)) == "rem";
}

std::string_view WithoutTrailingComment(std::string_view line) {
  for (std::size_t at = 1; at < line.size(); ++at) {
    if (!IsBlank(line[at - 1]) || IsBlank(line[at])) continue;
    const std::string_view rest = line.substr(at);
    if (rest.starts_with("//") || Lower(FirstWord(rest)) == "rem") return Trim(line.substr(0, at));
  }
  return line;
}

template <typename Visit>
void ForEachLine(std::string_view text, Visit visit) {
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find_first_of("\r\n");
    visit(Line{number, text.substr(0, end)});
    if (end == std::string_view::npos) return;
    text.remove_prefix(text.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
  }
}

// Calls visit with every statement and continuation line, trimmed and without comments.
template <typename Visit>
void ForEachStatement(std::string_view text, Visit visit) {
  ForEachLine(text, [&visit](Line line) {
    line.text = Trim(line.text);
    if (line.text.empty() || IsCommentLine(line.text)) return;
    visit(Line{line.number, WithoutTrailingComment(line.text)});
  });
}

MacroNames ReadMacroNames(std::string_view macroText) {
  MacroNames names;
  ForEachStatement(macroText, [&names](const Line& line) {
    const std::size_t equals = line.text.find('=');
    if (equals == std::string_view::npos) return;
    names.insert(Lower(Trim(line.text.substr(0, equals))));
  });
  return names;
}

// What follows USE MDEF, or nothing when the statement is another one.
std::optional<std::string_view> MacroFileNamedBy(std::string_view statement) {
  const std::string_view use = FirstWord(statement);
  if (Lower(use) != "use") return std::nullopt;
  const std::string_view rest = Trim(statement.substr(use.size()));
  const std::string_view subject = FirstWord(rest);
  if (Lower(subject) != "mdef") return std::nullopt;
  return Trim(rest.substr(subject.size()));
}

std::optional<Line> LastMacroFileUse(std::string_view joystickText) {
  std::optional<Line> last;
  ForEachStatement(joystickText, [&last](const Line& line) {
    if (const auto name = MacroFileNamedBy(line.text)) last = Line{line.number, *name};
  });
  return last;
}

std::string WithMacroExtension(std::string_view name, std::string_view joystickExtension) {
  if (name.find('.') != std::string_view::npos) return std::string(name);
  const std::string extension = Lower(joystickExtension);
  if (extension == "f22") return std::string(name) + ".m22";
  if (extension == "b50") return std::string(name) + ".m50";
  return std::string(name) + ".tmm";
}

bool IsNumberedKey(std::string_view lowerWord) {
  const std::string_view stem = TakeUntil(lowerWord, IsDigit);
  const std::string_view digits = lowerWord.substr(stem.size());
  int number = -1;
  const char* const end = digits.data() + digits.size();
  const auto [stopped, failure] = std::from_chars(digits.data(), end, number);
  if (failure != std::errc() || stopped != end) return false;
  return std::any_of(kNumberedKeys.begin(), kNumberedKeys.end(), [&](const NumberedKey& key) {
    return key.stem == stem && number >= key.first && number <= key.last;
  });
}

bool IsKeyWord(std::string_view lowerWord) {
  return std::find(kKeyWords.begin(), kKeyWords.end(), lowerWord) != kKeyWords.end() ||
         IsNumberedKey(lowerWord);
}

bool LooksLikeAMacro(std::string_view word) {
  return word.size() > 1 && IsLetter(word.front()) &&
         std::all_of(word.begin(), word.end(), IsNameCharacter);
}

// Reads what a BTN statement sends, from left to right.
class KeySequence {
 public:
  KeySequence(std::string_view text, const MacroNames& macros) : rest_(text), macros_(macros) {}

  Check Verify() {
    for (SkipGrouping(); !rest_.empty(); SkipGrouping()) {
      if (Check failed = rest_.front() == '/' ? ReadSlash() : ReadKeys()) return failed;
    }
    return std::nullopt;
  }

 private:
  void SkipGrouping() {
    while (!rest_.empty() && (IsBlank(rest_.front()) || IsBracket(rest_.front()))) {
      rest_.remove_prefix(1);
    }
  }

  Check ReadSlash() {
    const std::size_t letters =
        TakeUntil(rest_.substr(1), [](char c) { return !IsLetter(c); }).size();
    const std::string_view modifier = rest_.substr(0, 1 + letters);
    rest_.remove_prefix(modifier.size());
    if (letters > 1) return Error{2004, "unknown slash modifier " + Quoted(modifier)};
    return std::nullopt;
  }

  Check ReadKeys() {
    const std::string_view stretch = FirstWord(rest_);
    if (macros_.contains(Lower(stretch))) {
      rest_.remove_prefix(stretch.size());
      return std::nullopt;
    }
    const std::string_view word =
        TakeUntil(stretch, [](char c) { return IsBracket(c) || c == '/'; });
    rest_.remove_prefix(word.size());
    const std::string lower = Lower(word);
    if (lower == "usb") SkipRawCodes();
    if (!LooksLikeAMacro(word) || IsKeyWord(lower) || macros_.contains(lower)) return std::nullopt;
    return Error{2005, "unknown macro " + Quoted(word)};
  }

  void SkipRawCodes() {
    rest_ = Trim(rest_);
    if (!rest_.starts_with('(')) return;
    rest_.remove_prefix(std::min(rest_.find(')'), rest_.size()));
  }

  std::string_view rest_;
  const MacroNames& macros_;
};

// Checks the statements of one joystick file in order; remembers what a continuation line
// continues.
class StatementChecker {
 public:
  explicit StatementChecker(const MacroNames& macros) : macros_(macros) {}

  Check Verify(std::string_view statement) {
    if (statement.size() > 1 && statement[0] == '/' && IsLetter(statement[1])) {
      return VerifyContinuation(statement);
    }
    const std::string_view word = TakeUntil(statement, [](char c) { return !IsNameCharacter(c); });
    const std::string_view rest = Trim(statement.substr(word.size()));
    const std::string lower = Lower(word);
    open_ = Open::kNothing;
    if (lower == "btn") return VerifyButton(rest);
    if (lower == "use") return VerifyUse(rest);
    if (std::find(kAxisStatements.begin(), kAxisStatements.end(), lower) == kAxisStatements.end()) {
      return Error{2001, "unknown statement " + Quoted(FirstWord(statement))};
    }
    open_ = Open::kAxis;
    return std::nullopt;
  }

 private:
  enum class Open { kNothing, kButton, kAxis };

  Check VerifyContinuation(std::string_view line) const {
    if (open_ == Open::kNothing) {
      return Error{2003, "modifier " + Quoted(FirstWord(line)) + " without a statement above it"};
    }
    if (open_ == Open::kAxis) return std::nullopt;
    return KeySequence(line, macros_).Verify();
  }

  Check VerifyButton(std::string_view rest) {
    open_ = Open::kButton;
    const std::string_view name = TakeUntil(rest, [](char c) { return !IsNameCharacter(c); });
    if (name.empty() || !IsLetter(name.front())) return Error{2002, "BTN names no button"};
    return KeySequence(rest.substr(name.size()), macros_).Verify();
  }

  static Check VerifyUse(std::string_view rest) {
    if (rest.empty()) return Error{2006, "USE names nothing to use"};
    return std::nullopt;
  }

  const MacroNames& macros_;
  Open open_ = Open::kNothing;
};

CougarOutcome Failure(const Error& error, int lineNumber) {
  CougarOutcome outcome;
  outcome.errorCode = "Error " + std::to_string(error.code) + ": " + error.text;
  outcome.lineNumber = lineNumber;
  return outcome;
}

CougarOutcome Success(std::size_t statementBytes) {
  const std::size_t percent = (statementBytes * 100 + kMemoryBytes - 1) / kMemoryBytes;
  if (percent > 100) {
    return Failure({2008, "the file needs " + std::to_string(percent) + "% of the memory"}, 0);
  }
  CougarOutcome outcome;
  outcome.memory = static_cast<int>(percent);
  outcome.statementBytes = statementBytes;
  return outcome;
}

std::size_t SizeOf(std::string_view statement) {
  return static_cast<std::size_t>(
      std::count_if(statement.begin(), statement.end(), [](char c) { return !IsBlank(c); }));
}

CougarOutcome CompileStatements(std::string_view joystickText, const MacroNames& macros) {
  StatementChecker checker(macros);
  std::optional<CougarOutcome> failed;
  std::size_t bytes = 0;
  ForEachStatement(joystickText, [&](const Line& line) {
    if (failed) return;
    if (const Check error = checker.Verify(line.text)) failed = Failure(*error, line.number);
    bytes += SizeOf(line.text);
  });
  return failed ? *failed : Success(bytes);
}

}  // namespace

CougarOutcome CompileCougarText(std::string_view joystickText, std::string_view extension,
                                const MacroFileReader& readMacroFile) {
  MacroNames macros;
  if (const std::optional<Line> use = LastMacroFileUse(joystickText)) {
    if (use->text.empty()) return Failure({2007, "USE MDEF names no macro file"}, use->number);
    const std::string name = WithMacroExtension(use->text, extension);
    const std::optional<std::string> macroText = readMacroFile(name);
    if (!macroText) return Failure({2007, "no macro file " + Quoted(name)}, use->number);
    macros = ReadMacroNames(*macroText);
  }
  return CompileStatements(joystickText, macros);
}

CougarOutcome UnreadableCougarFile(std::string_view name) {
  return Failure({2009, "cannot read the file " + Quoted(name)}, 0);
}

}  // namespace deck
