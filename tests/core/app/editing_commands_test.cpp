// The editing tools and the Edit menu by their command numbers.
#include <gtest/gtest.h>

#include "tests/core/app/editor_fixture.h"

namespace deck {
namespace {

class EditingCommandsTest : public EditorFixture {
 protected:
  EditingCommandsTest() { Start(); }

  void SetText(std::u16string_view text, TextSpan selection) {
    Box().Load(text);
    Box().Select(selection);
  }
  bool IsMenuItemEnabled(CommandId command) { return view.commands[command].enabled; }
};

TEST_F(EditingCommandsTest, EveryOneIsAvailable) {
  for (const CommandId command :
       {CommandId::kUndo, CommandId::kCut, CommandId::kCopy, CommandId::kPaste, CommandId::kDelete,
        CommandId::kSelectAll, CommandId::kRefreshFonts, CommandId::kBlockRem,
        CommandId::kBlockUnRem, CommandId::kAlignSlashes, CommandId::kIndentWhenAligning}) {
    EXPECT_TRUE(IsMenuItemEnabled(command)) << static_cast<int>(command);
  }
}

TEST_F(EditingCommandsTest, TheEditMenuOffersCutCopyAndDeleteForASelectionOnly) {
  SetText(u"text", {1, 0});
  editor.OnMenuOpening(Menu::kEdit);
  for (const CommandId command : {CommandId::kCut, CommandId::kCopy, CommandId::kDelete}) {
    EXPECT_FALSE(IsMenuItemEnabled(command));
    EXPECT_TRUE(view.commands[command].menuItemOnly) << "the button stays as it is";
    EXPECT_EQ(view.commands[command].caption, FindCommand(command)->caption);
  }
  EXPECT_TRUE(IsMenuItemEnabled(CommandId::kPaste));
  Box().Select({1, 1});
  editor.OnMenuOpening(Menu::kEdit);
  for (const CommandId command : {CommandId::kCut, CommandId::kCopy, CommandId::kDelete})
    EXPECT_TRUE(IsMenuItemEnabled(command));
}

TEST_F(EditingCommandsTest, OtherMenusDoNotLookAtTheSelection) {
  SetText(u"text", {1, 0});
  editor.OnMenuOpening(Menu::kFile);
  EXPECT_TRUE(IsMenuItemEnabled(CommandId::kCut));
}

TEST_F(EditingCommandsTest, CutCopyPasteAndDeleteUseTheClipboard) {
  SetText(u"one two", {0, 4});
  editor.Execute(CommandId::kCut);
  EXPECT_EQ(Box().Text(), u"two");
  Box().Select({3, 0});
  editor.Execute(CommandId::kPaste);
  EXPECT_EQ(Box().Text(), u"twoone ");
  Box().Select({0, 3});
  editor.Execute(CommandId::kCopy);
  EXPECT_EQ(clipboard.Text(), u"two");
  editor.Execute(CommandId::kDelete);
  EXPECT_EQ(Box().Text(), u"one ");
}

TEST_F(EditingCommandsTest, ButtonsDoNothingWithoutASelection) {
  SetText(u"text", {1, 0});
  clipboard.PutByOthers(u"mine");
  for (const CommandId command : {CommandId::kCut, CommandId::kCopy, CommandId::kDelete})
    editor.Execute(command);
  EXPECT_EQ(Box().Text(), u"text");
  EXPECT_EQ(clipboard.Text(), u"mine");
}

TEST_F(EditingCommandsTest, UndoTakesBackOneEdit) {
  Box().Type(u"ab");
  editor.Execute(CommandId::kUndo);
  EXPECT_EQ(Box().Text(), u"");
}

TEST_F(EditingCommandsTest, SelectAllSelectsTheWholeText) {
  SetText(u"one\ntwo", {});
  editor.Execute(CommandId::kSelectAll);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 7}));
}

TEST_F(EditingCommandsTest, RefreshFontsPutsTheFontBack) {
  Box().hasForeignFont = true;
  editor.Execute(CommandId::kRefreshFonts);
  EXPECT_FALSE(Box().hasForeignFont);
}

TEST_F(EditingCommandsTest, BlockRemAndUnRemAreEachOthersReverse) {
  SetText(u"one\ntwo", {0, 7});
  editor.Execute(CommandId::kBlockRem);
  EXPECT_EQ(Box().Text(), u"Rem one\nRem two");
  EXPECT_EQ(Panel(2), u"Line no: 2");
  editor.Execute(CommandId::kSelectAll);
  editor.Execute(CommandId::kBlockUnRem);
  EXPECT_EQ(Box().Text(), u"one\ntwo");
}

TEST_F(EditingCommandsTest, AlignFollowsTheTickOfItsMenu) {
  SetText(u"BTN T1 /I X\n/O Y", {});
  editor.Execute(CommandId::kAlignSlashes);
  EXPECT_EQ(Box().Text(), u"BTN T1 /I X\n       /O Y");
  editor.Execute(CommandId::kIndentWhenAligning);
  editor.Execute(CommandId::kAlignSlashes);
  EXPECT_EQ(Box().Text(), u"     BTN T1 /I X\n            /O Y") << "five blanks by default";
}

TEST_F(EditingCommandsTest, AlignLeavesItsFilesInTheHostsTempFolder) {
  files.AddFolder(u"C:\\Host\\Temp");
  SetText(u"  x", {});
  editor.Execute(CommandId::kAlignSlashes);
  EXPECT_EQ(files.Content(u"C:\\Host\\Temp\\DeckAlign.txt"), "  x");
  EXPECT_EQ(files.Content(u"C:\\Host\\Temp\\DeckAlign2.txt"), "x");
}

}  // namespace
}  // namespace deck
