#include "documents/file_commands.h"

#include <gtest/gtest.h>

#include "platform/strings.h"

#include "tests/core/documents/documents_fixture.h"

namespace deck {
namespace {

using Captions = std::vector<std::u16string>;
using Paths = std::vector<std::u16string>;
using namespace std::string_literals;

struct FileNewTest : DocumentsFixture {};
struct FileOpenTest : DocumentsFixture {};
struct FileSaveTest : DocumentsFixture {};
struct FileSaveAsTest : DocumentsFixture {};
struct FileSaveAllTest : DocumentsFixture {};
struct FileCloseTest : DocumentsFixture {};

TEST_F(FileNewTest, AddsAnUntitledTabBehindTheLastAndSelectsIt) {
  OpenNew(u"C:\\a.tmj", "x");
  commands.FileNew();
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"Untitled"}));
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_EQ(documents[1].path, u"");
  EXPECT_EQ(documents[1].modifiedFlag, 0);
  EXPECT_FALSE(Box(0).visible());
  EXPECT_TRUE(Box(1).visible());
  EXPECT_TRUE(Box(1).focused());
}

TEST_F(FileNewTest, SaysSoAndShowsTheFirstLine) {
  Box().Load(u"a\nb\nc");
  Box().MoveCaret({4, 0});
  commands.FileNew();
  EXPECT_EQ(Panel(1), u"New file created for editing");
  EXPECT_EQ(Panel(2), u"Line no: 1");
  EXPECT_EQ(Panel(3), u"New file");
  EXPECT_EQ(view.commands[CommandId::kCompile], (CommandState{false, false, u"&Compile"}));
}

TEST_F(FileOpenTest, LoadsIntoAnEmptyUntitledTabInsteadOfAddingOne) {
  OpenNew(u"C:\\Work\\a.tmj", "BTN S1 FIRE\r\n");
  EXPECT_EQ(view.tabs, (std::vector<FakeMainWindowView::Tab>{{u"a.tmj", u"C:\\Work\\a.tmj"}}));
  EXPECT_EQ(documents[0].path, u"C:\\Work\\a.tmj");
  EXPECT_EQ(Box().Text(), u"BTN S1 FIRE\n");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Panel(1), u"a.tmj successfully opened");
  EXPECT_EQ(Panel(2), u"Line no: 1");
  EXPECT_EQ(Panel(3), u"Saved");
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
  EXPECT_TRUE(Box().focused());
}

TEST_F(FileOpenTest, AddsATabWhenTheUntitledOneHoldsText) {
  Box().Type(u"x");
  OpenNew(u"C:\\a.tmj", "text");
  EXPECT_EQ(view.Captions(), (Captions{u"Untitled", u"a.tmj"}));
  EXPECT_EQ(Box(0).Text(), u"x");
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_TRUE(Box(1).visible());
  EXPECT_FALSE(Box(0).visible());
}

TEST_F(FileOpenTest, TakesTheTabOfAnEmptyFileThatIsCalledUntitledToo) {
  OpenNew(u"C:\\Untitled", "");
  OpenNew(u"C:\\a.tmj", "x");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
}

TEST_F(FileOpenTest, AddsATabWhenTheCurrentOneHasAFile) {
  OpenNew(u"C:\\empty.tmj", "");
  OpenNew(u"C:\\a.tmj", "text");
  EXPECT_EQ(view.Captions(), (Captions{u"empty.tmj", u"a.tmj"}));
}

TEST_F(FileOpenTest, ShowsTheDialogInTheFilesFolder) {
  dialogs.openResults.push_back(std::nullopt);
  commands.FileOpen();
  ASSERT_EQ(dialogs.openRequests.size(), 1u);
  EXPECT_EQ(dialogs.openRequests[0].filter,
            u"Cougar files |*.tmj;*.tmm|TM original files |*.f22;*.m22;*.b50;*.m50|All files "
            u"(*.*)|*.*");
  EXPECT_EQ(dialogs.openRequests[0].filterIndex, 1);
  EXPECT_EQ(dialogs.openRequests[0].initialFolder, u"C:\\Host\\Files\\");
  EXPECT_EQ(dialogs.openRequests[0].fileName, u"");
  EXPECT_EQ(files.Absolute(u"x"), u"C:\\Host\\Files\\x");
}

TEST_F(FileOpenTest, LeavesTheFolderAloneWithoutAFilesFolder) {
  settings.FilesFolder.clear();
  dialogs.openResults.push_back(std::nullopt);
  commands.FileOpen();
  EXPECT_EQ(files.CurrentFolder(), u"C:\\");
  EXPECT_EQ(dialogs.openRequests[0].initialFolder, u"");
}

TEST_F(FileOpenTest, SaysWhatItDoesWhileTheDialogIsOpen) {
  std::u16string during;
  dialogs.onShow = [&] { during = Panel(1); };
  dialogs.openResults.push_back(std::nullopt);
  commands.FileOpen();
  EXPECT_EQ(during, u"Opening file");
}

TEST_F(FileOpenTest, ACancelledDialogChangesNothing) {
  Box().Type(u"x");
  const std::u16string message = Panel(1);
  dialogs.openResults.push_back(std::nullopt);
  commands.FileOpen();
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(1), message);
  EXPECT_TRUE(recent.empty());
}

