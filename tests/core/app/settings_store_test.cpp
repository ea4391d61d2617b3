#include "app/settings_store.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

constexpr std::u16string_view kOwn = u"C:\\Host\\WrenDeck.ini";
constexpr std::u16string_view kHost = u"C:\\Host\\Wren.ini";

struct SettingsStoreTest : testing::Test {
  void Put(std::u16string_view file, std::u16string_view section, std::u16string_view key,
           std::u16string_view value) {
    ASSERT_TRUE(profiles.WriteText(std::u16string(file), section, key, value));
    profiles.writes.clear();
  }
  void Read() { ReadHostPreferences(profiles, u"C:\\Host", settings); }
  EditorPosition Position() { return GetEditorPosition(profiles, settings); }
  std::u16string Own(std::u16string_view key) {
    return profiles.Value(std::u16string(kOwn), u"Miscellaneous", key);
  }

  FakeProfileFiles profiles;
  Settings settings;
};

TEST_F(SettingsStoreTest, BuildsThePathsFromTheProgramsFolder) {
  Read();
  EXPECT_EQ(settings.SettingsPath, kOwn);
  EXPECT_EQ(settings.HostPath, kHost);
  EXPECT_EQ(settings.CompilerFolder, u"C:\\Host\\");
  EXPECT_EQ(settings.CompilerPath, u"C:\\Host\\HOTASCompiler.exe");
  EXPECT_EQ(settings.FilesFolder, u"C:\\Host\\Files\\");
}

TEST_F(SettingsStoreTest, HasDefaultsWithoutAnyFile) {
  Read();
  EXPECT_EQ(settings.StatusBarErrors, 0);
  EXPECT_EQ(settings.ShowToolTips, 1);
  EXPECT_EQ(settings.AlwaysShowCompileDownload, 0);
  EXPECT_EQ(settings.ForeignKeyboardFix, 0);
  EXPECT_EQ(settings.PreferHlpHelp, 0);
  EXPECT_EQ(settings.MacroFrameWidth, 300);
  EXPECT_EQ(settings.MaxPreviousFiles, 30);
  EXPECT_EQ(settings.IndentSpaces, 5);
  EXPECT_EQ(settings.IndentAsWell, 0);
  EXPECT_TRUE(profiles.writes.empty()) << "reading writes nothing";
}

TEST_F(SettingsStoreTest, ReadsTheHostsPreferences) {
  Put(kHost, u"FileLocations", u"HOTASStatusBarErrors", u"1");
  Put(kHost, u"Miscellaneous", u"OKtoShowToolTips", u"0");
  Put(kHost, u"Miscellaneous", u"AlwaysShowCompileDownload", u"1");
  Put(kHost, u"Unsupported", u"ForeignLanguageKBInputFix", u"2");
  Put(kHost, u"Unsupported", u"UseHLPnotCHM", u"3");
  Read();
  EXPECT_EQ(settings.StatusBarErrors, 1);
  EXPECT_EQ(settings.ShowToolTips, 0);
  EXPECT_EQ(settings.AlwaysShowCompileDownload, 1);
  EXPECT_EQ(settings.ForeignKeyboardFix, 2);
  EXPECT_EQ(settings.PreferHlpHelp, 3);
}

TEST_F(SettingsStoreTest, ReadsItsOwnValuesFromUnsupportedAndNotWhereTheyAreWritten) {
  for (const std::u16string_view key :
       {u"MacroFrameWidth", u"MaxPreviousFiles", u"IndentSpaces", u"IndentAsWell"}) {
    Put(kOwn, u"Miscellaneous", key, u"7");
  }
  Read();
  EXPECT_EQ(settings.MacroFrameWidth, 300);
  EXPECT_EQ(settings.MaxPreviousFiles, 30);
  EXPECT_EQ(settings.IndentSpaces, 5);
  EXPECT_EQ(settings.IndentAsWell, 0);
  Put(kOwn, u"Unsupported", u"MacroFrameWidth", u"200");
  Put(kOwn, u"Unsupported", u"MaxPreviousFiles", u"4");
  Put(kOwn, u"Unsupported", u"IndentSpaces", u"-2");
  Put(kOwn, u"Unsupported", u"IndentAsWell", u"1");
  Read();
  EXPECT_EQ(settings.MacroFrameWidth, 200);
  EXPECT_EQ(settings.MaxPreviousFiles, 4);
  EXPECT_EQ(settings.IndentSpaces, -2);
  EXPECT_EQ(settings.IndentAsWell, 1);
}

