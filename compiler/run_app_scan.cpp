#include "compiler/run_app_scan.h"

#include <algorithm>
#include <optional>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kStatement = u"use wren run_app";
constexpr std::u16string_view kWindowStyle = u"window_style";
// The shortest line that can hold the statement, the blank behind it and a program.
constexpr std::size_t kShortestStatement = 20;

// Tabs become blanks; leading blanks go; runs of blanks become one.
std::u16string CleanedUp(std::u16string_view line) {
  std::u16string blanks = ReplaceAll(line, u'\t', u' ');
  const auto doubled = std::unique(blanks.begin(), blanks.end(), [](char16_t left, char16_t right) {
    return left == u' ' && right == u' ';
  });
  blanks.erase(doubled, blanks.end());
  return std::u16string(TrimLeft(blanks));
}

std::u16string_view CutBefore(std::u16string_view text, std::u16string_view pattern) {
  return TrimRight(text.substr(0, FindIgnoringCase(text, pattern)));
}

ProgramWindow WindowOf(char16_t digit) {
  switch (digit) {
    case u'0':
      return ProgramWindow::kHidden;
    case u'1':
      return ProgramWindow::kNormal;
    case u'2':
      return ProgramWindow::kMinimised;
    case u'3':
      return ProgramWindow::kMaximised;
    case u'4':
      return ProgramWindow::kNormalWithoutFocus;
    default:
      return ProgramWindow::kMinimisedWithoutFocus;
  }
}

std::optional<AppToRun> AppOf(std::u16string_view rawLine) {
  // Nearly every line ends here, before anything is copied.
  if (rawLine.size() < kShortestStatement ||
      FindIgnoringCase(rawLine, u"use") == std::u16string_view::npos) {
    return std::nullopt;
  }
  const std::u16string line = CleanedUp(rawLine);
  if (line.size() < kShortestStatement || !StartsWithIgnoringCase(line, kStatement)) {
    return std::nullopt;
  }
  // A comment begins at the first "rem ", even where a folder's name ends in "rem".
  std::u16string_view program =
      CutBefore(std::u16string_view(line).substr(kStatement.size() + 1), u"rem ");
  AppToRun app;
  if (FindIgnoringCase(program, kWindowStyle) != std::u16string_view::npos) {
    app.window = WindowOf(program.back());
    program = CutBefore(program, kWindowStyle);
  }
  if (program.empty()) return std::nullopt;
  app.commandLine = program;
  return app;
}

}  // namespace

std::vector<AppToRun> FindAppsToRun(std::u16string_view text) {
  std::vector<AppToRun> apps;
  while (!text.empty()) {
    const std::size_t lineEnd = std::min(text.find(u'\n'), text.size());
    if (std::optional<AppToRun> app = AppOf(text.substr(0, lineEnd))) {
      apps.push_back(*std::move(app));
    }
    text.remove_prefix(std::min(lineEnd + 1, text.size()));
  }
  return apps;
}

}  // namespace deck
