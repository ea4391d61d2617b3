#include "documents/recovery.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/fakes/fake_background_work.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_main_window_view.h"

namespace deck {
namespace {

const std::u16string kFolder = u"C:\\Host\\Recovery";

// What all editors of one machine share.
struct Machine {
  FakeFiles files;
  FakeCodePage codePage;
};

// One running editor; ends without a word when it goes out of scope, as a killed one does.
class RunningEditor {
 public:
  explicit RunningEditor(Machine& machine, const std::u16string& startupFile = {})
      : recovery(documents, {machine.files, background, events, machine.codePage}) {
    view.makeEditBox = [](EditBox::Events boxEvents) {
      return std::make_unique<FakeEditBox>(std::move(boxEvents));
    };
    documents.Add();
    if (!startupFile.empty()) Open(machine, startupFile);
    started = recovery.Start(kFolder);
    captions = recovery.Restore();
  }

  FakeEditBox& Box(int index) { return dynamic_cast<FakeEditBox&>(*documents[index].text1); }
  void Type(const std::u16string& text) { Box(documents.CurrentIndex()).Type(text); }
  void TakeTextOut() {
    FakeEditBox& box = Box(documents.CurrentIndex());
    box.Select({0, box.Length()});
    box.ReplaceSelection(u"");
  }
  std::u16string Text(int index) { return documents[index].text1->Text(); }
  // An unmodified document of a file.
  void Open(Machine& machine, const std::u16string& path) {
    const int index = documents.TargetForLoading();
    const std::string bytes = machine.files.Content(path);
    FileImage image;
    image.bytes = bytes;
    for (const char byte : bytes) {
      if (byte != '\r') image.text += static_cast<char16_t>(byte);
    }
    documents[index].text1->Load(image.text);
    documents[index].file = image;
    documents.Rename(index, path);
  }

  FakeMainWindowView view;
  FakeKeyboard keyboard;
  FakeEventLoop events;
  FakeBackgroundWork background;
  Settings settings;
  StatusBar status{view};
  DocumentSet documents{view, status, keyboard, settings};
  Recovery recovery;
  bool started = false;
  std::vector<std::u16string> captions;
};

class RecoveryTest : public testing::Test {
 protected:
  RecoveryTest() { machine.files.AddFolder(u"C:\\Host"); }

  std::size_t CountTexts() { return machine.files.FilesIn(kFolder).size(); }
  // An editor opens a file of these bytes, keeps what is typed in front of them, and is killed.
  void DieAfterTyping(const std::u16string& path, const std::string& bytes,
                      const std::u16string& typed) {
    machine.files.AddFile(path, bytes);
    RunningEditor editor(machine);
    editor.Open(machine, path);
    editor.Type(typed);
    editor.recovery.Update();
  }