TEST_F(SettingsStoreTest, ReadsNumbersAsTheSystemDoesAndKeepsTheDefaultBeyond16Bits) {
  struct Case {
    std::u16string_view text;
    int value;
  };
  for (const Case& c :
       {Case{u"12abc", 12}, Case{u"abc", 0}, Case{u"", 5}, Case{u"-1", -1}, Case{u"32767", 32767},
        Case{u"32768", 5}, Case{u"-32768", -32768}, Case{u"-32769", 5}, Case{u"70000", 5}}) {
    settings = {};
    Put(kOwn, u"Unsupported", u"IndentSpaces", c.text);
    Read();
    EXPECT_EQ(settings.IndentSpaces, c.value);
  }
}

TEST_F(SettingsStoreTest, WantsASingleInstanceForExactlyOneUnderUnsupportedOnly) {
  EXPECT_FALSE(WantsSingleInstance(profiles, u"C:\\Host"));
  Put(kOwn, u"Miscellaneous", u"SingleInstance", u"1");
  Put(kHost, u"Unsupported", u"SingleInstance", u"1");
  EXPECT_FALSE(WantsSingleInstance(profiles, u"C:\\Host"));
  for (const std::u16string_view other : {u"0", u"2", u"-1", u"yes", u"65537"}) {
    Put(kOwn, u"Unsupported", u"SingleInstance", other);
    EXPECT_FALSE(WantsSingleInstance(profiles, u"C:\\Host"));
  }
  Put(kOwn, u"Unsupported", u"SingleInstance", u"1");
  EXPECT_TRUE(WantsSingleInstance(profiles, u"C:\\Host"));
  EXPECT_FALSE(WantsSingleInstance(profiles, u"C:\\Other"));
}

TEST_F(SettingsStoreTest, OpensMaximisedAtTheFirstStart) {
  Read();
  const EditorPosition position = Position();
  EXPECT_EQ(position.placement, (WindowPlacement{0, 0, 13320, 8895, WindowState::kMaximised}));
  EXPECT_TRUE(position.ticks.enableAfterDownload);
  EXPECT_FALSE(position.ticks.ignoreRunApp);
}

TEST_F(SettingsStoreTest, TicksOnlyForExactlyOne) {
  Read();
  for (const auto& [text, ticked] :
       {std::pair{u"1", true}, {u"2", false}, {u"0", false}, {u"-1", false}, {u"x", false}}) {
    Put(kOwn, u"Miscellaneous", u"EnableJoystick", text);
    Put(kOwn, u"Miscellaneous", u"RunAppsWithDownload", text);
    EXPECT_EQ(Position().ticks, (DownloadTicks{ticked, ticked}));
  }
}

TEST_F(SettingsStoreTest, AnyStateButZeroIsMaximised) {
  Read();
  for (const auto& [text, state] : {std::pair{u"0", WindowState::kNormal},
                                    {u"1", WindowState::kMaximised},
                                    {u"2", WindowState::kMaximised},
                                    {u"-5", WindowState::kMaximised}}) {
    Put(kOwn, u"Miscellaneous", u"EditorWindowstate", text);
    EXPECT_EQ(Position().placement.state, state);
  }
}

TEST_F(SettingsStoreTest, ReadsCoordinatesAsNumbersAndTheDefaultWithoutOne) {
  Read();
  struct Case {
    std::u16string_view text;
    float width;
  };
  for (const Case& c :
       {Case{u"1000.5", 1000.5F}, Case{u"-20", -20}, Case{u"+20", 20}, Case{u"20 twips", 20},
        Case{u"1e4", 10000}, Case{u"wide", 13320}, Case{u"", 13320}, Case{u"inf", 13320},
        Case{u"nan", 13320}, Case{u"1e99", 13320}, Case{u"\u0661", 13320}}) {
    Put(kOwn, u"Miscellaneous", u"EditorWidthAtStartup", c.text);
    EXPECT_EQ(Position().placement.width, c.width);
  }
}