TEST_F(FileOpenTest, AddsThePathToTheRecentFiles) {
  OpenNew(u"C:\\Work\\a.tmj", "x");
  EXPECT_EQ(recent, Paths{u"C:\\Work\\a.tmj"});
}

TEST_F(FileOpenTest, StoresAnAbsolutePathForARelativeOne) {
  files.AddFile(u"C:\\Host\\Files\\a.tmj", "x");
  Open(u"a.tmj");
  EXPECT_EQ(documents[0].path, u"C:\\Host\\Files\\a.tmj");
}

TEST_F(FileOpenTest, ShowsTheMacrosOfAMacroFile) {
  for (const std::u16string name : {u"C:\\a.tmm", u"C:\\b.M22", u"C:\\c.m50"}) OpenNew(name, "x");
  OpenNew(u"C:\\d.txt", "x");
  EXPECT_EQ(macrosShown, (Paths{u"C:\\a.tmm", u"C:\\b.M22", u"C:\\c.m50"}));
  EXPECT_TRUE(detected.empty());
}

TEST_F(FileOpenTest, LooksForTheMacroFileOfAJoystickFile) {
  OpenNew(u"C:\\Work\\a.TMJ", "x");
  OpenNew(u"C:\\b.f22", "x");
  OpenNew(u"C:\\c.b50", "x");
  EXPECT_EQ(detected, (Paths{u"tmj|C:\\Work\\", u"f22|C:\\", u"b50|C:\\"}));
  EXPECT_TRUE(macrosShown.empty());
}

TEST_F(FileOpenTest, MacroFileOpenedBesideAJoystickFileNeverComesIntoView) {
  files.AddFile(u"C:\\x\\m.tmm", "macros");
  std::vector<bool> visible;
  onDetect = [&] {
    commands.OpenBehind(u"C:\\x\\m.tmm");
    for (const int index : {0, 1}) visible.push_back(Box(index).visible());
  };
  OpenNew(u"C:\\x\\j.tmj", "joystick");
  EXPECT_EQ(visible, (std::vector<bool>{true, false}));
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_TRUE(Box(0).visible());
  EXPECT_TRUE(Box(0).focused());
  documents.Select(1);
  EXPECT_TRUE(Box(1).visible());
  EXPECT_FALSE(Box(0).visible());
}

TEST_F(FileOpenTest, KeepsTheOrderRecentsThenAnalysisThenMessageThenDetection) {
  std::vector<std::u16string> order;
  commands.links.addRecentFile = [&](const std::u16string&) { order.push_back(u"recent"); };
  commands.links.showMacrosOf = [&](const std::u16string&) { order.push_back(u"macros"); };
  OpenNew(u"C:\\a.tmm", "x");
  EXPECT_EQ(order, (std::vector<std::u16string>{u"recent", u"macros"}));
  onDetect = [&] { order.push_back(Panel(1)); };
  OpenNew(u"C:\\a.tmj", "x");
  EXPECT_EQ(order.back(), u"a.tmj successfully opened");
}

TEST_F(FileOpenTest, DoesNotAnalyseMacrosASecondTimeForItsOwnTabSwitch) {
  refreshedMacrosOf.clear();
  OpenNew(u"C:\\a.tmm", "x");
  EXPECT_TRUE(refreshedMacrosOf.empty());
  EXPECT_EQ(documents.SkipMacroRefresh, 0);
  documents.Select(0);
  EXPECT_EQ(refreshedMacrosOf, Captions{u"a.tmm"});
}

TEST_F(FileOpenTest, EndsOnTheJoystickFileWhenItsMacroFileOpensBesideIt) {
  files.AddFile(u"C:\\m.tmm", "A = b");
  onDetect = [&] { commands.OpenBehind(u"C:\\m.tmm"); };
  OpenNew(u"C:\\a.tmj", "one\ntwo");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"m.tmm"}));
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_EQ(Panel(1), u"Editing a.tmj");
  EXPECT_EQ(Box(0).Selection(), (TextSpan{0, 0}));
  EXPECT_TRUE(Box(0).visible());
  EXPECT_TRUE(Box(0).focused());
  EXPECT_EQ(recent, (Paths{u"C:\\a.tmj", u"C:\\m.tmm"})) << "the macro file comes last: entry 1";
  EXPECT_TRUE(refreshedMacrosOf.empty()) << "opening the second file ends no suppression";
  EXPECT_EQ(documents.SkipMacroRefresh, 0);
}

TEST_F(FileOpenTest, ShowsTheFirstLineAfterTheDetectionSelectedANameFurtherDown) {
  files.AddFile(u"C:\\m.tmm", "A = b");
  onDetect = [&] {
    Box().Select({13, 1});
    commands.OpenBehind(u"C:\\m.tmm");
  };
  OpenNew(u"C:\\a.tmj", "one\nUSE MDEF m");
  ASSERT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(Panel(2), u"Line no: 1");
}

TEST_F(FileOpenTest, LeavesASuppressionOfOthersAsItWas) {
  documents.SkipMacroRefresh = 1;
  OpenNew(u"C:\\a.tmm", "x");
  EXPECT_EQ(documents.SkipMacroRefresh, 1);
}

