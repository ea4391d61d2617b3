// Every key of every INI file with values that nobody would write: the editor comes up, works and
// ends, and nothing that was typed is lost.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

struct Key {
  std::u16string file;
  std::u16string section;
  std::u16string name;

  friend void PrintTo(const Key& key, std::ostream* stream) {
    *stream << testing::PrintToString(key.name);
  }
};

std::vector<Key> AllKeys() {
  struct Section {
    std::u16string file;
    std::u16string name;
    std::vector<std::u16string> keys;
  };
  const std::vector<Section> sections = {
      {kOwnIni,
       u"Unsupported",
       {u"MacroFrameWidth", u"MaxPreviousFiles", u"IndentSpaces", u"IndentAsWell"}},
      {kOwnIni,
       u"Miscellaneous",
       {u"EnableJoystick", u"RunAppsWithDownload", u"EditorTopAtStartup", u"EditorLeftAtStartup",
        u"EditorWidthAtStartup", u"EditorHeightAtStartup", u"EditorWindowstate"}},
      {kOwnIni, u"Previous Files", {u"NumberPreviousFiles", u"PreviousFilePath1"}},
      {kOwnIni,
       u"Online Help",
       {u"InfoWindowTop", u"InfoWindowLeft", u"InfoWindowHeight", u"InfoWindowWidth"}},
      {kHostIni, u"FileLocations", {u"HOTASStatusBarErrors"}},
      {kHostIni, u"Miscellaneous", {u"OKtoShowToolTips", u"AlwaysShowCompileDownload"}},
      {kHostIni,
       u"Unsupported",
       {u"ForeignLanguageKBInputFix", u"UseHLPnotCHM", u"RegainControlAfter",
        u"CheckForCompletionTime"}},
      {kHostIni,
       u"Key Tester",
       {u"KeyTopAtStartup", u"KeyLeftAtStartup", u"KeyWidthAtStartup", u"KeyHeightAtStartup",
        u"ClearDelay", u"KeyViewAll", u"MenuDisplay"}},
      {kHotasIni, u"Compiler", {u"Status", u"LineNumber", u"Memory", u"ErrorCode"}},
      {kHotasIni, u"TMMODE", {u"Status", u"Buttons"}},
  };
  std::vector<Key> keys;
  for (const Section& section : sections) {
    for (const std::u16string& key : section.keys)
      keys.push_back({section.file, section.name, key});
  }
  return keys;
}

const std::vector<std::u16string>& HostileValues() {
  static const std::vector<std::u16string> values = {
      u"-1",
      u"0",
      u"-32769",
      u"32767",
      u"65536",
      u"2147483647",
      u"-2147483648",
      u"99999999999999999999",
      u"-1e39",
      u"nan",
      u"",
      u"two words = ; \"",
      u"%s%n C:\\*?\t\u20AC",
      std::u16string(100'000, u'9'),
      std::u16string(100'000, u'A'),
  };
  return values;
}

// One start of the editor on a machine of its own.
class StartedEditor : public EditorFixture {
 public:
  StartedEditor(const Key& key, const std::u16string& value) {
    profiles.SetText(key.file, u"[" + key.section + u"]\r\n" + key.name + u"=" + value + u"\r\n");
    files.AddFile(kDocument, "BTN S1 X\r\n");
  }
  void TestBody() override {}

  void Work() {
    Start(u"WrenDeck.exe " + kDocument);
    const WindowPlacement placement = view.Placement();
    for (const float twips : {placement.top, placement.left, placement.width, placement.height})
      EXPECT_TRUE(std::isfinite(twips));
    Box().Type(u"rem ");
    editor.Execute(CommandId::kFileSave);
    EXPECT_EQ(files.Content(kDocument), "rem BTN S1 X\r\n");
    editor.Execute(CommandId::kAlignSlashes);
    editor.Execute(CommandId::kKeyTest);
    editor.Execute(CommandId::kHelpSyntax);
    Compile();
    Box().Type(u"more");
    prompts.answers = {Answer::kYes};
    EXPECT_TRUE(editor.QueryUnload());
    editor.Unload();
    EXPECT_NE(files.Content(kDocument).find("more"), std::string::npos);
    EXPECT_TRUE(files.FilesIn(kHostFolder + u"\\Recovery").empty());
  }

 private:
  // A wait that the settings have made endless ends when the user closes the window.
  void Compile() {
    CompilerReports(u"OK", 0, 10, u"");
    events.actions.resize(events.actions.size() + 50, [] {});
    events.actions.emplace_back([this] { EXPECT_TRUE(editor.QueryUnload()); });
    editor.Execute(CommandId::kCompile);
    events.actions.clear();
    editor.StayOpen();
    EXPECT_EQ(editor.Documents().CompilerBusy, 0);
  }

  inline static const std::u16string kDocument = u"C:\\Host\\Files\\a.tmj";
};

class HostileSettings : public testing::TestWithParam<Key> {};

TEST_P(HostileSettings, TheEditorComesUpWorksAndEndsWithNothingLost) {
  for (const std::u16string& value : HostileValues()) {
    SCOPED_TRACE(testing::PrintToString(value.substr(0, 40)));
    StartedEditor editor(GetParam(), value);
    editor.Work();
    if (HasFailure()) break;
  }
}

INSTANTIATE_TEST_SUITE_P(Keys, HostileSettings, testing::ValuesIn(AllKeys()),
                         [](const testing::TestParamInfo<Key>& key) {
                           std::string name;
                           for (const char16_t unit : key.param.section + u"_" + key.param.name)
                             name += unit == u' ' ? '_' : static_cast<char>(unit);
                           return name;
                         });

}  // namespace
}  // namespace deck
