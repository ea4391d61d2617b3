#include "macros/macro_panel.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "documents/layout.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_macro_panel_view.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

using Texts = std::vector<std::u16string>;

// Remembers every text that the message panel has shown.
class RecordingWindow : public FakeMainWindowView {
 public:
  void SetPanel(int panel, const std::u16string& text) override {
    FakeMainWindowView::SetPanel(panel, text);
    if (panel == kMessagePanel) messages.push_back(text);
  }

  Texts messages;
};

// Counts how often the list was filled.
class CountingPanelView : public FakeMacroPanelView {
 public:
  void ShowMacros(const std::vector<std::u16string>& names) override {
    FakeMacroPanelView::ShowMacros(names);
    if (!names.empty()) ++fills;
  }

  int fills = 0;
};

const std::u16string kMacroFile = u"C:\\Cougar\\jet.tmm";
const std::u16string kJoystickFile = u"C:\\Cougar\\jet.tmj";
constexpr std::string_view kMacros =
    "EARLY = e\r\n"
    "rem -----\r\nrem WEAPONS\r\nrem -----\r\n"
    "FIRE =\tSPC\r\nMISSILE = ENT\r\nGLUED= x\r\n"
    "rem -----\r\nrem VIEWS\r\nrem -----\r\n"
    "PADLOCK = F4\r\n";
const Texts kAllMacros = {u"EARLY", u"FIRE", u"MISSILE", u"GLUED", u"PADLOCK"};
const Texts kWeapons = {u"FIRE", u"MISSILE", u"GLUED"};
constexpr int kEarly = 0;  // in the list of all macros
constexpr int kFire = 1;
constexpr int kMissile = 2;
constexpr int kGlued = 3;

const std::u16string kOpening = u"Opening jet.tmm file for analysis ";
const std::u16string kAnalysing = u"Analysing jet.tmm for macros and sub-headings. Please wait ...";
const std::u16string kHeadingHint = u"Select a macro heading to view the macros under it";

class MacroPanelTest : public testing::Test {
 protected:
  MacroPanelTest() {
    settings.SettingsPath = u"C:\\Deck\\WrenDeck.ini";
    files.AddFile(kMacroFile, kMacros);
    documents.Add();
    macros.links.openBehind = [this](const std::u16string& path) {
      opened.push_back(path);
      return !saysNo;
    };
    macros.links.save = [this] {
      ++saves;
      if (onSave) onSave();
      return saveWorks;
    };
  }

  // A further document with its tab, current from now on.
  Document& Open(const std::u16string& path, std::u16string_view text) {
    Document& document = documents.Add();
    documents.Rename(documents.CurrentIndex(), path);
    document.text1->Load(text);
    return document;
  }

  FakeEditBox& Box() { return static_cast<FakeEditBox&>(documents.GetCurrentTextBox()); }

  std::u16string SelectedText() {
    const TextSpan span = Box().Selection();
    return Box().Text().substr(static_cast<std::size_t>(span.start),
                               static_cast<std::size_t>(span.length));
  }

  // What a user's double click on an entry of the list reports.
  void DoubleClick(int index) {
    macros.OnMacroClicked(index);
    macros.OnMacroDoubleClicked(index);
  }

  // The message panel's texts since the last call.
  Texts TakeMessages() { return std::exchange(window.messages, {}); }

  void ExpectNoMacroFile() {
    EXPECT_EQ(view.headings, Texts{});
    EXPECT_EQ(view.selectedHeading, -1);
    EXPECT_EQ(view.macros, Texts{});
    EXPECT_EQ(window.Panel(kMacroFilePanel), u"No macro file analysed");
    EXPECT_EQ(window.PanelToolTip(kMacroFilePanel), u"");
    EXPECT_EQ(macros.MacroFilePath(), u"");
    EXPECT_EQ(macros.List(), MacroList());
  }

  void ExpectJetMacros() {
    EXPECT_EQ(view.headings, (Texts{u"All", u"Weapons", u"Views"}));
    EXPECT_EQ(view.macros, kAllMacros);
    EXPECT_EQ(window.Panel(kMacroFilePanel), u"jet.tmm");
    EXPECT_EQ(macros.MacroFilePath(), kMacroFile);
  }

  FakeFiles files;
  FakeCodePage codePage;
  FakePrompts prompts;
  FakeProfileFiles profiles;
  FakeKeyboard keyboard;
  RecordingWindow window;
  CountingPanelView view;
  Settings settings;
  StatusBar status{window};
  DocumentSet documents{window, status, keyboard, settings};
  MacroPanel macros{
      documents, status, settings, {files, codePage, prompts, profiles, window, view}};

  Texts opened;
  bool saysNo = false;
  int saves = 0;
  bool saveWorks = true;
  std::function<void()> onSave;
};

// Analysing.

using Analyse = MacroPanelTest;

TEST_F(Analyse, TellsItsStepsInTheMessagePanel) {
  macros.Analyse(kMacroFile);
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done"}));
}

TEST_F(Analyse, ShowsHeadingsWithAllChosenAndEveryMacro) {
  macros.Analyse(kMacroFile);
  ExpectJetMacros();
  EXPECT_EQ(view.selectedHeading, 0);
}

TEST_F(Analyse, NamesTheFileInPanel8AndCountsInItsToolTip) {
  macros.Analyse(kMacroFile);
  EXPECT_EQ(window.Panel(8), u"jet.tmm");
  EXPECT_EQ(window.PanelToolTip(8), u"Contains 5 macros and 2 macro headings");
}

TEST_F(Analyse, CountsWithoutSingularOrAll) {
  files.AddFile(kMacroFile, "rem only\nrem comments\n");
  macros.Analyse(kMacroFile);
  EXPECT_EQ(window.PanelToolTip(8), u"Contains 0 macros and 0 macro headings");
  EXPECT_EQ(view.headings, Texts{u"All"});
  EXPECT_EQ(view.macros, Texts{});

  files.AddFile(kMacroFile, "rem --\nrem x\nrem --\nFIRE = SPC\n");
  macros.Analyse(kMacroFile);
  EXPECT_EQ(window.PanelToolTip(8), u"Contains 1 macros and 1 macro headings");
}