TEST_F(FileOpenTest, PutsTheCaretAtTheStartAfterTheDetectionSelectedTheName) {
  onDetect = [&] { Box().Select({4, 3}); };
  OpenNew(u"C:\\a.tmj", "one\ntwo");
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 0}));
  EXPECT_EQ(Panel(1), u"a.tmj successfully opened");
}

TEST_F(FileOpenTest, OpensAMultipleSelectionInOrder) {
  for (const std::u16string name : {u"a.tmj", u"b.tmj", u"c.tmm"}) {
    files.AddFile(u"D:\\Work\\" + name, "x");
  }
  Open(u"D:\\Work\0a.tmj\0b.tmj\0c.tmm"s);
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"b.tmj", u"c.tmm"}));
  EXPECT_EQ(documents[0].path, u"D:\\Work\\a.tmj");
  EXPECT_EQ(documents[1].path, u"D:\\Work\\b.tmj");
  EXPECT_EQ(documents[2].path, u"D:\\Work\\c.tmm");
}

TEST_F(FileOpenTest, GoesOnWithTheNextOfASelectionAfterNoAndAfterAFailure) {
  OpenNew(u"D:\\Work\\a.tmj", "a");
  files.AddFile(u"D:\\Work\\c.tmj", "c");
  prompts.answers = {Answer::kNo};
  Open(u"D:\\Work\0a.tmj\0gone.tmj\0c.tmj"s);
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"c.tmj"}));
  ASSERT_EQ(prompts.shown.size(), 2u);
  EXPECT_EQ(prompts.shown[0].title, u"File already open");
  EXPECT_EQ(prompts.shown[1].title, u"Can't open file");
}

TEST_F(FileOpenTest, ANameThatNamesNoFileOpensNothingAndSaysNothing) {
  const std::u16string message = Panel(1);
  Open(u"C:\\Host\\Files\\missing.tmj");
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(Panel(1), message);
}

TEST_F(FileOpenTest, AsksBeforeOpeningAFileASecondTime) {
  OpenNew(u"C:\\a.tmj", "x");
  prompts.answers = {Answer::kNo, Answer::kYes};
  Open(u"C:\\a.tmj");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  Open(u"C:\\a.tmj");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"a.tmj"}));
  EXPECT_EQ(prompts.shown[0],
            (Message{u"C:\\a.tmj is already open. Do you still want me to open it up onto a "
                     u"different tab?",
                     u"File already open", BoxStyle::kYesNo}));
}

TEST_F(FileOpenTest, TheSameFileInAnotherLetterCaseIsAnotherFile) {
  OpenNew(u"C:\\a.tmj", "x");
  Open(u"C:\\A.tmj");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"A.tmj"}));
}

TEST_F(FileOpenTest, FilesOfOneNameInTwoFoldersAreTwoDocuments) {
  OpenNew(u"C:\\one\\a.tmj", "1");
  OpenNew(u"C:\\two\\a.tmj", "2");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"a.tmj"}));
  EXPECT_TRUE(prompts.shown.empty());
  commands.FileSave();
  Box(0).Type(u"x");
  documents.Select(0);
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\one\\a.tmj"), "x1");
  EXPECT_EQ(files.Content(u"C:\\two\\a.tmj"), "2");
}

TEST_F(FileOpenTest, AFileThatCannotBeReadChangesNothing) {
  Box().Type(u"x");
  files.AddFile(u"C:\\a.tmj", "text");
  files.Fail(FileOperation::kRead, u"C:\\a.tmj", u"The file is used by another process.");
  Open(u"C:\\a.tmj");
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_TRUE(recent.empty());
  EXPECT_EQ(Panel(1), u"a.tmj could not be opened");
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0].title, u"Can't open file");
  EXPECT_EQ(prompts.shown[0].style, BoxStyle::kExclamation);
  EXPECT_EQ(prompts.shown[0].text,
            u"C:\\a.tmj could not be opened.\r\nThe file is used by another process.");
}

TEST_F(FileOpenTest, RefusesAFileWithZeroBytesInsteadOfCuttingIt) {
  OpenNew(u"C:\\a.tmj", "one\0two"s);
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(Panel(1), u"a.tmj could not be opened");
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(FileOpenTest, SaysThatItOpensAFileAlsoWithoutTheDialog) {
  files.AddFile(u"C:\\a.tmj", "x");
  view.messages.clear();
  commands.OpenPreviouslySavedFiles(u"C:\\a.tmj");
  ASSERT_FALSE(view.messages.empty());
  EXPECT_EQ(view.messages.front(), u"Opening file");
  EXPECT_EQ(view.messages.back(), u"a.tmj successfully opened");
}

TEST_F(FileOpenTest, ThatItOpensAFileIsPaintedBeforeTheFileIsLoaded) {
  files.AddFile(u"C:\\a.tmj", "x");
  view.paintedMessages.clear();
  bool paintedBefore = false;
  view.makeEditBox = [&](EditBox::Events boxEvents) {
    paintedBefore = view.paintedMessages == Captions{u"Opening file"};
    return std::make_unique<FakeEditBox>(std::move(boxEvents));
  };
  Box().Type(u"so that the file gets a box of its own");
  commands.OpenPreviouslySavedFiles(u"C:\\a.tmj");
  EXPECT_TRUE(paintedBefore);
}

TEST_F(FileOpenTest, TheFlagOfATextThatWasTakenBackDoesNotStickToTheFile) {
  Box().Type(u"x");
  Box().Undo();
  ASSERT_EQ(documents[0].modifiedFlag, 1);
  OpenNew(u"C:\\a.tmj", "text");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Panel(3), u"Saved");
}

