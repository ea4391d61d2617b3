#include "app/settings_store.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kFileLocations = u"FileLocations";
constexpr std::u16string_view kMiscellaneous = u"Miscellaneous";
constexpr std::u16string_view kUnsupported = u"Unsupported";

struct NumberRow {
  std::u16string_view section;
  std::u16string_view key;
  int fallback;
  std::int16_t Settings::*value;
};

constexpr NumberRow kHostRows[] = {
    {kFileLocations, u"HOTASStatusBarErrors", 0, &Settings::StatusBarErrors},
    {kMiscellaneous, u"OKtoShowToolTips", 1, &Settings::ShowToolTips},
    {kMiscellaneous, u"AlwaysShowCompileDownload", 0, &Settings::AlwaysShowCompileDownload},
    {kUnsupported, u"ForeignLanguageKBInputFix", 0, &Settings::ForeignKeyboardFix},
    {kUnsupported, u"UseHLPnotCHM", 0, &Settings::PreferHlpHelp},
};

// Read from "Unsupported" although they are written under "Miscellaneous": a saved value counts
// only when a user has copied it by hand.
constexpr NumberRow kOwnRows[] = {
    {kUnsupported, u"MacroFrameWidth", 300, &Settings::MacroFrameWidth},
    {kUnsupported, u"MaxPreviousFiles", 30, &Settings::MaxPreviousFiles},
    {kUnsupported, u"IndentSpaces", 5, &Settings::IndentSpaces},
    {kUnsupported, u"IndentAsWell", 0, &Settings::IndentAsWell},
};

void Read(const ProfileFiles& profiles, const std::u16string& file, const NumberRow& row,
          Settings& settings) {
  const int number = profiles.ReadInteger(file, row.section, row.key, row.fallback);
  using Limits = std::numeric_limits<std::int16_t>;
  if (number >= Limits::min() && number <= Limits::max()) {
    settings.*row.value = static_cast<std::int16_t>(number);
  }
}

float ReadCoordinate(const ProfileFiles& profiles, const std::u16string& file,
                     std::u16string_view key, float fallback) {
  return ParseNumber(profiles.ReadText(file, kMiscellaneous, key, FormatNumber(fallback)),
                     fallback);
}

}  // namespace

float ParseNumber(std::u16string_view text, float fallback) {
  // Bytes outside ASCII cannot be part of a number.
  std::string ascii;
  for (const char16_t character : Trim(text)) {
    if (character > 0x7E) break;
    ascii += static_cast<char>(character);
  }
  if (ascii.starts_with('+')) ascii.erase(0, 1);
  float number = 0;
  const auto parsed = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
  return parsed.ec == std::errc{} && std::isfinite(number) ? number : fallback;
}

std::u16string FormatNumber(float number) {
  char buffer[64];
  const auto end =
      std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::fixed);
  return std::u16string(std::begin(buffer), end.ptr);
}

void ReadHostPreferences(const ProfileFiles& profiles, const std::u16string& applicationFolder,
                         Settings& settings) {
  settings.applicationFolder = applicationFolder;
  settings.HostPath = applicationFolder + u"\\Wren.ini";
  settings.SettingsPath = settings.HostPath;
  settings.CompilerFolder = applicationFolder + u"\\";
  settings.CompilerPath = settings.CompilerFolder + u"HOTASCompiler.exe";
  settings.FilesFolder = applicationFolder + u"\\Files\\";
  for (const NumberRow& row : kHostRows) Read(profiles, settings.SettingsPath, row, settings);

  settings.SettingsPath = applicationFolder + u"\\WrenDeck.ini";
  for (const NumberRow& row : kOwnRows) Read(profiles, settings.SettingsPath, row, settings);
}

bool WantsSingleInstance(const ProfileFiles& profiles, const std::u16string& applicationFolder) {
  return profiles.ReadInteger(applicationFolder + u"\\WrenDeck.ini", kUnsupported,
                              u"SingleInstance", 0) == 1;
}

EditorPosition GetEditorPosition(const ProfileFiles& profiles, const Settings& settings) {
  const std::u16string& file = settings.SettingsPath;
  EditorPosition position;
  position.ticks.enableAfterDownload =
      profiles.ReadInteger(file, kMiscellaneous, u"EnableJoystick", 1) == 1;
  position.ticks.ignoreRunApp =
      profiles.ReadInteger(file, kMiscellaneous, u"RunAppsWithDownload", 0) == 1;
  WindowPlacement& placement = position.placement;
  placement.top = ReadCoordinate(profiles, file, u"EditorTopAtStartup", 0);
  placement.left = ReadCoordinate(profiles, file, u"EditorLeftAtStartup", 0);
  placement.width = ReadCoordinate(profiles, file, u"EditorWidthAtStartup", 13320);
  placement.height = ReadCoordinate(profiles, file, u"EditorHeightAtStartup", 8895);
  const bool maximised = profiles.ReadInteger(file, kMiscellaneous, u"EditorWindowstate", 2) != 0;
  placement.state = maximised ? WindowState::kMaximised : WindowState::kNormal;
  return position;
}

bool SaveEditorPosition(ProfileFiles& profiles, const Settings& settings,
                        const EditorPosition& position, std::pair<float, float> screen) {
  std::vector<ProfileText> texts;
  const auto write = [&](std::u16string_view key, const std::u16string& value) {
    texts.push_back({std::u16string(key), value});
  };
  write(u"IndentSpaces", Decimal(settings.IndentSpaces));
  write(u"MaxPreviousFiles", Decimal(settings.MaxPreviousFiles));
  write(u"IndentAsWell", Decimal(settings.IndentAsWell == 1 ? 1 : 0));
  write(u"EnableJoystick", Decimal(position.ticks.enableAfterDownload ? 1 : 0));
  write(u"RunAppsWithDownload", Decimal(position.ticks.ignoreRunApp ? 1 : 0));

  const WindowPlacement& placement = position.placement;
  if (placement.state != WindowState::kMinimised) {
    write(u"EditorTopAtStartup", FormatNumber(std::max(placement.top, 0.0F)));
    write(u"EditorLeftAtStartup", FormatNumber(std::max(placement.left, 0.0F)));
    write(u"EditorWidthAtStartup", FormatNumber(std::min(placement.width, screen.first)));
    write(u"EditorHeightAtStartup", FormatNumber(std::min(placement.height, screen.second)));
    write(u"EditorWindowstate", Decimal(static_cast<int>(placement.state)));
  }
  return profiles.WriteTexts(settings.SettingsPath, kMiscellaneous, texts);
}

}  // namespace deck