TEST_F(Analyse, ReadsTheFileOnDiskAndNotTheOpenDocument) {
  Open(kMacroFile, u"TYPED = t\n");
  macros.Analyse(kMacroFile);
  EXPECT_EQ(view.macros, kAllMacros);
}

TEST_F(Analyse, ReadsEveryEncoding) {
  const struct {
    std::string_view bytes;
    std::u16string_view name;
  } cases[] = {
      {"H\xF6he = F9\r\n", u"Höhe"},
      {"H\xC3\xB6he = F9\n", u"Höhe"},
      {"\xEF\xBB\xBFHöhe = F9", u"Höhe"},
      {std::string_view("\xFF\xFEH\0 \0=\0x\0", 10), u"H"},
      {std::string_view("\xFE\xFF\0H\0 \0=\0x", 10), u"H"},
  };
  for (const auto& [bytes, name] : cases) {
    files.AddFile(kMacroFile, bytes);
    macros.Analyse(kMacroFile);
    EXPECT_EQ(view.macros, Texts{std::u16string(name)});
  }
}

TEST_F(Analyse, LeavesEmptyListsAndSaysNothingWithoutAFile) {
  files.AddFolder(u"C:\\Cougar\\folder.tmm");
  for (const std::u16string& path :
       {std::u16string(u"C:\\Cougar\\gone.tmm"), std::u16string(u"C:\\Cougar\\folder.tmm"),
        std::u16string(u"C:\\Cougar\\*.tmm"), std::u16string()}) {
    macros.Analyse(kMacroFile);
    TakeMessages();
    macros.Analyse(path);
    EXPECT_EQ(TakeMessages(), Texts{});
    EXPECT_TRUE(prompts.shown.empty());
    ExpectNoMacroFile();
  }
}

TEST_F(Analyse, TreatsAFileThatCannotBeReadLikeAMissingOne) {
  macros.Analyse(kMacroFile);
  status.Say(u"Editing jet.tmj");
  files.Fail(FileOperation::kRead, kMacroFile);
  macros.Analyse(kMacroFile);
  EXPECT_EQ(status.Message(), u"Editing jet.tmj");
  EXPECT_TRUE(prompts.shown.empty());
  ExpectNoMacroFile();
}

TEST_F(Analyse, TreatsAFileWithNulBytesLikeAMissingOne) {
  macros.Analyse(kMacroFile);
  status.Say(u"Editing jet.tmj");
  files.AddFile(kMacroFile, std::string_view("FIRE = x\0", 9));
  macros.Analyse(kMacroFile);
  EXPECT_EQ(status.Message(), u"Editing jet.tmj");
  EXPECT_TRUE(prompts.shown.empty());
  ExpectNoMacroFile();
}

TEST_F(Analyse, DoesNotFillTheListAgainForTheSameFile) {
  macros.Analyse(kMacroFile);
  macros.OnHeadingChosen(1);
  const int fills = view.fills;
  TakeMessages();
  macros.Analyse(kMacroFile);
  EXPECT_EQ(view.fills, fills);
  EXPECT_EQ(view.macros, kWeapons);
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done"}));
  EXPECT_EQ(window.PanelToolTip(8), u"Contains 5 macros and 2 macro headings");
}

TEST_F(Analyse, FillsTheListAgainWhenTheFileHasChanged) {
  macros.Analyse(kMacroFile);
  macros.OnHeadingChosen(2);
  files.AddFile(kMacroFile, "OTHER = o\r\n");
  macros.Analyse(kMacroFile);
  EXPECT_EQ(view.headings, Texts{u"All"});
  EXPECT_EQ(view.selectedHeading, 0);
  EXPECT_EQ(view.macros, Texts{u"OTHER"});
}

TEST_F(Analyse, FillsTheListAgainForAnotherFileWithTheSameText) {
  files.AddFile(u"C:\\Cougar\\copy.tmm", kMacros);
  macros.Analyse(kMacroFile);
  macros.Analyse(u"C:\\Cougar\\copy.tmm");
  EXPECT_EQ(view.fills, 2);
  EXPECT_EQ(window.Panel(8), u"copy.tmm");
}

TEST_F(Analyse, FillsTheListAgainAfterItWasCleared) {
  macros.Analyse(kMacroFile);
  macros.Clear();
  macros.Analyse(kMacroFile);
  ExpectJetMacros();
}

TEST_F(Analyse, ForgetsTheChosenMacroOfTheFormerFile) {
  macros.Analyse(kMacroFile);
  macros.OnMacroClicked(kFire);
  files.AddFile(kMacroFile, "FIRE = other\n");
  macros.Analyse(kMacroFile);
  EXPECT_EQ(macros.ChosenMacro(), u"");
  macros.OnListKey();
  EXPECT_EQ(status.Message(), u"Done");
}

TEST_F(Analyse, TakesThePathOfTheFileAnalysedNow) {
  macros.Analyse(kMacroFile);
  files.AddFile(kMacroFile, "OTHER = o\r\n");
  macros.Analyse(macros.MacroFilePath());
  EXPECT_EQ(view.macros, Texts{u"OTHER"});
  EXPECT_EQ(macros.MacroFilePath(), kMacroFile);
}

TEST_F(Analyse, ManyMacrosAreAllListed) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) text += "MACRO_" + std::to_string(i) + " = x\r\n";
  files.AddFile(kMacroFile, text);
  macros.Analyse(kMacroFile);
  EXPECT_EQ(view.macros.size(), 20'000u);
  EXPECT_EQ(view.macros.back(), u"MACRO_19999");
}

TEST_F(MacroPanelTest, ClearEmptiesListsAndSaysThatNoMacroFileIsAnalysed) {
  macros.Analyse(kMacroFile);
  macros.Clear();
  ExpectNoMacroFile();
}

TEST_F(MacroPanelTest, ClearAllForNewMacroFileEmptiesListsOnly) {
  macros.Analyse(kMacroFile);
  macros.ClearAllForNewMacroFile();
  EXPECT_EQ(view.headings, Texts{});
  EXPECT_EQ(view.macros, Texts{});
  EXPECT_EQ(macros.List(), MacroList());
  EXPECT_EQ(window.Panel(8), u"jet.tmm");
}