TEST_F(FileOpenTest, TellsTheNameWithoutBlanksRoundIt) {
  OpenNew(u"C:\\ a.tmj", "x");
  EXPECT_EQ(Panel(1), u"a.tmj successfully opened");
  EXPECT_EQ(documents[0].path, u"C:\\ a.tmj");
}

TEST_F(FileOpenTest, ADocumentThatIsClosedMeanwhileIsNotSelectedAgain) {
  OpenNew(u"C:\\a.tmj", "a");
  onDetect = [&] { commands.FileClose(); };
  OpenNew(u"C:\\b.tmj", "b");
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(documents.CurrentIndex(), 0);
}

TEST_F(FileOpenTest, OpensAPathWithoutADialog) {
  files.AddFile(u"C:\\a.tmj", "x");
  EXPECT_TRUE(commands.OpenPreviouslySavedFiles(u"C:\\a.tmj"));
  EXPECT_TRUE(dialogs.openRequests.empty());
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  prompts.answers = {Answer::kNo};
  EXPECT_FALSE(commands.OpenPreviouslySavedFiles(u"C:\\a.tmj"));
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
}

TEST_F(FileSaveTest, WritesTheTextAndSaysSo) {
  OpenNew(u"C:\\a.tmj", "one\r\n");
  Box().Select({4, 0});
  Box().Type(u"two\n");
  recent.clear();
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "one\r\ntwo\r\n");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Panel(1), u"a.tmj successfully saved");
  EXPECT_EQ(Panel(3), u"Saved");
  EXPECT_EQ(recent, Paths{u"C:\\a.tmj"});
}

TEST_F(FileSaveTest, SaysWhatItDoesBeforeItWritesAndWhileItAsksForAName) {
  OpenNew(u"C:\\a.tmj", "one");
  view.messages.clear();
  commands.FileSave();
  ASSERT_FALSE(view.messages.empty());
  EXPECT_EQ(view.messages.front(), u"Saving file");
  commands.FileNew();
  std::u16string during;
  dialogs.onShow = [&] { during = Panel(1); };
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSave();
  EXPECT_EQ(during, u"Saving file");
}

TEST_F(FileSaveTest, KeepsItsMessageReadableForThreeSeconds) {
  OpenNew(u"C:\\a.tmj", "one");
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(documents.CompilerBusy, 1);
  EXPECT_EQ(events.Interval(TimerId::kTimer1), 3000);
  documents.OnHoverTab(0);
  EXPECT_EQ(Panel(1), u"a.tmj successfully saved");
}

TEST_F(FileSaveTest, WritesAnUneditedFileBackByteForByte) {
  const std::string samples[] = {
      "",
      "no final break",
      "CRLF\r\nLF\nCR\rmixed\n\r",
      "\xE9t\xE9 \x80 \x81\xFF",
      "\xEF\xBB\xBFwith a mark \xE2\x86\x92\n",
      "\xEF\xBB\xBF",
      "\xFF\xFE\x61\x00\x0D\x00\x0A\x00\x3D\xD8"s,
      "\xFE\xFF\x00\x61\x00\x0A"s,
      "tabs\tand \x1A and \x0B\x0C",
  };
  int number = 0;
  for (const std::string& bytes : samples) {
    const std::u16string path =
        u"C:\\" + std::u16string(1, static_cast<char16_t>(u'a' + number++)) + u".tmj";
    OpenNew(path, bytes);
    commands.FileSave();
    EXPECT_EQ(files.Content(path), bytes) << number;
    EXPECT_EQ(Panel(1), std::u16string(FileNameOf(path)) + u" successfully saved");
  }
}

TEST_F(FileSaveTest, WritesTheVeryBytesAgainAfterAnEditThatWasTakenBack) {
  OpenNew(u"C:\\a.tmj", "CRLF\r\nLF\nCR\r");
  Box().Type(u"x");
  Box().Undo();
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "CRLF\r\nLF\nCR\r");
}

TEST_F(FileSaveTest, KeepsEncodingAndDominantLineBreakAfterAnEdit) {
  OpenNew(u"C:\\lf.tmj", "a\nb\nc\r\n");
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\lf.tmj"), "xa\nb\nc\n");
  OpenNew(u"C:\\mark.tmj", "\xEF\xBB\xBF\xE2\x86\x92\r\n");
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\mark.tmj"), "\xEF\xBB\xBFx\xE2\x86\x92\r\n");
  OpenNew(u"C:\\wide.tmj", "\xFF\xFE\x61\x00"s);
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\wide.tmj"), "\xFF\xFE\x78\x00\x61\x00"s);
}

TEST_F(FileSaveTest, TurnsTheFileToUtf8ForACharacterItsEncodingLacks) {
  OpenNew(u"C:\\a.tmj", "\xE9");
  Box().Type(u"\u2192");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "\xE2\x86\x92\xC3\xA9");
  commands.FileClose();
  Open(u"C:\\a.tmj");
  EXPECT_EQ(Box().Text(), u"\u2192\u00E9");
}