  Machine machine;
};

using Captions = std::vector<std::u16string>;

TEST_F(RecoveryTest, WhatWasTypedBeforeTheEditorDiedComesBack) {
  machine.files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.Type(u"rem ");
    editor.documents.Add();
    editor.Type(u"new text");
    editor.recovery.Update();
  }
  RunningEditor editor(machine);
  EXPECT_EQ(editor.captions, (Captions{u"a.tmj", u"Untitled"}));
  ASSERT_EQ(editor.documents.Count(), 2);
  EXPECT_EQ(editor.Text(0), u"rem BTN S1 X\n");
  EXPECT_EQ(editor.documents[0].path, u"C:\\a.tmj");
  EXPECT_EQ(editor.documents[0].caption, u"a.tmj");
  EXPECT_EQ(editor.documents[0].modifiedFlag, 1);
  EXPECT_EQ(editor.Text(1), u"new text");
  EXPECT_EQ(editor.documents[1].path, u"");
  EXPECT_EQ(editor.documents[1].modifiedFlag, 1);
  EXPECT_EQ(editor.documents.CurrentIndex(), 0);
  EXPECT_EQ(machine.files.Content(u"C:\\a.tmj"), "BTN S1 X\r\n") << "nothing is written";
  EXPECT_FALSE(editor.documents[0].text1->CanUndo());
}

TEST_F(RecoveryTest, ADocumentThatIsOpenStaysInFront) {
  machine.files.AddFile(u"C:\\a.tmj", "x");
  {
    RunningEditor editor(machine);
    editor.Type(u"lost");
    editor.recovery.Update();
  }
  RunningEditor editor(machine, u"C:\\a.tmj");
  EXPECT_EQ(editor.captions, Captions{u"Untitled"});
  EXPECT_EQ(editor.documents.Count(), 2);
  EXPECT_EQ(editor.documents.CurrentIndex(), 0);
  EXPECT_EQ(editor.view.selectedTab, 1);
}

TEST_F(RecoveryTest, TextsComeBackAgainAndAgainUntilTheyAreSaved) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
  }
  for (int i = 0; i < 3; ++i) {
    RunningEditor editor(machine);
    ASSERT_EQ(editor.documents.Count(), 1);
    EXPECT_EQ(editor.Text(0), u"one");
    EXPECT_EQ(CountTexts(), 1u) << "every text stands in one file only";
  }
  RunningEditor editor(machine);
  editor.documents[0].modifiedFlag = 0;
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(RecoveryTest, EditsAfterTheComebackGoIntoTheSameFile) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
  }
  {
    RunningEditor editor(machine);
    editor.Box(0).Select({3, 0});
    editor.Type(u" two");
    editor.recovery.Update();
    EXPECT_EQ(CountTexts(), 1u);
  }
  RunningEditor editor(machine);
  EXPECT_EQ(editor.Text(0), u"one two");
}

TEST_F(RecoveryTest, NewTextsDoNotTakeTheNamesOfThoseThatCameBack) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.documents.Add();
    editor.Type(u"two");
    editor.recovery.Update();
  }
  {
    RunningEditor editor(machine);
    editor.documents.Add();
    editor.Type(u"three");
    editor.recovery.Update();
  }
  EXPECT_EQ(RunningEditor(machine).captions.size(), 3u);
}

TEST_F(RecoveryTest, AnOrderlyEndLeavesNothing) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
    EXPECT_EQ(CountTexts(), 1u);
    editor.recovery.End();
    EXPECT_EQ(CountTexts(), 0u);
    EXPECT_FALSE(editor.events.IsRunning(TimerId::kRecoveryTimer));
  }
  EXPECT_TRUE(RunningEditor(machine).captions.empty());
}

TEST_F(RecoveryTest, SavedAndClosedDocumentsAreTakenAway) {
  RunningEditor editor(machine);
  editor.Type(u"one");
  editor.documents.Add();
  editor.Type(u"two");
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 2u);
  editor.documents[0].modifiedFlag = 0;
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 1u);
  editor.documents.Remove(1);
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(RecoveryTest, ADocumentThatIsEditedAgainAfterASaveIsKeptAgain) {
  RunningEditor editor(machine);
  editor.Type(u"one");
  editor.recovery.Update();
  editor.documents[0].modifiedFlag = 0;
  editor.recovery.Update();
  editor.Type(u"two");
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 1u);
}

TEST_F(RecoveryTest, AnUntitledDocumentWithoutTextIsNotKept) {
  RunningEditor editor(machine);
  editor.Type(u"x");
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 1u);
  editor.TakeTextOut();
  ASSERT_EQ(editor.Text(0), u"");
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(RecoveryTest, AFileWhoseTextWasTakenOutIsKeptWithoutText) {
  machine.files.AddFile(u"C:\\a.tmj", "x");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.TakeTextOut();
    editor.recovery.Update();
  }
  RunningEditor editor(machine);
  EXPECT_EQ(editor.captions, Captions{u"a.tmj"});
  EXPECT_EQ(editor.Text(0), u"");
}