// Finding the macro file of a joystick file that was just opened.

class DetectMacroFile : public MacroPanelTest {
 protected:
  void Detect(std::u16string_view extension = u"tmj") {
    macros.DetectMacroFile(extension, u"C:\\Cougar\\");
  }
};

TEST_F(DetectMacroFile, OpensTheFileNamedRelativeToTheFolder) {
  Open(kJoystickFile, u"rem jet\nUSE MDEF jet\nBTN S2 FIRE \n");
  Detect();
  EXPECT_EQ(opened, Texts{kMacroFile});
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(DetectMacroFile, LeavesTheAnalysisToTheOpenCommand) {
  Open(kJoystickFile, u"USE MDEF jet\n");
  Detect();
  EXPECT_EQ(TakeMessages(), Texts{});
  EXPECT_EQ(view.macros, Texts{});
}

TEST_F(DetectMacroFile, SearchesInAnyCaseAndTakesTheLastStatement) {
  Open(kJoystickFile, u"USE MDEF other\nrem use mdef jet\n");
  Detect();
  EXPECT_EQ(opened, Texts{kMacroFile});
}

TEST_F(DetectMacroFile, LooksForTheExtensionThatBelongsToTheJoystickFile) {
  const struct {
    std::u16string_view extension;
    std::u16string path;
  } cases[] = {
      {u"tmj", u"C:\\Cougar\\mine.tmm"},
      {u"f22", u"C:\\Cougar\\mine.m22"},
      {u"b50", u"C:\\Cougar\\mine.m50"},
  };
  for (const auto& [extension, path] : cases) files.AddFile(path, "");
  for (const auto& [extension, path] : cases) {
    opened.clear();
    Open(u"C:\\Cougar\\a." + std::u16string(extension), u"USE MDEF mine");
    Detect(extension);
    EXPECT_EQ(opened, Texts{path});
  }
}

TEST_F(DetectMacroFile, TakesANameWithADotAsItStands) {
  files.AddFile(u"C:\\Cougar\\my.set", "");
  Open(kJoystickFile, u"USE MDEF my.set");
  Detect();
  EXPECT_EQ(opened, Texts{u"C:\\Cougar\\my.set"});
}

TEST_F(DetectMacroFile, LeavesTheSelectionOnTheName) {
  Open(kJoystickFile, u"BTN S2 FIRE \nUSE MDEF jet\n");
  Detect();
  EXPECT_EQ(Box().Selection(), (TextSpan{22, 3}));
  EXPECT_EQ(SelectedText(), u"jet");
}

TEST_F(DetectMacroFile, LeavesTheSelectionOnANameWithoutAFile) {
  Open(kJoystickFile, u"USE MDEF nothing here\n");
  Detect();
  EXPECT_EQ(SelectedText(), u"nothing here");
}

TEST_F(DetectMacroFile, StopsSilentlyWithoutTheStatementBeforeTheExtensionCounts) {
  Open(kJoystickFile, u"BTN S2 FIRE \n");
  Box().Select({3, 2});
  Detect(u"txt");
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(Box().Selection(), (TextSpan{3, 2}));
}

TEST_F(DetectMacroFile, RefusesAnUnknownExtensionWithABox) {
  Open(u"C:\\Cougar\\jet.txt", u"USE MDEF jet\n");
  Detect(u"txt");
  EXPECT_EQ(
      prompts.shown,
      (std::vector<Message>{{u"Original file extension unrecognised so I can't detect a macro file",
                             u"Unable to detect macro file", static_cast<BoxStyle>(16)}}));
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(SelectedText(), u"jet");
}

TEST_F(DetectMacroFile, StopsSilentlyWhenNoSuchFileExists) {
  files.AddFolder(u"C:\\Cougar\\folder.tmm");
  files.AddFile(u"C:\\x\\m.tmm", kMacros);
  for (const std::u16string_view name :
       {u"gone", u" jet", u"jet rem the good ones", u"\"jet\"", u"jet ", u"*", u"je?", u"folder",
        u"C:\\x\\m", u"C:\\x\\m.tmm", u""}) {
    Open(kJoystickFile, u"USE MDEF " + std::u16string(name) + u"\nBTN S2 FIRE \n");
    Detect();
    EXPECT_TRUE(opened.empty()) << std::string(name.begin(), name.end());
    EXPECT_TRUE(prompts.shown.empty());
  }
  EXPECT_EQ(TakeMessages(), Texts{});
}

TEST_F(DetectMacroFile, NeverTakesTheNextLineForTheName) {
  Open(kJoystickFile, u"USE MDEF\njet\n");
  Detect();
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 0}));
}

TEST_F(DetectMacroFile, IgnoresBlanksBehindANameWithItsExtension) {
  Open(kJoystickFile, u"USE MDEF jet.tmm   \n");
  Detect();
  EXPECT_EQ(opened, Texts{kMacroFile});
}

TEST_F(DetectMacroFile, HandsOverOneFormOfThePath) {
  files.AddFile(kJoystickFile, "");
  const struct {
    std::u16string_view name;
    std::u16string path;
  } cases[] = {
      {u".\\jet.tmj", kJoystickFile},
      {u"..\\Cougar\\.\\jet.tmm", kMacroFile},
      {u"sub\\..\\jet.tmm", kMacroFile},
  };
  files.AddFolder(u"C:\\Cougar\\sub");
  for (const auto& [name, path] : cases) {
    opened.clear();
    Open(kJoystickFile, u"USE MDEF " + std::u16string(name));
    Detect();
    EXPECT_EQ(opened, Texts{path});
  }
}

TEST_F(DetectMacroFile, WorksOnTheCurrentTab) {
  Open(kJoystickFile, u"USE MDEF gone\n");
  Open(u"C:\\Cougar\\second.tmj", u"USE MDEF jet\n");
  Detect();
  EXPECT_EQ(opened, Texts{kMacroFile});
  documents.Select(1);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
}

