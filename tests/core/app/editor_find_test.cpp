// Find, replace and goto line within the whole program.
#include <gtest/gtest.h>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

using enum FindControl;

class EditorFindTest : public EditorFixture {
 protected:
  void StartWith(std::u16string_view text) {
    Start();
    Box().Type(text);
    Box().Select({0, 0});
  }
};

TEST_F(EditorFindTest, TheThreeCommandsOpenTheirPages) {
  Start();
  const std::pair<CommandId, FindPage> pages[] = {{CommandId::kFind, FindPage::kFind},
                                                  {CommandId::kReplace, FindPage::kReplace},
                                                  {CommandId::kGotoLine, FindPage::kGotoLine}};
  for (const auto& [command, page] : pages) {
    EXPECT_TRUE(view.commands[command].enabled);
    editor.Execute(command);
    EXPECT_TRUE(findDialog.IsOpen());
    EXPECT_EQ(findDialog.page(), page);
  }
}

TEST_F(EditorFindTest, FindAgainOpensFindFirstAndThenSearchesOn) {
  StartWith(u"one two one");
  editor.Execute(CommandId::kFindAgain);
  ASSERT_TRUE(findDialog.IsOpen());
  findDialog.Type(kComboTextFind, u"one");
  editor.Execute(CommandId::kFindAgain);
  editor.Execute(CommandId::kFindAgain);
  EXPECT_EQ(Box().Selection(), (TextSpan{8, 3}));
}

TEST_F(EditorFindTest, ReplacesInTheTabThatIsSelectedAndUndoTakesItBack) {
  StartWith(u"one two one");
  editor.Execute(CommandId::kFileNew);
  Box().Type(u"one");
  editor.Execute(CommandId::kReplace);
  findDialog.Type(kComboTextReplaceFind, u"one");
  findDialog.Type(kComboTextReplaceWith, u"1");
  findDialog.Click(kCommand3);
  editor.Execute(CommandId::kPreviousTab);
  findDialog.Click(kCommand6);
  EXPECT_EQ(Box().Text(), u"1 two 1");
  EXPECT_EQ(prompts.shown.back().text, u"2 replacements were made in Untitled");
  editor.Execute(CommandId::kUndo);
  EXPECT_EQ(Box().Text(), u"one two one");
  editor.Execute(CommandId::kNextTab);
  EXPECT_EQ(Box().Text(), u"one");
}

TEST_F(EditorFindTest, CompilingMinimisesTheDialogAndTheMenuBringsItBack) {
  files.AddFile(u"C:\\a.tmj", "BTN S1 X\r\n");
  Start();
  Open(u"C:\\a.tmj");
  editor.Execute(CommandId::kFind);
  CompilerReports(u"COMPILED", 0, 10, u"");
  editor.Execute(CommandId::kCompile);
  EXPECT_TRUE(findDialog.IsOpen());
  EXPECT_TRUE(findDialog.minimised());
  editor.Execute(CommandId::kFind);
  EXPECT_FALSE(findDialog.minimised());
}

TEST_F(EditorFindTest, ClosingTheProgramClosesTheDialogAfterTheSettingsAreWritten) {
  Start();
  editor.Execute(CommandId::kFind);
  ASSERT_TRUE(editor.QueryUnload());
  EXPECT_TRUE(findDialog.IsOpen());
  editor.Unload();
  EXPECT_FALSE(findDialog.IsOpen());
  EXPECT_NE(Own(u"Miscellaneous", u"EditorWindowstate"), u"");
}

}  // namespace
}  // namespace deck