TEST_F(FileSaveTest, RefreshesTheMacroListAfterSavingAMacroFile) {
  OpenNew(u"C:\\a.tmm", "x");
  commands.FileSave();
  EXPECT_EQ(macrosUpdated, 1);
  OpenNew(u"C:\\a.tmj", "x");
  commands.FileSave();
  EXPECT_EQ(macrosUpdated, 1);
}

TEST_F(FileSaveTest, PutsItsMessageBackOverTextsOfMacroAnalysis) {
  OpenNew(u"C:\\a.tmm", "x");
  onUpdateMacros = [&] { status.Say(u"Done"); };
  commands.FileSave();
  EXPECT_EQ(Panel(1), u"a.tmm successfully saved");
  documents.refreshMacros = [&](Document&) { status.Say(u"Opening m.tmm file for analysis "); };
  commands.FileSave();
  EXPECT_EQ(Panel(1), u"a.tmm successfully saved");
  documents.refreshMacros = [&](Document&) {
    status.Say(u"Analysing m.tmm for macros and sub-headings. Please wait ...");
  };
  commands.FileSave();
  EXPECT_EQ(Panel(1), u"a.tmm successfully saved");
  documents.refreshMacros = [&](Document&) { status.Say(u"A = x"); };
  commands.FileSave();
  EXPECT_EQ(Panel(1), u"A = x") << "any other text is no analysis";
}

TEST_F(FileSaveTest, RunsTheTabSwitchRefresh) {
  OpenNew(u"C:\\a.tmj", "x");
  refreshedMacrosOf.clear();
  commands.FileSave();
  EXPECT_EQ(refreshedMacrosOf, Captions{u"a.tmj"});
}

TEST_F(FileSaveTest, AnUntitledDocumentGoesThroughSaveAs) {
  Box().Type(u"x");
  dialogs.saveResults.push_back(SaveChoice{u"C:\\new.tmj", 1});
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\new.tmj"), "x");
  EXPECT_EQ(documents[0].path, u"C:\\new.tmj");
  EXPECT_EQ(view.TabAt(1).caption, u"new.tmj");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
}

TEST_F(FileSaveTest, ACancelledSaveAsLeavesEverythingAsItWas) {
  Box().Type(u"x");
  const std::u16string message = Panel(1);
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSave();
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(view.TabAt(1).caption, u"Untitled");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(1), message);
  EXPECT_EQ(documents.CompilerBusy, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kTimer1));
  EXPECT_TRUE(recent.empty());
}

TEST_F(FileSaveTest, AReadOnlyFileIsSavedElsewhere) {
  OpenNew(u"C:\\a.tmj", "old");
  files.SetReadOnly(u"C:\\a.tmj", true);
  Box().Type(u"x");
  dialogs.saveResults.push_back(SaveChoice{u"C:\\b.tmj", 1});
  commands.FileSave();
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0],
            (Message{u"C:\\a.tmj is read only. You'll need to save it elsewhere using the Save As "
                     u"routine. I'll run this for you now.",
                     u"Can't save Read Only file", BoxStyle::kInformation}));
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "xold");
  EXPECT_EQ(documents[0].path, u"C:\\b.tmj");
}

TEST_F(FileSaveTest, CancellingAfterAReadOnlyFileKeepsPathCaptionAndFlag) {
  OpenNew(u"C:\\a.tmj", "old");
  files.SetReadOnly(u"C:\\a.tmj", true);
  Box().Type(u"x");
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSave();
  EXPECT_EQ(documents[0].path, u"C:\\a.tmj");
  EXPECT_EQ(view.TabAt(1).caption, u"a.tmj");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(documents.CompilerBusy, 0) << "there is no message of a save to keep readable";
  EXPECT_FALSE(events.IsRunning(TimerId::kTimer1));
}

TEST_F(FileSaveTest, AFailedWriteKeepsOldFileFlagPathAndRecents) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  recent.clear();
  refreshedMacrosOf.clear();
  files.Fail(FileOperation::kReplace, u"C:\\a.tmj", u"There is not enough space on the disk.");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(documents[0].path, u"C:\\a.tmj");
  EXPECT_TRUE(recent.empty());
  EXPECT_TRUE(refreshedMacrosOf.empty());
  EXPECT_EQ(Panel(1), u"a.tmj could not be saved");
  EXPECT_EQ(documents.CompilerBusy, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kTimer1));
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0],
            (Message{u"C:\\a.tmj could not be saved.\r\nThere is not enough space on the disk.",
                     u"Can't save file", BoxStyle::kExclamation}));
  files.StopFailing();
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
}

TEST_F(FileSaveTest, KeepsTheTextElsewhereBeforeItWritesOverTheFile) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  files.Fail(FileOperation::kReplaceWhole, u"C:\\a.tmj");
  EXPECT_TRUE(commands.FileSave());
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(kept, std::vector<std::u16string>{u"C:\\a.tmj|xold"});
  EXPECT_EQ(keptOver, std::vector<std::string>{"old"});
}

