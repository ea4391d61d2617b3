// Any text is a macro file: every name comes from a line of it, in order, and each heading's macros
// are part of all macros. Any text names a macro file, or none, and the path made of it stays one.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "macros/detect_macro_file.h"
#include "macros/extract_macros.h"
#include "platform/strings.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

// Bytes from 0x80 on are what macro files are made of.
std::u16string MacroText(FuzzInput& input, std::size_t length) {
  constexpr std::u16string_view kWords[] = {
      u"\n", u"\nrem -----\n", u"rem ",   u"rem", u"~",         u"//",        u" = ",  u"=",
      u"\t", u"FIRE",          u"rem --", u"  ",  u"USE MDEF ", u"use\tmdef", u".tmm", u"\u0130"};
  std::u16string text;
  for (std::size_t i = 0; i < length; ++i) {
    const int byte = input.Byte();
    if (byte < 0x80) {
      text += static_cast<char16_t>(std::max(byte, 1));
    } else {
      text += kWords[static_cast<std::size_t>(byte) % std::size(kWords)];
    }
  }
  return BoxText(text);
}

bool IsSubsequence(const std::vector<std::u16string>& part,
                   const std::vector<std::u16string>& all) {
  auto rest = all.begin();
  return std::ranges::all_of(part, [&](const std::u16string& name) {
    rest = std::find(rest, all.end(), name);
    return rest != all.end() && rest++ != all.end();
  });
}

void Extract(std::u16string_view text) {
  const MacroLines lines = GetEachLineFromMacroFile(text);
  Require(!lines.empty() && lines[0].empty());
  const MacroList list = ExtractMacrosAndTitles(lines);
  Require(list.headings.size() == list.names.size());
  Require(!list.headings.empty() && list.headings[0] == u"All");
  const auto count = static_cast<std::size_t>(list.MacroCount());
  Require(count == list.names[0].size() && count < lines.size());
  for (const std::vector<std::u16string>& names : list.names) {
    Require(IsSubsequence(names, list.names[0]));
  }
  for (const std::u16string& name : list.names[0]) {
    Require(std::ranges::any_of(lines, [&](const std::u16string& line) {
      return line.find(u'=') != std::u16string::npos && RemoveSpacesFromMacroName(line) == name;
    }));
    static_cast<void>(DefinitionOf(lines, name));
  }
}

void Detect(std::u16string_view text) {
  const auto name = FindMacroFileName(text);
  if (!name) return;
  Require(name->span.start >= 0 && name->span.end() <= static_cast<int>(text.size()));
  Require(name->name.find(u'\n') == std::u16string::npos);
  const std::u16string path = ComposeMacroFilePath(u"C:\\Files\\", name->name, u"tmm");
  Require(path.find(u'\n') == std::u16string::npos);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const std::u16string text = deck::MacroText(input, size);
  deck::Extract(text);
  deck::Detect(text);
  return 0;
}
