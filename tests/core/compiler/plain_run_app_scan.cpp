#include "tests/core/compiler/plain_run_app_scan.h"

#include <utility>

namespace deck {
namespace {

std::u16string InLowerCase(std::u16string text) {
  for (char16_t& character : text) {
    if (character >= u'A' && character <= u'Z') character = static_cast<char16_t>(character + 32);
  }
  return text;
}

void CutTrailingBlanks(std::u16string& text) {
  while (!text.empty() && text.back() == u' ') text.pop_back();
}

// Looks at one line, without its end.
void Scan(std::u16string line, std::vector<AppToRun>& apps) {
  if (line.size() <= 19) return;
  if (InLowerCase(line).find(u"use") == std::u16string::npos) return;
  for (char16_t& character : line) {
    if (character == u'\t') character = u' ';
  }
  while (!line.empty() && line.front() == u' ') line.erase(0, 1);
  for (std::size_t pair = line.find(u"  "); pair != std::u16string::npos;
       pair = line.find(u"  ", pair)) {
    line.erase(pair + 1, 1);
  }
  if (line.size() < 20) return;
  if (InLowerCase(line.substr(0, 16)) != u"use wren run_app") return;

  std::u16string program = line.substr(17);
  const std::size_t comment = InLowerCase(program).find(u"rem ");
  if (comment != std::u16string::npos) program.erase(comment);
  CutTrailingBlanks(program);
  int style = 6;
  const std::size_t keyword = InLowerCase(program).find(u"window_style");
  if (keyword != std::u16string::npos) {
    const char16_t last = program[program.size() - 1];
    if (last >= u'0' && last <= u'4') style = last - u'0';
    program.erase(keyword);
    CutTrailingBlanks(program);
  }
  // There is nothing to be started.
  if (program.empty()) return;
  apps.push_back({program, static_cast<ProgramWindow>(style)});
}

}  // namespace

std::vector<AppToRun> PlainFindAppsToRun(const std::u16string& text) {
  std::vector<AppToRun> apps;
  std::u16string line;
  for (const char16_t character : text) {
    if (character == u'\n') {
      Scan(std::exchange(line, {}), apps);
    } else {
      line += character;
    }
  }
  Scan(line, apps);
  return apps;
}

}  // namespace deck