TEST_F(FileSaveTest, KeepsNothingElsewhereWhereANewFileTakesTheOldOnesPlace) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  EXPECT_TRUE(commands.FileSave());
  EXPECT_TRUE(kept.empty());
}

TEST_F(FileSaveTest, AFailedWriteOfAMacroFileDoesNotRefreshTheList) {
  OpenNew(u"C:\\a.tmm", "old");
  Box().Type(u"x");
  files.Fail(FileOperation::kReplace, u"C:\\a.tmm");
  commands.FileSave();
  EXPECT_EQ(macrosUpdated, 0);
}

TEST_F(FileSaveTest, WritesAFileThatVanishedMeanwhile) {
  OpenNew(u"C:\\a.tmj", "old");
  ASSERT_TRUE(files.Delete(u"C:\\a.tmj"));
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
}

TEST_F(FileSaveTest, KeepsNewerTextOnDiskBesideTheFile) {
  OpenNew(u"C:\\a.tmj", "old");
  files.AddFile(u"C:\\a.tmj", "newer");
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak"), "newer");
  files.AddFile(u"C:\\a.tmj", "newest");
  Box().Type(u"y");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak"), "newer");
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak2"), "newest");
}

TEST_F(FileSaveTest, WithoutAFreeNameForNewerTextNothingIsWritten) {
  files.AddFile(u"C:\\a.tmj", "old");
  Open(u"C:\\a.tmj");
  Box().Type(u"x");
  files.AddFile(u"C:\\a.tmj", "newer");
  files.AddFile(u"C:\\a.tmj.bak", "kept");
  for (int number = 2; number <= 9999; ++number) {
    files.AddFile(u"C:\\a.tmj.bak" + Decimal(number), "kept");
  }
  EXPECT_FALSE(commands.FileSave());
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "newer");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(prompts.shown.back().title, u"Can't save file");
}

TEST_F(FileSaveTest, MakesNoCopyOfItsOwnText) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  commands.FileSave();
  Box().Type(u"y");
  commands.FileSave();
  EXPECT_FALSE(files.Exists(u"C:\\a.tmj.bak"));
}

TEST_F(FileSaveTest, DoesNotBuryNewerTextThatCannotBeKept) {
  OpenNew(u"C:\\a.tmj", "old");
  files.AddFile(u"C:\\a.tmj", "newer");
  files.Fail(FileOperation::kCreate, u"C:\\a.tmj.bak");
  Box().Type(u"x");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "newer");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(FileSaveTest, DoesNotWriteOverAFileThatCannotBeCompared) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  files.Fail(FileOperation::kRead, u"C:\\a.tmj", u"The file is used by another process.");
  commands.FileSave();
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(1), u"a.tmj could not be saved");
  files.StopFailing();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
}

TEST_F(FileSaveTest, MakesNoCopyOfAFileThatHoldsTheNewTextAlready) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  files.AddFile(u"C:\\a.tmj", "xold");
  commands.FileSave();
  EXPECT_FALSE(files.Exists(u"C:\\a.tmj.bak"));
  EXPECT_EQ(documents[0].modifiedFlag, 0);
}

TEST_F(FileSaveAsTest, ShowsTheDialogWithItsFilter) {
  OpenNew(u"C:\\Work\\a.tmm", "x");
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSaveAs();
  ASSERT_EQ(dialogs.saveRequests.size(), 1u);
  EXPECT_EQ(dialogs.saveRequests[0].filter,
            u"Cougar joystick file (*.tmj)|*.tmj|Cougar macro file (*.tmm)|*.tmm|All files "
            u"(*.*)|*.*");
  EXPECT_EQ(dialogs.saveRequests[0].initialFolder, u"C:\\Host\\Files\\");
  EXPECT_EQ(dialogs.saveRequests[0].fileName, u"a.tmm");
  EXPECT_EQ(dialogs.saveRequests[0].filterIndex, 2);
}

TEST_F(FileSaveAsTest, GoesToTheFilesFolderBeforeTheDialog) {
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSaveAs();
  EXPECT_EQ(files.Absolute(u"x"), u"C:\\Host\\Files\\x");
  EXPECT_EQ(dialogs.saveRequests[0].fileName, u"") << "an untitled document suggests no name";
  EXPECT_EQ(dialogs.saveRequests[0].filterIndex, 1);
}

TEST_F(FileSaveAsTest, AddsNoExtensionForAFilterThatItDidNotOffer) {
  for (const int filterIndex : {0, 4}) {
    Box().Type(u"x");
    const std::u16string path = u"C:\\new" + Decimal(filterIndex);
    dialogs.saveResults.push_back(SaveChoice{path, filterIndex});
    commands.FileSaveAs();
    EXPECT_EQ(documents[0].path, path);
  }
}

TEST_F(FileSaveAsTest, LeavesTheFolderAloneWithoutAFilesFolder) {
  settings.FilesFolder.clear();
  dialogs.saveResults.push_back(std::nullopt);
  commands.FileSaveAs();
  EXPECT_EQ(files.CurrentFolder(), u"C:\\");
  EXPECT_EQ(dialogs.saveRequests[0].initialFolder, u"");
}