TEST_F(DetectMacroFile, AnalysesTheFileWhenItIsOpenAndStaysOnItsTab) {
  Open(kJoystickFile, u"USE MDEF jet\n");
  saysNo = true;
  Detect();
  ExpectJetMacros();
}

TEST_F(DetectMacroFile, KeepsTheMessageOfTheOpenCommandWhenTheMacroFileStaysOnItsTab) {
  Open(kJoystickFile, u"USE MDEF jet\n");
  status.Say(u"jet.tmj successfully opened");
  TakeMessages();
  saysNo = true;
  Detect();
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done", u"jet.tmj successfully opened"}));
}

// A tab was selected.

class RefreshFor : public MacroPanelTest {
 protected:
  void Refresh() { macros.RefreshFor(documents.Current()); }
};

TEST_F(RefreshFor, MacroFileShowsThePanelAndItsMacros) {
  Open(kMacroFile, u"");
  Refresh();
  EXPECT_TRUE(macros.IsShown());
  EXPECT_EQ(window.macroFrameWidth, 300);
  ExpectJetMacros();
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done"}));
}

TEST_F(RefreshFor, MacroFilesOfTheOldFormatsCountToo) {
  for (const std::u16string_view path : {u"C:\\Old\\a.m22", u"C:\\Old\\a.M50"}) {
    files.AddFile(std::u16string(path), kMacros);
    Open(std::u16string(path), u"");
    Refresh();
    EXPECT_EQ(macros.MacroFilePath(), path);
  }
}

TEST_F(RefreshFor, ModifiedMacroFileIsReadFromDiskWithoutAQuestion) {
  Document& document = Open(kMacroFile, u"");
  Box().Type(u"TYPED = t\n");
  ASSERT_EQ(document.modifiedFlag, 1);
  Refresh();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(saves, 0);
  EXPECT_EQ(view.macros, kAllMacros);
}

TEST_F(RefreshFor, DoesNotLayOutAgainWhenThePanelIsShownAlready) {
  Open(kMacroFile, u"");
  Refresh();
  const int positionings = window.positionings;
  Refresh();
  EXPECT_EQ(window.positionings, positionings);
}

TEST_F(RefreshFor, JoystickFileShowsTheMacrosOfItsFileInAHiddenPanelToo) {
  Open(kJoystickFile, u"BTN S2 FIRE \nUSE MDEF jet\n");
  Refresh();
  ExpectJetMacros();
  EXPECT_FALSE(macros.IsShown());
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done"}));
}

TEST_F(RefreshFor, JoystickFileIsNeitherAskedAboutNorMoved) {
  Open(kJoystickFile, u"BTN S2 FIRE \nUSE MDEF jet\n");
  Box().Select({4, 2});
  Refresh();
  EXPECT_TRUE(opened.empty());
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 2}));
  EXPECT_EQ(documents.Count(), 2);
}

TEST_F(RefreshFor, JoystickFilesOfTheOldFormatsNameTheirOwnKindOfMacroFile) {
  files.AddFile(u"C:\\Old\\mine.m22", "A = 1\n");
  files.AddFile(u"C:\\Old\\mine.m50", "B = 2\n");
  Open(u"C:\\Old\\a.F22", u"USE MDEF mine");
  Refresh();
  EXPECT_EQ(view.macros, Texts{u"A"});
  Open(u"C:\\Old\\a.b50", u"USE MDEF mine");
  Refresh();
  EXPECT_EQ(view.macros, Texts{u"B"});
}

TEST_F(RefreshFor, ReadsTheStatementAsItStandsInTheTextNow) {
  files.AddFile(u"C:\\Cougar\\new.tmm", "NEW = n\n");
  Open(kJoystickFile, u"USE MDEF jet\n");
  Box().Select({Box().Length(), 0});
  Box().Type(u"USE MDEF new\n");
  Refresh();
  EXPECT_EQ(view.macros, Texts{u"NEW"});
}

TEST_F(RefreshFor, OtherDocumentsKeepTheList) {
  macros.Analyse(kMacroFile);
  TakeMessages();
  const struct {
    std::u16string path;
    std::u16string_view text;
  } cases[] = {
      {u"", u"USE MDEF other"},
      {u"C:\\Cougar\\notes.txt", u"USE MDEF other"},
      {u"C:\\Cougar\\plain.tmj", u"BTN S2 FIRE "},
      {u"C:\\Cougar\\lost.tmj", u"USE MDEF gone"},
      {u"C:\\Cougar\\nameless.tmj", u"USE MDEF\nother"},
  };
  files.AddFile(u"C:\\Cougar\\other.tmm", "OTHER = o\n");
  for (const auto& [path, text] : cases) {
    Open(path, text);
    Refresh();
    ExpectJetMacros();
    EXPECT_EQ(TakeMessages(), Texts{});
  }
}

TEST_F(RefreshFor, ComingBackToAJoystickFileDoesNotFillTheListAgain) {
  Open(kJoystickFile, u"USE MDEF jet\n");
  Refresh();
  Open(u"C:\\Cougar\\notes.txt", u"");
  Refresh();
  documents.Select(1);
  Refresh();
  EXPECT_EQ(view.fills, 1);
}

TEST_F(RefreshFor, MacroFileThatIsGoneLeavesAnEmptyPanel) {
  macros.Analyse(kMacroFile);
  Open(u"C:\\Cougar\\gone.tmm", u"A = 1\n");
  Refresh();
  ExpectNoMacroFile();
}

// Showing and hiding.

TEST_F(MacroPanelTest, ViewMacrosTicksTheCommandAndLaysOutWithTheWidth) {
  settings.MacroFrameWidth = 240;
  macros.ViewMacros(true);
  EXPECT_EQ(window.commands.at(CommandId::kViewMacros),
            (CommandState{.enabled = true, .checked = true, .caption = u"View &macros"}));
  EXPECT_EQ(window.macroFrameWidth, 240);
  EXPECT_EQ(macros.FrameWidth(), 240);

  macros.ViewMacros(false);
  EXPECT_EQ(window.commands.at(CommandId::kViewMacros),
            (CommandState{.enabled = true, .checked = false, .caption = u"View &macros"}));
  EXPECT_EQ(window.macroFrameWidth, 0);
  EXPECT_EQ(macros.FrameWidth(), 0);
}

