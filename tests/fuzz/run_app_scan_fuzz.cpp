// The programs that any text asks for are those that the rules say, line by line.
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "compiler/run_app_scan.h"
#include "tests/core/compiler/plain_run_app_scan.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

// A byte below 0x80 is the character of its number, the others are what such statements are made
// of.
std::u16string StatementsOf(FuzzInput& input, std::size_t length) {
  constexpr std::u16string_view kWords[] = {u"\n",
                                            u" ",
                                            u"  ",
                                            u"\t",
                                            u"use wren run_app ",
                                            u"Use\tWREN Run_App ",
                                            u"use",
                                            u"wren",
                                            u"run_app",
                                            u"rem ",
                                            u"REM",
                                            u"window_style ",
                                            u"Window_STYLE",
                                            u"0",
                                            u"3",
                                            u"4",
                                            u"5",
                                            u"C:\\x.exe",
                                            u"\"C:\\a b.exe\"",
                                            u"\u0130",
                                            u"\u017F",
                                            u"\u212A"};
  std::u16string text;
  for (std::size_t byte = 0; byte < length; ++byte) {
    const int number = input.Byte();
    if (number < 0x80) {
      text += static_cast<char16_t>(number);
    } else {
      text += kWords[static_cast<std::size_t>(number) % std::size(kWords)];
    }
  }
  return text;
}

void Scan(const std::u16string& text) {
  const std::vector<AppToRun> apps = FindAppsToRun(text);
  Require(apps == PlainFindAppsToRun(text));
  for (const AppToRun& app : apps) {
    Require(!app.commandLine.empty() && app.commandLine.back() != u' ');
    Require(app.commandLine.find_first_of(u"\n\t") == std::u16string::npos);
  }
  // What stands on the lines before changes nothing.
  std::vector<AppToRun> twice = apps;
  twice.insert(twice.end(), apps.begin(), apps.end());
  Require(FindAppsToRun(text + u"\n" + text) == twice);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  deck::Scan(deck::StatementsOf(input, size));
  return 0;
}
