// Files that somebody else writes while they are open here.
#include <gtest/gtest.h>

#include <string>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

class EditorDiskChanges : public EditorFixture {
 protected:
  void LookAgain() {
    editor.OnLookedAt(false);
    editor.OnLookedAt(true);
  }
};

TEST_F(EditorDiskChanges, AnUnmodifiedDocumentIsReadAgain) {
  StartWith(u"C:\\a.tmj", "one\r\ntwo\r\nthree\r\n");
  Box().Select({5, 2});
  files.AddFile(u"C:\\a.tmj", "uno\ndos\ntres\n");
  LookAgain();
  EXPECT_EQ(Box().Text(), u"uno\ndos\ntres\n");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 0})) << "the caret stays in its line";
  EXPECT_EQ(Panel(1), u"Changed on disk and read again: a.tmj");
  EXPECT_EQ(Panel(2), u"Line no: 2");
  EXPECT_EQ(Panel(kStatePanel), u"Saved");
  EXPECT_TRUE(prompts.shown.empty());
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "uno\ndos\ntres\n") << "with its own line breaks";
  EXPECT_FALSE(files.Exists(u"C:\\a.tmj.bak"));
}

TEST_F(EditorDiskChanges, TheCaretGoesToTheLastLineWhenItsOwnIsGone) {
  StartWith(u"C:\\a.tmj", "one\ntwo\nthree");
  Box().Select({13, 0});
  files.AddFile(u"C:\\a.tmj", "uno\ndos");
  LookAgain();
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 0}));
}

TEST_F(EditorDiskChanges, AModifiedDocumentIsLeftAloneAndSavingKeepsTheOtherText) {
  StartWith(u"C:\\a.tmj", "one");
  Box().Type(u"my ");
  files.AddFile(u"C:\\a.tmj", "uno");
  LookAgain();
  EXPECT_EQ(Box().Text(), u"my one");
  EXPECT_EQ(Panel(1), u"Changed on disk: a.tmj");
  EXPECT_EQ(Panel(kStatePanel), u"Modified");
  editor.Execute(CommandId::kFileSave);
  EXPECT_EQ(files.Content(u"C:\\a.tmj"), "my one");
  EXPECT_EQ(files.Content(u"C:\\a.tmj.bak"), "uno");
}

TEST_F(EditorDiskChanges, AChangeIsToldOnce) {
  StartWith(u"C:\\a.tmj", "one");
  Box().Type(u"my ");
  files.AddFile(u"C:\\a.tmj", "uno");
  LookAgain();
  editor.Execute(CommandId::kFileNew);
  LookAgain();
  EXPECT_EQ(Panel(1), u"New file created for editing");
}

TEST_F(EditorDiskChanges, NothingIsSaidWithoutAChange) {
  StartWith(u"C:\\a.tmj", "one");
  const std::u16string before = Panel(1);
  LookAgain();
  EXPECT_EQ(Panel(1), before);
  files.AddFile(u"C:\\a.tmj", "one");
  LookAgain();
  EXPECT_EQ(Panel(1), before) << "written anew with the same bytes";
  Box().Type(u"my ");
  editor.Execute(CommandId::kFileSave);
  const std::u16string saved = Panel(1);
  LookAgain();
  EXPECT_EQ(Panel(1), saved) << "the own save is no change";
}

TEST_F(EditorDiskChanges, ASaveInOneTabReachesTheOtherTabOfTheSameFile) {
  StartWith(u"C:\\a.tmj", "one");
  prompts.answers = {Answer::kYes};
  Open(u"C:\\a.tmj");
  ASSERT_EQ(editor.Documents().Count(), 2);
  Box().Type(u"my ");
  editor.Execute(CommandId::kFileSave);
  LookAgain();
  EXPECT_EQ(editor.Documents()[0].text1->Text(), u"my one");
  EXPECT_EQ(Panel(1), u"Changed on disk and read again: a.tmj");
}

TEST_F(EditorDiskChanges, SeveralChangesAreToldTogether) {
  for (const std::u16string path : {u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"}) {
    files.AddFile(path, "old");
    if (path == u"C:\\a.tmj") {
      Start(u"WrenDeck.exe C:\\a.tmj");
    } else {
      Open(path);
    }
  }
  Box().Type(u"my ");
  for (const std::u16string path : {u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"}) {
    files.AddFile(path, "new");
  }
  LookAgain();
  EXPECT_EQ(Panel(1), u"Changed on disk and read again: a.tmj, b.tmj. Changed on disk: c.tmj");
}

TEST_F(EditorDiskChanges, MacrosOfAFileThatWasReadAgainAreShown) {
  StartWith(u"C:\\a.tmm", "A = b\r\n");
  ASSERT_EQ(panel.macros, std::vector<std::u16string>{u"A"});
  files.AddFile(u"C:\\a.tmm", "NEW = b\r\n");
  LookAgain();
  EXPECT_EQ(panel.macros, std::vector<std::u16string>{u"NEW"});
  EXPECT_EQ(Panel(1), u"Changed on disk and read again: a.tmm");
}

TEST_F(EditorDiskChanges, AFileThatIsGoneLockedOrSpoiltLeavesItsDocument) {
  StartWith(u"C:\\a.tmj", "one");
  const std::u16string before = Panel(1);
  files.AddFile(u"C:\\a.tmj", std::string("a\0b", 3));
  LookAgain();
  EXPECT_EQ(Box().Text(), u"one");
  ASSERT_TRUE(files.Delete(u"C:\\a.tmj"));
  LookAgain();
  EXPECT_EQ(Box().Text(), u"one");
  files.AddFile(u"C:\\a.tmj", "new");
  files.Fail(FileOperation::kRead, u"C:\\a.tmj");
  LookAgain();
  EXPECT_EQ(Box().Text(), u"one");
  EXPECT_EQ(Panel(1), before);
  files.StopFailing();
  LookAgain();
  EXPECT_EQ(Box().Text(), u"new") << "found by the next look";
}

TEST_F(EditorDiskChanges, AFolderInTheFilesPlaceLeavesItsDocument) {
  StartWith(u"C:\\a.tmj", "one");
  const std::u16string before = Panel(1);
  ASSERT_TRUE(files.Delete(u"C:\\a.tmj"));
  files.AddFolder(u"C:\\a.tmj");
  LookAgain();
  EXPECT_EQ(Box().Text(), u"one");
  EXPECT_EQ(Panel(1), before);
}

TEST_F(EditorDiskChanges, NothingChangesWhileTheCompilerIsWaitedFor) {
  StartWith(u"C:\\a.tmj", "BTN S1 X\r\n");
  std::u16string during;
  events.actions.push_back([&] {
    files.AddFile(u"C:\\a.tmj", "uno");
    LookAgain();
    during = Panel(1);
  });
  CompilerReports(u"OK", 0, 10, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_TRUE(during.starts_with(u"Compil")) << testing::PrintToString(during);
  EXPECT_EQ(Box().Text(), u"BTN S1 X\n");
  LookAgain();
  EXPECT_EQ(Box().Text(), u"uno");
}

TEST_F(EditorDiskChanges, LeavingTheWindowLooksAtNothing) {
  StartWith(u"C:\\a.tmj", "one");
  files.AddFile(u"C:\\a.tmj", "uno");
  editor.OnLookedAt(false);
  EXPECT_EQ(Box().Text(), u"one");
}

}  // namespace
}  // namespace deck