TEST_F(SettingsStoreTest, WritesEverythingInItsOrder) {
  Read();
  settings.IndentSpaces = 8;
  settings.IndentAsWell = 1;
  ASSERT_TRUE(SaveEditorPosition(profiles, settings,
                                 {{false, true}, {100.5F, 200, 9000, 6000, WindowState::kNormal}},
                                 {19200, 15360}));
  std::vector<std::pair<std::u16string, std::u16string>> written;
  for (const auto& write : profiles.writes) {
    EXPECT_EQ(write.file, kOwn);
    EXPECT_EQ(write.section, u"Miscellaneous");
    written.emplace_back(write.key, write.value);
  }
  EXPECT_EQ(written, (decltype(written){{u"IndentSpaces", u"8"},
                                        {u"MaxPreviousFiles", u"30"},
                                        {u"IndentAsWell", u"1"},
                                        {u"EnableJoystick", u"0"},
                                        {u"RunAppsWithDownload", u"1"},
                                        {u"EditorTopAtStartup", u"200"},
                                        {u"EditorLeftAtStartup", u"100.5"},
                                        {u"EditorWidthAtStartup", u"9000"},
                                        {u"EditorHeightAtStartup", u"6000"},
                                        {u"EditorWindowstate", u"0"}}));
}

TEST_F(SettingsStoreTest, CorrectsNegativePlacesAndSizesOverTheScreenOnly) {
  Read();
  ASSERT_TRUE(SaveEditorPosition(
      profiles, settings, {{}, {-200, -1, 30000, 20000, WindowState::kMaximised}}, {19200, 15360}));
  EXPECT_EQ(Own(u"EditorTopAtStartup"), u"0");
  EXPECT_EQ(Own(u"EditorLeftAtStartup"), u"0");
  EXPECT_EQ(Own(u"EditorWidthAtStartup"), u"19200");
  EXPECT_EQ(Own(u"EditorHeightAtStartup"), u"15360");
  EXPECT_EQ(Own(u"EditorWindowstate"), u"2");
  ASSERT_TRUE(SaveEditorPosition(
      profiles, settings, {{}, {50000, 40000, 10, 10, WindowState::kNormal}}, {19200, 15360}));
  EXPECT_EQ(Own(u"EditorLeftAtStartup"), u"50000");
  EXPECT_EQ(Own(u"EditorTopAtStartup"), u"40000");
  EXPECT_EQ(Own(u"EditorWidthAtStartup"), u"10");
}

TEST_F(SettingsStoreTest, AMinimisedWindowLeavesThePlaceButWritesTheValues) {
  Read();
  ASSERT_TRUE(SaveEditorPosition(profiles, settings, {{}, {1, 2, 3, 4, WindowState::kMinimised}},
                                 {19200, 15360}));
  EXPECT_EQ(profiles.writes.size(), 5u);
  EXPECT_EQ(Own(u"EditorTopAtStartup"), u"");
  EXPECT_EQ(Own(u"EditorWindowstate"), u"");
  EXPECT_EQ(Own(u"IndentSpaces"), u"5");
}

TEST_F(SettingsStoreTest, WritesZeroOrOneForTheIndentTick) {
  Read();
  settings.IndentAsWell = 2;
  ASSERT_TRUE(SaveEditorPosition(profiles, settings, {}, {19200, 15360}));
  EXPECT_EQ(Own(u"IndentAsWell"), u"0");
}

TEST_F(SettingsStoreTest, TellsThatNothingCouldBeWritten) {
  Read();
  profiles.writable = false;
  EXPECT_FALSE(SaveEditorPosition(profiles, settings, {}, {19200, 15360}));
}

TEST_F(SettingsStoreTest, WritesADecimalPointInEveryLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"}) {
    // A locale that is not installed leaves the one before: the result has to hold all the same.
    static_cast<void>(std::setlocale(LC_ALL, locale));
    EXPECT_EQ(FormatNumber(1234.5F), u"1234.5");
    EXPECT_EQ(ParseNumber(u"1234.5", 0), 1234.5F);
  }
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(FormatNumber(std::numeric_limits<float>::max()).find(u'e'), std::u16string::npos);
}

}  // namespace
}  // namespace deck