TEST_F(MacroPanelTest, ToggleViewMacrosTurnsThePanelOnAndOff) {
  EXPECT_FALSE(macros.IsShown());
  macros.ToggleViewMacros();
  EXPECT_TRUE(macros.IsShown());
  EXPECT_EQ(window.macroFrameWidth, 300);
  macros.ToggleViewMacros();
  EXPECT_FALSE(macros.IsShown());
  EXPECT_EQ(window.macroFrameWidth, 0);
}

TEST_F(MacroPanelTest, PanelWithoutAMacroFileIsEmpty) {
  macros.Clear();
  macros.ToggleViewMacros();
  ExpectNoMacroFile();
}

TEST_F(MacroPanelTest, ListStaysWhileThePanelIsHidden) {
  macros.ShowMacrosOf(kMacroFile);
  macros.ToggleViewMacros();
  ExpectJetMacros();
}

TEST_F(MacroPanelTest, ShowMacrosOfShowsAndNeverHides) {
  macros.ShowMacrosOf(kMacroFile);
  EXPECT_TRUE(macros.IsShown());
  macros.ShowMacrosOf(kMacroFile);
  EXPECT_TRUE(macros.IsShown());
  EXPECT_TRUE(window.commands.at(CommandId::kViewMacros).checked);
  ExpectJetMacros();
}

TEST_F(MacroPanelTest, AWidthTooSmallToDragIsShownAtTheMinimum) {
  for (const int width : {-32768, -1, 0, 5}) {
    settings.MacroFrameWidth = static_cast<std::int16_t>(width);
    macros.ViewMacros(true);
    EXPECT_EQ(window.macroFrameWidth, kNarrowestMacroFrame);
  }
}

// Bringing the list up to date.

using UpdateMacroList = MacroPanelTest;

TEST_F(UpdateMacroList, DoesNothingOnOtherFiles) {
  for (const std::u16string_view path : {u"", u"C:\\Cougar\\jet.tmj", u"C:\\Cougar\\a.txt"}) {
    Open(std::u16string(path), u"USE MDEF jet\n");
    Box().Type(u"x");
    macros.UpdateMacroList();
    EXPECT_FALSE(macros.IsShown());
    EXPECT_TRUE(prompts.shown.empty());
    EXPECT_EQ(macros.List(), MacroList());
  }
}

TEST_F(UpdateMacroList, AnalysesAnUnmodifiedMacroFileWithoutAQuestion) {
  Open(kMacroFile, u"");
  macros.UpdateMacroList();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(saves, 0);
  EXPECT_TRUE(macros.IsShown());
  ExpectJetMacros();
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done"}));
}

TEST_F(UpdateMacroList, BuildsTheListAnewAlsoFromAFileThatHasNotChanged) {
  Open(kMacroFile, u"");
  macros.Analyse(kMacroFile);
  macros.OnHeadingChosen(2);
  macros.OnMacroClicked(0);
  ASSERT_EQ(view.macros, Texts{u"PADLOCK"});
  macros.UpdateMacroList();
  ExpectJetMacros();
  EXPECT_EQ(view.selectedHeading, 0);
  EXPECT_EQ(macros.ChosenMacro(), u"");
}

TEST_F(UpdateMacroList, OnlyTheFlag1MeansUnsavedChanges) {
  Open(kMacroFile, u"").modifiedFlag = 2;
  macros.UpdateMacroList();
  EXPECT_TRUE(prompts.shown.empty());
  ExpectJetMacros();
}

TEST_F(UpdateMacroList, LeavesAShownPanelShown) {
  Open(kMacroFile, u"");
  macros.ViewMacros(true);
  macros.UpdateMacroList();
  EXPECT_TRUE(macros.IsShown());
}

TEST_F(UpdateMacroList, AsksBeforeItReadsAModifiedFile) {
  Open(kMacroFile, u"").modifiedFlag = 1;
  prompts.answers = {Answer::kCancel};
  macros.UpdateMacroList();
  EXPECT_EQ(prompts.shown,
            (std::vector<Message>{{u"jet.tmm must be saved first. Do you want to save it now?",
                                   u"Save jet.tmm?", static_cast<BoxStyle>(35)}}));
}

TEST_F(UpdateMacroList, CancelStops) {
  Open(kMacroFile, u"").modifiedFlag = 1;
  prompts.answers = {Answer::kCancel};
  macros.UpdateMacroList();
  EXPECT_EQ(saves, 0);
  EXPECT_FALSE(macros.IsShown());
  EXPECT_EQ(macros.List(), MacroList());
}

TEST_F(UpdateMacroList, NoReadsTheFileAsItIsOnDisk) {
  Open(kMacroFile, u"TYPED = t\n").modifiedFlag = 1;
  prompts.answers = {Answer::kNo};
  macros.UpdateMacroList();
  EXPECT_EQ(saves, 0);
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_TRUE(macros.IsShown());
  ExpectJetMacros();
}

TEST_F(UpdateMacroList, YesSavesFirst) {
  Open(kMacroFile, u"TYPED = t\n").modifiedFlag = 1;
  prompts.answers = {Answer::kYes};
  onSave = [this] {
    files.AddFile(kMacroFile, "TYPED = t\r\n");
    documents.Current().modifiedFlag = 0;
    macros.UpdateMacroList();  // as the save command does for macro files
  };
  macros.UpdateMacroList();
  EXPECT_EQ(saves, 1);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_TRUE(macros.IsShown());
  EXPECT_EQ(view.macros, Texts{u"TYPED"});
  EXPECT_EQ(view.fills, 1);
}

TEST_F(UpdateMacroList, FailedSaveEndsTheCommand) {
  Open(kMacroFile, u"").modifiedFlag = 1;
  prompts.answers = {Answer::kYes};
  saveWorks = false;
  macros.UpdateMacroList();
  EXPECT_EQ(saves, 1);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_FALSE(macros.IsShown());
  EXPECT_EQ(macros.List(), MacroList());
}

