#include "compiler/hotas_ini.h"

#include <string_view>
#include <utility>

namespace deck {
namespace {

constexpr std::u16string_view kCompilerSection = u"Compiler";
constexpr std::u16string_view kModeSection = u"TMMODE";
// Section names know no case, so this is the same section; each reader keeps its own spelling.
constexpr std::u16string_view kModePollSection = u"TMMode";

// Buffers in characters, terminator included.
constexpr int kTimeBuffer = 10;
constexpr int kModeStatusBuffer = 20;

void ReadShort(const ProfileFiles& profiles, const std::u16string& path,
               std::u16string_view section, std::u16string_view key, std::int16_t& value) {
  const int read = profiles.ReadInteger(path, section, key, 0);
  if (std::in_range<std::int16_t>(read)) value = static_cast<std::int16_t>(read);
}

}  // namespace

std::u16string HotasIni::Path() const {
  return settings_.CompilerFolder + u"HOTAS.ini";
}

void HotasIni::ClearCompilerResult() {
  result_ = {};
  const std::u16string path = Path();
  constexpr std::pair<std::u16string_view, std::u16string_view> kCleared[] = {
      {u"FileName", u""},  {u"Status", u""},      {u"LineNumber", u"0"},  {u"Memory", u"0"},
      {u"ErrorCode", u""}, {u"CompileTime", u""}, {u"DownloadTime", u""},
  };
  for (const auto& [key, value] : kCleared) {
    // Where nothing can be written the wait runs to its limit, which tells the user.
    static_cast<void>(profiles_.WriteText(path, kCompilerSection, key, value));
  }
}

void HotasIni::ReadCompilerResult() {
  const std::u16string path = Path();
  const auto text = [&](std::u16string_view key, int buffer) {
    return profiles_.ReadText(path, kCompilerSection, key, u"", buffer);
  };
  result_.FileName = text(u"FileName", kProfileTextBuffer);
  result_.Status = text(u"Status", kProfileTextBuffer);
  result_.ErrorCode = text(u"ErrorCode", kProfileTextBuffer);
  result_.CompileTime = text(u"CompileTime", kTimeBuffer);
  result_.DownloadTime = text(u"DownloadTime", kTimeBuffer);
  ReadShort(profiles_, path, kCompilerSection, u"LineNumber", result_.LineNumber);
  ReadShort(profiles_, path, kCompilerSection, u"Memory", result_.Memory);
}

void HotasIni::ReadCompilerStatus() {
  result_.Status = profiles_.ReadText(Path(), kCompilerSection, u"Status", u"");
}

void HotasIni::ReadControllerMode() {
  const std::u16string path = Path();
  mode_.Status = profiles_.ReadText(path, kModeSection, u"Status", u"ERROR", kModeStatusBuffer);
  ReadShort(profiles_, path, kModeSection, u"Axes", mode_.Axes);
  ReadShort(profiles_, path, kModeSection, u"Buttons", mode_.Buttons);
}

void HotasIni::ReadControllerModeStatus() {
  mode_.Status = profiles_.ReadText(Path(), kModePollSection, u"Status", u"");
}

}  // namespace deck