TEST_F(RecoveryTest, WritesOnlyWhatWasEditedSinceTheLastTime) {
  RunningEditor editor(machine);
  editor.background.held = true;
  editor.Type(u"one");
  editor.recovery.Update();
  EXPECT_EQ(editor.background.waiting.size(), 1u);
  editor.background.Finish();
  editor.recovery.Update();
  EXPECT_TRUE(editor.background.waiting.empty());
}

TEST_F(RecoveryTest, AnotherNameReachesTheFileAlsoWithoutAnotherText) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
    editor.documents.Rename(0, u"C:\\b.tmj");
    editor.recovery.Update();
  }
  EXPECT_EQ(RunningEditor(machine).captions, Captions{u"b.tmj"});
}

TEST_F(RecoveryTest, AnotherTextInTheSameBoxReachesTheFile) {
  machine.files.AddFile(u"C:\\a.tmj", "old");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.Type(u"new ");
    editor.recovery.Update();
    // Saved, written by somebody else and read again, and marked as modified before the next tick.
    ShowFileContent(editor.documents[0], {"other", {u"other", {}}, 1});
    editor.documents[0].modifiedFlag = 1;
    editor.recovery.Update();
  }
  EXPECT_EQ(RunningEditor(machine).Text(0), u"other");
}

TEST_F(RecoveryTest, ASlowDiskGetsTheNewestTextAndNotEveryOne) {
  {
    RunningEditor editor(machine);
    editor.background.held = true;
    editor.Type(u"a");
    editor.recovery.Update();
    for (int i = 0; i < 10; ++i) {
      editor.Type(u"b");
      editor.recovery.Update();
    }
    EXPECT_EQ(editor.background.waiting.size(), 1u);
    editor.background.Finish();
    editor.recovery.Update();
    editor.background.Finish();
  }
  EXPECT_EQ(RunningEditor(machine).Text(0).size(), 11u);
}

TEST_F(RecoveryTest, ATextThatCouldNotBeWrittenIsSaidAndWrittenAgain) {
  {
    RunningEditor editor(machine);
    machine.files.Fail(FileOperation::kReplace, kFolder + u"\\1-1.txt");
    editor.Type(u"one");
    editor.recovery.Update();
    EXPECT_FALSE(editor.recovery.Update());
    machine.files.StopFailing();
    EXPECT_FALSE(editor.recovery.Update()) << "of the time before";
    EXPECT_EQ(CountTexts(), 1u);
    EXPECT_TRUE(editor.recovery.Update());
  }
  EXPECT_EQ(RunningEditor(machine).Text(0), u"one");
}

TEST_F(RecoveryTest, AKeptTextIsNeverWrittenOverInItsOwnFile) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
    machine.files.Fail(FileOperation::kReplaceWhole, kFolder + u"\\1-1.txt");
    editor.Type(u" two");
    editor.recovery.Update();
    EXPECT_FALSE(editor.recovery.Update());
  }
  machine.files.StopFailing();
  EXPECT_EQ(RunningEditor(machine).Text(0), u"one");
}

TEST_F(RecoveryTest, WhatIsKeptBeforeAFileIsWrittenOverComesBackWhenThatTearsIt) {
  machine.files.AddFile(u"C:\\a.tmj", "old old");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.Type(u"new ");
    editor.background.held = true;
    editor.recovery.KeepNow(editor.documents[0]);
    EXPECT_EQ(CountTexts(), 1u) << "on disk before the call returns";
    machine.files.AddFile(u"C:\\a.tmj", "new old");
  }
  RunningEditor editor(machine);
  EXPECT_EQ(editor.captions, Captions{u"a.tmj"});
  EXPECT_EQ(editor.Text(0), u"new old old");
  EXPECT_EQ(editor.documents[0].modifiedFlag, 1);
  EXPECT_EQ(machine.files.Content(u"C:\\a.tmj"), "new old");
}