TEST_F(UpdateMacroList, FollowsAFileThatWasSavedElsewhere) {
  Open(kMacroFile, u"MOVED = m\n").modifiedFlag = 1;
  prompts.answers = {Answer::kYes};
  onSave = [this] {
    files.AddFile(u"C:\\Mine\\moved.tmm", "MOVED = m\r\n");
    documents.Rename(documents.CurrentIndex(), u"C:\\Mine\\moved.tmm");
  };
  macros.UpdateMacroList();
  EXPECT_EQ(macros.MacroFilePath(), u"C:\\Mine\\moved.tmm");
  EXPECT_EQ(window.Panel(8), u"moved.tmm");
}

// The headings.

class Headings : public MacroPanelTest {
 protected:
  Headings() { macros.Analyse(kMacroFile); }
};

TEST_F(Headings, ChoosingOneShowsTheMacrosUnderIt) {
  macros.OnHeadingChosen(1);
  EXPECT_EQ(view.macros, kWeapons);
  macros.OnHeadingChosen(2);
  EXPECT_EQ(view.macros, Texts{u"PADLOCK"});
}

TEST_F(Headings, ChoosingAllShowsAlsoTheMacrosBeforeTheFirstHeading) {
  macros.OnHeadingChosen(2);
  macros.OnHeadingChosen(0);
  EXPECT_EQ(view.macros, kAllMacros);
}

TEST_F(Headings, ChoosingOneRefreshesTheDefinitionAndThenHints) {
  macros.OnMacroClicked(kFire);
  TakeMessages();
  macros.OnHeadingChosen(1);
  EXPECT_EQ(TakeMessages(), (Texts{kHeadingHint}));
  macros.OnHeadingChosen(2);
  EXPECT_EQ(TakeMessages(), (Texts{u"FIRE = SPC", kHeadingHint}));
}

TEST_F(Headings, HintIsWrittenOnlyWhenNotShownAlready) {
  macros.OnHeadingPointer();
  EXPECT_EQ(TakeMessages(), (Texts{kOpening, kAnalysing, u"Done", kHeadingHint}));
  macros.OnHeadingPointer();
  macros.OnHeadingChosen(1);
  macros.OnHeadingPointer();
  EXPECT_EQ(TakeMessages(), Texts{});
}

TEST_F(Headings, PointerLeavesACompileResultButAChoiceDoesNot) {
  status.Say(u" Compile of jet.tmj completed");
  macros.OnHeadingPointer();
  EXPECT_EQ(status.Message(), u" Compile of jet.tmj completed");
  macros.OnHeadingChosen(1);
  EXPECT_EQ(status.Message(), kHeadingHint);
}

TEST_F(Headings, PointerLeavesTheMessageAloneWhileTheCompilerIsBusy) {
  documents.CompilerBusy = 1;
  status.Say(u"Compiling jet.tmj ..... please wait ...");
  macros.OnHeadingPointer();
  EXPECT_EQ(status.Message(), u"Compiling jet.tmj ..... please wait ...");
}

TEST_F(Headings, OthersThanThoseShownDoNothing) {
  TakeMessages();
  for (const int index : {-1, 3, 1000}) macros.OnHeadingChosen(index);
  EXPECT_EQ(view.macros, kAllMacros);
  EXPECT_EQ(TakeMessages(), Texts{});
  macros.Clear();
  macros.OnHeadingChosen(0);
  EXPECT_EQ(view.macros, Texts{});
}

// The list of macros.

class ListOfMacros : public MacroPanelTest {
 protected:
  ListOfMacros() {
    macros.Analyse(kMacroFile);
    Open(kJoystickFile, u"BTN S2 PADLOCK \nBTN S4 FIRE /H EARLY\nBTN T1 fire ");
  }
};

TEST_F(ListOfMacros, ClickShowsTheDefinitionWithBlanksForTabs) {
  macros.OnMacroClicked(kFire);
  EXPECT_EQ(status.Message(), u"FIRE = SPC");
  EXPECT_EQ(macros.ChosenMacro(), u"FIRE");
}

TEST_F(ListOfMacros, ClickOnADefinitionOfAnotherSpellingShowsNothing) {
  macros.OnMacroClicked(kGlued);
  EXPECT_EQ(status.Message(), u"Done");
  EXPECT_EQ(macros.ChosenMacro(), u"GLUED");
}

TEST_F(ListOfMacros, ClickSelectsTheFirstUseInTheCurrentDocument) {
  macros.OnMacroClicked(kFire);
  EXPECT_EQ(Box().Selection(), (TextSpan{23, 5}));
  EXPECT_EQ(SelectedText(), u"FIRE ");
}

TEST_F(ListOfMacros, ClickSearchesInAnyCaseFromTheStart) {
  Box().Load(u"x fire y FIRE z");
  Box().Select({10, 0});
  macros.OnMacroClicked(kFire);
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 5}));
}

TEST_F(ListOfMacros, ClickLeavesTheSelectionWhenThereIsNoUse) {
  Box().Select({3, 4});
  macros.OnMacroClicked(kMissile);
  EXPECT_EQ(Box().Selection(), (TextSpan{3, 4}));
}

TEST_F(ListOfMacros, AUseAtTheEndOfALineIsNotFound) {
  Box().Select({3, 4});
  macros.OnMacroClicked(kEarly);
  EXPECT_EQ(Box().Selection(), (TextSpan{3, 4}));
}

TEST_F(ListOfMacros, ClickChangesNoText) {
  macros.OnMacroClicked(kFire);
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
}

TEST_F(ListOfMacros, IndexesCountUnderTheChosenHeading) {
  macros.OnHeadingChosen(1);
  macros.OnMacroClicked(1);
  EXPECT_EQ(macros.ChosenMacro(), u"MISSILE");
  macros.OnHeadingChosen(0);
  macros.OnMacroClicked(0);
  EXPECT_EQ(macros.ChosenMacro(), u"EARLY");
}

TEST_F(ListOfMacros, NamelessEntrySelectsNothing) {
  files.AddFile(kMacroFile, "= nameless\n");
  macros.Analyse(kMacroFile);
  ASSERT_EQ(view.macros, Texts{u""});
  macros.OnMacroClicked(0);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
}

