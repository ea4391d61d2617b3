// Unsaved texts across the end of one editor and the start of the next.
#include <gtest/gtest.h>

#include <string>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

using Captions = std::vector<std::u16string>;

const std::u16string kRecovery = u"C:\\Host\\Recovery";

class EditorRecovery : public EditorFixture {
 protected:
  // What an editor that died has left.
  void LeaveText(int number, const std::u16string& path, const std::u16string& text) {
    files.AddFile(kRecovery + u"\\" + FileNameFor({1, number}),
                  EncodeRecoveryFile({path, {}, FingerprintOf(files.Content(path)), text}));
  }
  std::size_t CountTexts() { return files.FilesIn(kRecovery).size(); }
};

TEST_F(EditorRecovery, TypedTextReachesTheDiskWithinAFewSeconds) {
  Start();
  Box().Type(u"BTN S1 X");
  EXPECT_EQ(CountTexts(), 0u);
  events.Advance(3000);
  ASSERT_EQ(CountTexts(), 1u);
  EXPECT_EQ(DecodeRecoveryFile(files.Content(kRecovery + u"\\1-1.txt"))->text, u"BTN S1 X");
}

TEST_F(EditorRecovery, LostTextsComeBackModifiedUnderTheirOldNames) {
  files.AddFile(u"C:\\a.tmj", "old");
  LeaveText(1, u"C:\\a.tmj", u"new");
  LeaveText(2, u"", u"never saved");
  Start();
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"Untitled"}));
  EXPECT_EQ(Panel(1), u"Unsaved text has come back: a.tmj, Untitled");
  EXPECT_EQ(Panel(kStatePanel), u"Modified");
  EXPECT_EQ(Box().Text(), u"new");
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "old");
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_TRUE(view.recentFiles.empty()) << "nothing was opened";
  prompts.answers = {Answer::kNo, Answer::kCancel};
  EXPECT_FALSE(editor.QueryUnload());
  EXPECT_EQ(prompts.shown.size(), 2u) << "both are unsaved as before";
}

TEST_F(EditorRecovery, TheStartUpFileStaysInFrontOfTheTextsThatComeBack) {
  files.AddFile(u"C:\\a.tmj", "a");
  LeaveText(1, u"", u"never saved");
  Start(u"WrenDeck.exe C:\\a.tmj");
  EXPECT_EQ(view.Captions(), (Captions{u"a.tmj", u"Untitled"}));
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_EQ(Panel(1), u"Unsaved text has come back: Untitled");
}

TEST_F(EditorRecovery, ATextThatCameBackIsSavedWithoutASecondCopy) {
  files.AddFile(u"C:\\a.tmj", "old");
  LeaveText(1, u"C:\\a.tmj", u"new");
  Start();
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "new");
  EXPECT_FALSE(files.Exists(u"C:\\a.tmj.bak"));
  events.Advance(3000);
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(EditorRecovery, ATextThatSomebodyWroteMeanwhileIsKeptBesideTheSavedOne) {
  files.AddFile(u"C:\\a.tmj", "old");
  LeaveText(1, u"C:\\a.tmj", u"new");
  files.AddFile(u"C:\\a.tmj", "of somebody else");
  Start();
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "new");
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak"), "of somebody else");
}

TEST_F(EditorRecovery, AnOrderlyEndLeavesNoTextAlsoWhenTheUserThrewItAway) {
  Start();
  Box().Type(u"x");
  events.Advance(3000);
  ASSERT_EQ(CountTexts(), 1u);
  prompts.answers = {Answer::kNo};
  ASSERT_TRUE(editor.QueryUnload());
  EXPECT_EQ(CountTexts(), 1u) << "the end may still be called off";
  editor.Unload();
  EXPECT_EQ(CountTexts(), 0u);
}

TEST_F(EditorRecovery, AnEndThatAskedNobodyThrowsNoTextAway) {
  Start();
  Box().Type(u"x");
  events.Advance(3000);
  editor.Unload();
  EXPECT_EQ(CountTexts(), 1u);
}

TEST_F(EditorRecovery, ATextThatCannotBeKeptIsToldOnce) {
  Start();
  files.Fail(FileOperation::kReplace, kRecovery + u"\\1-1.txt");
  Box().Type(u"x");
  events.Advance(6000);
  EXPECT_EQ(Panel(1), u"Unsaved text cannot be kept for the case of a crash");
  editor.Execute(CommandId::kFileNew);
  events.Advance(6000);
  EXPECT_EQ(Panel(1), u"New file created for editing");
}

TEST_F(EditorRecovery, AFolderThatTakesNoFilesIsToldAtTheStart) {
  files.Fail(FileOperation::kCreateFolder, kRecovery);
  Start();
  EXPECT_EQ(Panel(1), u"Settings and unsaved texts cannot be kept in C:\\Host");
  Box().Type(u"x");
  events.Advance(6000);
  prompts.answers = {Answer::kNo};
  EXPECT_TRUE(editor.QueryUnload());
  editor.Unload();
}

TEST_F(EditorRecovery, TextsAreKeptWhileTheCompilerIsWaitedFor) {
  StartWith(u"C:\\a.tmj", "BTN S1 X\r\n");
  events.actions.push_back([this] {
    Box().Type(u"typed while waiting");
    events.Advance(3000);
    EXPECT_EQ(CountTexts(), 1u);
  });
  CompilerReports(u"OK", 0, 10, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_FALSE(prompts.shown.empty());
}

}  // namespace
}  // namespace deck