TEST_F(RecoveryTest, TheNewestTextIsKeptBeforeAFileIsWrittenOverWhileAnOlderOneIsOnItsWay) {
  {
    RunningEditor editor(machine);
    editor.background.held = true;
    editor.Type(u"one");
    editor.recovery.Update();
    editor.Type(u" two");
    editor.recovery.KeepNow(editor.documents[0]);
  }
  EXPECT_EQ(RunningEditor(machine).Text(0), u"one two");
}

TEST_F(RecoveryTest, AlsoAnUnmodifiedTextIsKeptBeforeAFileIsWrittenOverAndGoesWithTheNextTick) {
  machine.files.AddFile(u"C:\\a.tmj", "text");
  RunningEditor editor(machine);
  editor.Open(machine, u"C:\\a.tmj");
  editor.recovery.KeepNow(editor.documents[0]);
  EXPECT_EQ(CountTexts(), 1u);
  editor.recovery.Update();
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(RecoveryTest, KeepsNothingBeforeItHasStarted) {
  machine.files.Fail(FileOperation::kCreateFolder, kFolder);
  RunningEditor editor(machine);
  editor.Type(u"one");
  editor.recovery.KeepNow(editor.documents[0]);
  EXPECT_EQ(machine.files.AllFiles().size(), 0u);
}

TEST_F(RecoveryTest, EditorsThatRunSideBySideDoNotTakeEachOthersTexts) {
  RunningEditor first(machine);
  first.Type(u"of the first");
  first.recovery.Update();
  {
    RunningEditor second(machine);
    EXPECT_TRUE(second.started);
    EXPECT_TRUE(second.captions.empty());
    second.Type(u"of the second");
    second.recovery.Update();
    EXPECT_EQ(CountTexts(), 2u);
  }
  RunningEditor third(machine);
  ASSERT_EQ(third.captions.size(), 1u);
  EXPECT_EQ(third.Text(0), u"of the second");
  third.recovery.End();
  EXPECT_EQ(CountTexts(), 1u) << "the first one's text is its own";
}

TEST_F(RecoveryTest, TheTextsOfSeveralDeadEditorsComeBackTogether) {
  {
    RunningEditor first(machine);
    RunningEditor second(machine);
    first.Type(u"of the first");
    first.recovery.Update();
    second.Type(u"of the second");
    second.recovery.Update();
  }
  RunningEditor editor(machine);
  ASSERT_EQ(editor.documents.Count(), 2);
  EXPECT_EQ(editor.Text(0), u"of the first");
  EXPECT_EQ(editor.Text(1), u"of the second");
  RunningEditor another(machine);
  EXPECT_TRUE(another.captions.empty()) << "taken over by the one that was there first";
}

TEST_F(RecoveryTest, SavingOverTheFileThatWasEditedNeedsNoSecondCopy) {
  machine.files.AddFile(u"C:\\a.tmj", "old\n");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.documents[0].file.format = {Encoding::kUtf8, LineBreak::kLf};
    editor.Type(u"new ");
    editor.recovery.Update();
  }
  RunningEditor editor(machine);
  EXPECT_EQ(editor.documents[0].file.bytes, "old\n");
  EXPECT_EQ(editor.documents[0].file.text, u"old\n");
  EXPECT_EQ(editor.documents[0].file.format, (FileFormat{Encoding::kUtf8, LineBreak::kLf}));
}

TEST_F(RecoveryTest, ATextThatSomebodyWroteMeanwhileIsNotKnownToTheDocument) {
  DieAfterTyping(u"C:\\a.tmj", "old", u"new ");
  machine.files.AddFile(u"C:\\a.tmj", "of somebody else");
  RunningEditor editor(machine);
  EXPECT_EQ(editor.Text(0), u"new old");
  EXPECT_EQ(editor.documents[0].file.bytes, "") << "so that a save keeps it as a copy";
}