TEST_F(FileSaveAsTest, StoresAnAbsolutePathForARelativeOne) {
  Box().Type(u"x");
  dialogs.saveResults.push_back(SaveChoice{u"new.tmj", 1});
  commands.FileSaveAs();
  EXPECT_EQ(documents[0].path, u"C:\\Host\\Files\\new.tmj");
  EXPECT_EQ(recent, Paths{u"C:\\Host\\Files\\new.tmj"});
}

struct ExtensionCase {
  std::u16string_view typed;
  int filter;
  std::u16string_view path;
};

TEST_F(FileSaveAsTest, AddsTheExtensionOfTheFilterWhenNoneIsTyped) {
  for (const ExtensionCase& c :
       {ExtensionCase{u"C:\\n1", 1, u"C:\\n1.tmj"}, ExtensionCase{u"C:\\n2", 2, u"C:\\n2.tmm"},
        ExtensionCase{u"C:\\n3", 3, u"C:\\n3"}, ExtensionCase{u"C:\\n4.txt", 1, u"C:\\n4.txt"},
        ExtensionCase{u"C:\\v1.0\\n5", 1, u"C:\\v1.0\\n5.tmj"}}) {
    files.AddFolder(u"C:\\v1.0");
    dialogs.saveResults.push_back(SaveChoice{std::u16string(c.typed), c.filter});
    commands.FileSaveAs();
    EXPECT_EQ(documents[0].path, c.path);
    EXPECT_TRUE(files.Exists(std::u16string(c.path)));
  }
}

TEST_F(FileSaveAsTest, AsksBeforeOverwritingTheFinalPath) {
  files.AddFile(u"C:\\b.tmj", "other");
  OpenNew(u"C:\\a.tmj", "mine");
  prompts.answers = {Answer::kNo, Answer::kYes};
  dialogs.saveResults = {SaveChoice{u"C:\\b", 1}, SaveChoice{u"C:\\b", 1}};
  commands.FileSaveAs();
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.shown[0],
            (Message{u"b.tmj already exists. Do you want me to overwrite this file?",
                     u"OK to overwrite exisiting file?", BoxStyle::kYesNo}));
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "other");
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "mine");
  EXPECT_EQ(documents[0].path, u"C:\\a.tmj");
  EXPECT_EQ(view.TabAt(1).caption, u"a.tmj");
  commands.FileSaveAs();
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "mine");
  EXPECT_FALSE(files.Exists(u"C:\\b.tmj.bak")) << "the user agreed to lose it";
  EXPECT_EQ(documents[0].path, u"C:\\b.tmj");
}

TEST_F(FileSaveAsTest, TheLeaveToOverwriteIsForThatOneTime) {
  files.AddFile(u"C:\\b.tmj", "other");
  Box().Type(u"mine");
  prompts.answers = {Answer::kYes};
  dialogs.saveResults = {SaveChoice{u"C:\\b.tmj", 1}};
  commands.FileSaveAs();
  ASSERT_EQ(files.Content(u"C:\\b.tmj"), "mine");
  files.AddFile(u"C:\\b.tmj", "newer");
  commands.FileSave();
  EXPECT_EQ(files.Content(u"C:\\b.tmj.bak"), "newer");
}

TEST_F(FileSaveAsTest, ACancelledDialogChangesNothing) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  const std::u16string message = Panel(1);
  dialogs.saveResults = {std::nullopt};
  EXPECT_FALSE(commands.FileSaveAs());
  EXPECT_EQ(documents[0].path, u"C:\\a.tmj");
  EXPECT_EQ(view.TabAt(1), (FakeMainWindowView::Tab{u"a.tmj", u"C:\\a.tmj"}));
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(1), message);
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(FileSaveAsTest, GoesBackToTheOldNameWhenTheWriteFails) {
  OpenNew(u"C:\\a.tmj", "mine");
  Box().Type(u"x");
  files.Fail(FileOperation::kReplace, u"C:\\b.tmj");
  dialogs.saveResults = {SaveChoice{u"C:\\b.tmj", 1}};
  commands.FileSaveAs();
  EXPECT_EQ(documents[0].path, u"C:\\a.tmj");
  EXPECT_EQ(view.TabAt(1), (FakeMainWindowView::Tab{u"a.tmj", u"C:\\a.tmj"}));
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(1), u"b.tmj could not be saved");
}

TEST_F(FileSaveAsTest, GoesBackToTheOldNameAtAnyDepth) {
  Box().Type(u"x");
  files.AddFile(u"C:\\ro.tmj", "locked");
  files.SetReadOnly(u"C:\\ro.tmj", true);
  prompts.answers = {Answer::kYes};
  dialogs.saveResults = {SaveChoice{u"C:\\ro.tmj", 1}, std::nullopt};
  commands.FileSave();
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(view.TabAt(1), (FakeMainWindowView::Tab{u"Untitled", u""}));
  EXPECT_EQ(files.Content(u"C:\\ro.tmj"), "locked");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
}