TEST_F(ListOfMacros, OthersThanThoseShownDoNothing) {
  const std::u16string text = Box().Text();
  macros.OnHeadingChosen(2);
  TakeMessages();
  for (const int index : {-1, 1, 1000}) {
    macros.OnMacroClicked(index);
    macros.OnMacroDoubleClicked(index);
    EXPECT_EQ(macros.OnDragStarted(index), u"");
  }
  EXPECT_EQ(macros.ChosenMacro(), u"");
  EXPECT_EQ(macros.DraggedMacro(), u"");
  EXPECT_EQ(Box().Text(), text);
  EXPECT_EQ(TakeMessages(), Texts{});
}

TEST_F(ListOfMacros, AnEmptyPanelHasNoMacros) {
  macros.Clear();
  macros.OnMacroClicked(0);
  macros.OnMacroDoubleClicked(0);
  EXPECT_EQ(macros.OnDragStarted(0), u"");
  EXPECT_EQ(macros.ChosenMacro(), u"");
}

TEST_F(ListOfMacros, KeysAndPointerKeepTheDefinitionInTheMessagePanel) {
  macros.OnMacroClicked(kFire);
  status.Say(u"Editing jet.tmj");
  macros.OnListKey();
  EXPECT_EQ(status.Message(), u"FIRE = SPC");
  status.Say(u"Editing jet.tmj");
  macros.OnListPointer();
  EXPECT_EQ(status.Message(), u"FIRE = SPC");
}

TEST_F(ListOfMacros, KeysAndPointerLeaveTheSelectionAlone) {
  macros.OnMacroClicked(kFire);
  Box().Select({1, 1});
  macros.OnListKey();
  macros.OnListPointer();
  EXPECT_EQ(Box().Selection(), (TextSpan{1, 1}));
}

TEST_F(ListOfMacros, PointerWithoutAChosenMacroSaysNothing) {
  TakeMessages();
  macros.OnListPointer();
  macros.OnListKey();
  EXPECT_EQ(TakeMessages(), Texts{});
}

TEST_F(ListOfMacros, PointerLeavesACompileResultButAClickDoesNot) {
  macros.OnMacroClicked(kFire);
  status.Say(u" Compile of jet.tmj completed");
  macros.OnListPointer();
  EXPECT_EQ(status.Message(), u" Compile of jet.tmj completed");
  macros.OnMacroClicked(kFire);
  EXPECT_EQ(status.Message(), u"FIRE = SPC");
}

TEST_F(ListOfMacros, PointerLeavesTheMessageAloneWhileTheCompilerIsBusy) {
  macros.OnMacroClicked(kFire);
  documents.CompilerBusy = 1;
  status.Say(u"Compiling jet.tmj ..... please wait ...");
  macros.OnListPointer();
  EXPECT_EQ(status.Message(), u"Compiling jet.tmj ..... please wait ...");
}

// Inserting by double click.

class InsertMacro : public MacroPanelTest {
 protected:
  InsertMacro() {
    macros.Analyse(kMacroFile);
    Open(kJoystickFile, u"");
  }

  // The text after a double click on FIRE; "|" marks the caret, "[" and "]" a selection.
  std::u16string Inserted(std::u16string marked) {
    const auto take = [&marked](char16_t mark) {
      const std::size_t position = marked.find(mark);
      if (position != std::u16string::npos) marked.erase(position, 1);
      return position;
    };
    const std::size_t caret = take(u'|');
    const std::size_t start = caret != std::u16string::npos ? caret : take(u'[');
    const std::size_t end = caret != std::u16string::npos ? caret : take(u']');
    Box().Load(marked);
    Box().Select({static_cast<int>(start), static_cast<int>(end - start)});
    DoubleClick(kFire);
    std::u16string text = Box().Text();
    EXPECT_EQ(Box().Selection().length, 0);
    return text.insert(static_cast<std::size_t>(Box().Selection().start), u"|");
  }
};

TEST_F(InsertMacro, PutsBlanksRoundTheName) {
  const struct {
    const char* reason;
    std::u16string_view before;
    std::u16string_view after;
  } cases[] = {
      {"behind a word", u"BTN T1|", u"BTN T1 FIRE |"},
      {"behind a blank", u"BTN T1 |", u"BTN T1 FIRE |"},
      {"behind two blanks", u"BTN T1  |", u"BTN T1  FIRE |"},
      {"in an empty text", u"|", u"FIRE |"},
      {"at the start", u"|BTN T1", u"FIRE |BTN T1"},
      {"before a blank", u"BTN T1| /H", u"BTN T1 FIRE | /H"},
      {"behind a tab", u"BTN T1\t|", u"BTN T1\t FIRE |"},
      {"at the start of a line", u"BTN T1\n|BTN T2", u"BTN T1\n FIRE |BTN T2"},
      {"at the end of a line", u"BTN T1|\nBTN T2", u"BTN T1 FIRE |\nBTN T2"},
      {"inside a word", u"BT|N", u"BT FIRE |N"},
      {"over a selection", u"BTN [T1 OLD] /H", u"BTN FIRE | /H"},
      {"over a selection behind a word", u"BTN[ T1]", u"BTN FIRE |"},
      {"over everything", u"[BTN T1]", u"FIRE |"},
      {"over a line break", u"BTN T1[\n]BTN T2", u"BTN T1 FIRE |BTN T2"},
  };
  for (const auto& [reason, before, after] : cases)
    EXPECT_EQ(Inserted(std::u16string(before)), after) << reason;
}

TEST_F(InsertMacro, GivesTheFocusToTheTextAndMarksItModified) {
  Inserted(u"BTN T1|");
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(status.Text(kStatePanel), u"Modified");
}

TEST_F(InsertMacro, IsOneUndoStep) {
  Inserted(u"BTN [T1]");
  EXPECT_EQ(Box().undoSteps(), 1);
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"BTN T1");
}