TEST_F(RecoveryTest, AnEmptiedFileThatSomebodyWroteMeanwhileComesBackEmpty) {
  machine.files.AddFile(u"C:\\a.tmj", "old");
  {
    RunningEditor editor(machine);
    editor.Open(machine, u"C:\\a.tmj");
    editor.TakeTextOut();
    editor.recovery.Update();
  }
  machine.files.AddFile(u"C:\\a.tmj", "of somebody else");
  RunningEditor editor(machine);
  EXPECT_EQ(editor.captions, Captions{u"a.tmj"});
  EXPECT_EQ(editor.Text(0), u"");
}

TEST_F(RecoveryTest, ATextThatReachedItsFileDoesNotComeBack) {
  DieAfterTyping(u"C:\\a.tmj", "old", u"new ");
  machine.files.AddFile(u"C:\\a.tmj", "new old");
  RunningEditor editor(machine);
  EXPECT_TRUE(editor.captions.empty());
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(RecoveryTest, AFileThatIsGoneComesBackAsAText) {
  DieAfterTyping(u"C:\\a.tmj", "old", u"new ");
  ASSERT_TRUE(machine.files.Delete(u"C:\\a.tmj"));
  RunningEditor editor(machine);
  EXPECT_EQ(editor.captions, Captions{u"a.tmj"});
  EXPECT_EQ(editor.Text(0), u"new old");
}

TEST_F(RecoveryTest, ForeignFilesInTheFolderStayWhereTheyAre) {
  machine.files.AddFile(kFolder + u"\\1-1.txt", "not one of ours");
  machine.files.AddFile(kFolder + u"\\readme.txt", "x");
  {
    RunningEditor editor(machine);
    EXPECT_TRUE(editor.started);
    EXPECT_TRUE(editor.captions.empty());
    editor.Type(u"one");
    editor.recovery.Update();
    EXPECT_EQ(machine.files.Content(kFolder + u"\\1-1.txt"), "not one of ours");
    editor.recovery.End();
  }
  EXPECT_EQ(CountTexts(), 2u);
}

TEST_F(RecoveryTest, ATextThatCannotBeReadNowWaitsForALaterStart) {
  {
    RunningEditor editor(machine);
    editor.Type(u"one");
    editor.recovery.Update();
  }
  machine.files.Fail(FileOperation::kRead, kFolder + u"\\1-1.txt");
  {
    RunningEditor editor(machine);
    EXPECT_TRUE(editor.captions.empty());
    editor.recovery.End();
  }
  machine.files.StopFailing();
  EXPECT_EQ(RunningEditor(machine).captions.size(), 1u);
}

TEST_F(RecoveryTest, ARelativePathInARecoveryFileIsNotFollowed) {
  machine.files.AddFile(kFolder + u"\\1-1.txt", EncodeRecoveryFile({u"..\\a.tmj", {}, 0, u"text"}));
  RunningEditor editor(machine);
  ASSERT_EQ(editor.captions, Captions{u"Untitled"});
  EXPECT_EQ(editor.documents[0].path, u"");
  EXPECT_EQ(editor.Text(0), u"text");
}

TEST_F(RecoveryTest, WithoutAFolderNothingIsKeptAndNothingBreaks) {
  machine.files.Fail(FileOperation::kCreateFolder, kFolder);
  RunningEditor editor(machine);
  EXPECT_FALSE(editor.started);
  EXPECT_FALSE(editor.events.IsRunning(TimerId::kRecoveryTimer));
  editor.Type(u"one");
  editor.recovery.Update();
  editor.recovery.End();
  EXPECT_FALSE(machine.files.Exists(kFolder));
}

TEST_F(RecoveryTest, TextsAreAtMostAFewSecondsBehind) {
  RunningEditor editor(machine);
  EXPECT_GT(editor.events.Interval(TimerId::kRecoveryTimer), 0);
  EXPECT_LE(editor.events.Interval(TimerId::kRecoveryTimer), 3000);
}

}  // namespace
}  // namespace deck