TEST_F(FileSaveAllTest, SavesEveryTabAndComesBack) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  OpenNew(u"C:\\c.tmj", "c");
  Box(0).Type(u"1");
  Box(2).Type(u"3");
  ASSERT_TRUE(files.Delete(u"C:\\b.tmj"));
  documents.Select(1);
  recent.clear();
  commands.FileSaveAll();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "1a");
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "b") << "unmodified documents are written too";
  EXPECT_EQ(files.Content(u"C:\\c.tmj"), "3c");
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_EQ(recent, (Paths{u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"}));
}

TEST_F(FileSaveAllTest, ItsLastMessageIsNotLostUnderTheMacroAnalysisOfTheFormerTab) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  documents.Select(0);
  documents.refreshMacros = [&](Document&) { status.Say(u"Done"); };
  commands.FileSaveAll();
  EXPECT_EQ(Panel(1), u"b.tmj successfully saved");
}

TEST_F(FileSaveAllTest, GoesOnAfterADocumentThatCouldNotBeSaved) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  Box(0).Type(u"1");
  Box(1).Type(u"2");
  files.Fail(FileOperation::kReplace, u"C:\\a.tmj");
  commands.FileSaveAll();
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "a");
  EXPECT_EQ(files.Content(u"C:\\b.tmj"), "2b");
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(FileSaveAllTest, OpensSaveAsForEveryUntitledDocument) {
  commands.FileNew();
  dialogs.saveResults = {SaveChoice{u"C:\\one.tmj", 1}, std::nullopt};
  commands.FileSaveAll();
  EXPECT_EQ(view.Captions(), (Captions{u"one.tmj", u"Untitled"}));
  EXPECT_EQ(dialogs.saveRequests.size(), 2u);
}

TEST_F(FileSaveAllTest, DoesNotBuryNewerTextUnderAnUnmodifiedDocument) {
  OpenNew(u"C:\\a.tmj", "old");
  files.AddFile(u"C:\\a.tmj", "newer");
  commands.FileSaveAll();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak"), "newer");
}

TEST_F(FileCloseTest, LeavesOneEmptyUntitledTabForTheLastDocument) {
  OpenNew(u"C:\\a.tmj", "text");
  commands.FileClose();
  EXPECT_EQ(view.tabs, (std::vector<FakeMainWindowView::Tab>{{u"Untitled", u""}}));
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Panel(3), u"New file");
  EXPECT_TRUE(Box().visible());
}

TEST_F(FileCloseTest, ClosingAMiddleTabSelectsTheOneThatTakesItsPlace) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  OpenNew(u"C:\\c.tmj", "c");
  Box(2).Type(u"typed ");
  Box(2).MoveCaret({3, 2});
  documents.Select(1);
  commands.FileClose();
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"c.tmj"}));
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_EQ(documents[1].path, u"C:\\c.tmj");
  EXPECT_EQ(documents[1].modifiedFlag, 1);
  EXPECT_EQ(Box(1).Text(), u"typed c");
  EXPECT_EQ(Box(1).Selection(), (TextSpan{3, 2}));
  Box(1).Undo();
  EXPECT_EQ(Box(1).Text(), u"c");
}

TEST_F(FileCloseTest, ClosingTheLastTabSelectsTheOneBeforeIt) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  commands.FileClose();
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_TRUE(Box(0).visible());
}

TEST_F(FileCloseTest, TheTextThatIsShownThenHasTheFocus) {
  OpenNew(u"C:\\a.tmj", "a");
  OpenNew(u"C:\\b.tmj", "b");
  commands.FileClose();
  EXPECT_TRUE(Box().focused());
  commands.FileClose();
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(FileCloseTest, AsksForAModifiedDocument) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  prompts.answers = {Answer::kCancel};
  commands.FileClose();
  EXPECT_EQ(prompts.shown[0], (Message{u"a.tmj isn't saved. Do you want to save it now?",
                                       u"Save a.tmj?", BoxStyle::kYesNoCancel}));
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(Box().Text(), u"xold");
  prompts.answers = {Answer::kNo};
  commands.FileClose();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(FileCloseTest, YesSavesFirst) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  prompts.answers = {Answer::kYes};
  commands.FileClose();
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "xold");
  EXPECT_EQ(view.Captions(), Captions{u"Untitled"});
}

TEST_F(FileCloseTest, YesWithoutASuccessfulSaveClosesNothing) {
  OpenNew(u"C:\\a.tmj", "old");
  Box().Type(u"x");
  files.Fail(FileOperation::kReplace, u"C:\\a.tmj");
  prompts.answers = {Answer::kYes};
  commands.FileClose();
  EXPECT_EQ(view.Captions(), Captions{u"a.tmj"});
  EXPECT_EQ(Box().Text(), u"xold");
  commands.FileNew();
  Box().Type(u"y");
  prompts.answers = {Answer::kYes};
  dialogs.saveResults = {std::nullopt};
  commands.FileClose();
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"Untitled"}));
  EXPECT_EQ(documents.CurrentIndex(), 1);
}

TEST_F(FileCloseTest, OnlyTheFlagOneIsAskedAbout) {
  OpenNew(u"C:\\a.tmj", "old");
  documents[0].modifiedFlag = 2;
  commands.FileClose();
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(FileCloseTest, ClosingAMacroFileClearsTheMacroList) {
  OpenNew(u"C:\\a.tmm", "x");
  OpenNew(u"C:\\a.tmj", "x");
  commands.FileClose();
  EXPECT_EQ(macrosCleared, 0);
  commands.FileClose();
  EXPECT_EQ(macrosCleared, 1);
}

}  // namespace
}  // namespace deck