TEST_F(InsertMacro, GoesWhereTheCaretStoodBeforeTheClickFoundAUse) {
  EXPECT_EQ(Inserted(u"BTN S2 FIRE /H\nBTN T1 |\nBTN T2"),
            u"BTN S2 FIRE /H\nBTN T1 FIRE |\nBTN T2");
  EXPECT_EQ(Inserted(u"BTN S2 FIRE /H\nBTN [T1]\nBTN T2"), u"BTN S2 FIRE /H\nBTN FIRE |\nBTN T2");
}

TEST_F(InsertMacro, ASecondReportOfTheClickDoesNotMoveThePlace) {
  Box().Load(u"BTN S2 FIRE /H\nBTN T1 ");
  Box().Select({22, 0});
  macros.OnMacroClicked(kFire);
  macros.OnMacroClicked(kFire);
  macros.OnMacroDoubleClicked(kFire);
  EXPECT_EQ(Box().Text(), u"BTN S2 FIRE /H\nBTN T1 FIRE ");
}

TEST_F(InsertMacro, GoesWhereTheUserPutTheCaretSinceTheClick) {
  Box().Load(u"BTN S2 FIRE /H\nBTN T1 ");
  Box().Select({22, 0});
  macros.OnMacroClicked(kFire);
  Box().MoveCaret({15, 3});
  macros.OnMacroDoubleClicked(kFire);
  EXPECT_EQ(Box().Text(), u"BTN S2 FIRE /H\n FIRE  T1 ");
}

TEST_F(InsertMacro, GoesToTheCaretOfTheTabSelectedSinceTheClick) {
  Box().Load(u"FIRE x");
  Box().Select({6, 0});
  macros.OnMacroClicked(kFire);
  Open(u"C:\\Cougar\\second.tmj", u"FIRE x");
  Box().Select({0, 5});
  macros.OnMacroDoubleClicked(kFire);
  EXPECT_EQ(Box().Text(), u"FIRE x");
  EXPECT_EQ(Box().Selection(), (TextSpan{5, 0}));
  documents.Select(1);
  EXPECT_EQ(Box().Text(), u"FIRE x");
}

TEST_F(InsertMacro, WorksWithoutAClickBefore) {
  Box().Load(u"BTN T1");
  Box().Select({6, 0});
  macros.OnMacroDoubleClicked(kMissile);
  EXPECT_EQ(Box().Text(), u"BTN T1 MISSILE ");
}

TEST_F(InsertMacro, ANewClickCountsFromTheSelectionItFinds) {
  Box().Load(u"FIRE x MISSILE y");
  Box().Select({16, 0});
  macros.OnMacroClicked(kFire);
  DoubleClick(kMissile);
  EXPECT_EQ(Box().Text(), u"MISSILE x MISSILE y");
}

TEST_F(InsertMacro, DoubleClicksFollowOneAnother) {
  Box().Load(u"BTN S2 FIRE /H\nBTN T1 ");
  Box().Select({22, 0});
  DoubleClick(kFire);
  DoubleClick(kMissile);
  DoubleClick(kFire);
  EXPECT_EQ(Box().Text(), u"BTN S2 FIRE /H\nBTN T1 FIRE MISSILE FIRE ");
}

TEST_F(InsertMacro, AnInsertedMacroLeavesNoPlaceToComeBackTo) {
  Box().Load(u"BTN S2 FIRE /H\nBTN T1 ");
  Box().Select({22, 0});
  DoubleClick(kFire);
  Box().MoveCaret({7, 5});
  DoubleClick(kFire);
  EXPECT_EQ(Box().Text(), u"BTN S2 FIRE /H\nBTN T1 FIRE ");
  EXPECT_EQ(Box().Selection(), (TextSpan{12, 0}));
}

TEST_F(InsertMacro, WorksOnAnyKindOfDocument) {
  documents.Select(0);
  DoubleClick(kFire);
  EXPECT_EQ(Box().Text(), u"FIRE ");
}

// Dragging a macro out of the list.

TEST_F(ListOfMacros, DragCarriesTheNameBetweenBlanks) {
  EXPECT_EQ(macros.OnDragStarted(kFire), u" FIRE ");
  EXPECT_EQ(macros.DraggedMacro(), u"FIRE");
}

TEST_F(ListOfMacros, DragChangesNothingByItself) {
  const std::u16string text = Box().Text();
  macros.OnDragStarted(kFire);
  EXPECT_EQ(Box().Text(), text);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
  EXPECT_EQ(macros.ChosenMacro(), u"");
}

// The panel's edge.

TEST_F(MacroPanelTest, DraggingTheEdgeStoresTheWidthAtOnceAndLaysOut) {
  macros.ViewMacros(true);
  macros.OnSplitterDragged(412);
  EXPECT_EQ(settings.MacroFrameWidth, 412);
  EXPECT_EQ(window.macroFrameWidth, 412);
  EXPECT_EQ(profiles.writes,
            (std::vector<FakeProfileFiles::Write>{
                {settings.SettingsPath, u"Miscellaneous", u"MacroFrameWidth", u"412"}}));
}

TEST_F(MacroPanelTest, DraggedWidthStaysBetweenTheMinimumAndSixteenBits) {
  const struct {
    int dragged;
    int width;
  } cases[] = {
      {-2'000'000'000, kNarrowestMacroFrame},
      {-1, kNarrowestMacroFrame},
      {0, kNarrowestMacroFrame},
      {kNarrowestMacroFrame - 1, kNarrowestMacroFrame},
      {kNarrowestMacroFrame, kNarrowestMacroFrame},
      {kNarrowestMacroFrame + 1, kNarrowestMacroFrame + 1},
      {32'767, 32'767},
      {32'768, 32'767},
      {70'000, 32'767},
  };
  macros.ViewMacros(true);
  for (const auto& [dragged, width] : cases) {
    macros.OnSplitterDragged(dragged);
    EXPECT_EQ(settings.MacroFrameWidth, width);
    EXPECT_EQ(window.macroFrameWidth, width);
  }
}

TEST_F(MacroPanelTest, DraggedWidthHoldsAlsoWhenItCannotBeStored) {
  macros.ViewMacros(true);
  profiles.writable = false;
  macros.OnSplitterDragged(412);
  EXPECT_EQ(window.macroFrameWidth, 412);
}

}  // namespace
}  // namespace deck
