#include "tools/edit_commands.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/core/documents/documents_fixture.h"
#include "tests/fakes/fake_clipboard.h"

namespace deck {
namespace {

using Item = EditCommands::Item;

class EditCommandsTest : public DocumentsFixture {
 protected:
  void SetText(std::u16string_view text, TextSpan selection) {
    Box().Load(text);
    Box().Select(selection);
  }

  FakeClipboard clipboard;
  EditCommands edit{documents, clipboard};
};

TEST_F(EditCommandsTest, CutsTheSelection) {
  SetText(u"one\ntwo\nthree", {2, 4});
  edit.mnuEditCCP(Item::kCut);
  EXPECT_EQ(Box().Text(), u"ono\nthree");
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 0}));
  EXPECT_EQ(clipboard.Text(), u"e\ntw");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(Box().undoSteps(), 1);
}

TEST_F(EditCommandsTest, CutsNothingThatTheClipboardDidNotTake) {
  SetText(u"text", {0, 4});
  clipboard.busy = true;
  edit.mnuEditCCP(Item::kCut);
  EXPECT_EQ(Box().Text(), u"text");
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 4}));
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
}

TEST_F(EditCommandsTest, CopiesTheSelection) {
  SetText(u"one two", {4, 3});
  edit.mnuEditCCP(Item::kCopy);
  EXPECT_EQ(clipboard.Text(), u"two");
  EXPECT_EQ(Box().Text(), u"one two");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 3}));
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
}

TEST_F(EditCommandsTest, GivesOtherProgramsTheirLineBreaks) {
  SetText(u"a\nb", {0, 3});
  edit.mnuEditCCP(Item::kCopy);
  EXPECT_EQ(clipboard.SeenByOthers(), u"a\r\nb");
}

TEST_F(EditCommandsTest, PastesOverTheSelection) {
  SetText(u"one two three", {4, 3});
  clipboard.PutByOthers(u"2\r\n2");
  edit.mnuEditCCP(Item::kPaste);
  EXPECT_EQ(Box().Text(), u"one 2\n2 three");
  EXPECT_EQ(Box().Selection(), (TextSpan{7, 0}));
  EXPECT_EQ(Panel(2), u"Line no: 2");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"one two three");
}

TEST_F(EditCommandsTest, PastesNothingButText) {
  SetText(u"one two", {4, 3});
  clipboard.PutPicture();
  edit.mnuEditCCP(Item::kPaste);
  EXPECT_EQ(Box().Text(), u"one two");
  EXPECT_EQ(Box().Selection(), (TextSpan{4, 3}));
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
}

TEST_F(EditCommandsTest, PastesNothingFromAClipboardThatCannotBeOpened) {
  SetText(u"one two", {4, 3});
  clipboard.PutByOthers(u"x");
  clipboard.busy = true;
  edit.mnuEditCCP(Item::kPaste);
  EXPECT_EQ(Box().Text(), u"one two");
}

TEST_F(EditCommandsTest, DeletesTheSelectionAndLeavesTheClipboardAlone) {
  SetText(u"one\ntwo", {2, 4});
  clipboard.PutByOthers(u"mine");
  edit.mnuEditCCP(Item::kDelete);
  EXPECT_EQ(Box().Text(), u"ono");
  EXPECT_EQ(Panel(2), u"Line no: 1");
  EXPECT_EQ(clipboard.Text(), u"mine");
  EXPECT_EQ(Box().undoSteps(), 1);
}

TEST_F(EditCommandsTest, WithoutASelectionCutCopyAndDeleteDoNothing) {
  clipboard.PutByOthers(u"mine");
  for (const Item item : {Item::kCut, Item::kCopy, Item::kDelete}) {
    SetText(u"text", {2, 0});
    edit.mnuEditCCP(item);
    EXPECT_EQ(Box().Text(), u"text");
    EXPECT_EQ(Box().Selection(), (TextSpan{2, 0}));
    EXPECT_FALSE(Box().CanUndo());
    EXPECT_EQ(documents.Current().modifiedFlag, 0);
    EXPECT_EQ(clipboard.Text(), u"mine");
  }
}

TEST_F(EditCommandsTest, SelectsAll) {
  SetText(u"one\ntwo\n", {5, 1});
  documents.ShowCaretLine();
  ASSERT_EQ(Panel(2), u"Line no: 2");
  edit.mnuEditSelAll();
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 8}));
  EXPECT_EQ(Panel(2), u"Line no: 1");
  SetText(u"", {});
  edit.mnuEditSelAll();
  EXPECT_EQ(Box().Selection(), TextSpan{});
}

TEST_F(EditCommandsTest, UndoesOneStepAtATime) {
  SetText(u"a\nb", {3, 0});
  Box().ReplaceSelection(u"\nc");
  Box().ReplaceSelection(u"\nd");
  edit.mnuUndo();
  EXPECT_EQ(Box().Text(), u"a\nb\nc");
  EXPECT_EQ(Panel(2), u"Line no: 3");
  edit.mnuUndo();
  EXPECT_EQ(Box().Text(), u"a\nb");
  EXPECT_EQ(Panel(2), u"Line no: 2");
  edit.mnuUndo();
  EXPECT_EQ(Box().Text(), u"a\nb");
}

TEST_F(EditCommandsTest, UndoesAHundredStepsInEachDocument) {
  const auto fill = [this] {
    Box().Load(u"start");
    for (int i = 0; i < 100; ++i) Box().ReplaceSelection(u"x");
  };
  fill();
  documents.Add();
  documents.Select(1);
  fill();
  for (const int index : {0, 1}) {
    documents.Select(index);
    for (int i = 0; i < 100; ++i) edit.mnuUndo();
    EXPECT_EQ(Box().Text(), u"start");
  }
}

TEST_F(EditCommandsTest, PutsTheFontBackAndNothingElse) {
  SetText(u"one\ntwo", {2, 3});
  Box().hasForeignFont = true;
  edit.mnuRefreshFonts();
  EXPECT_FALSE(Box().hasForeignFont);
  EXPECT_EQ(Box().Text(), u"one\ntwo");
  EXPECT_EQ(Box().Selection(), (TextSpan{2, 3}));
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
}

TEST_F(EditCommandsTest, ActsOnTheSelectedTab) {
  SetText(u"first", {0, 5});
  documents.Add();
  documents.Select(1);
  SetText(u"second", {0, 6});
  edit.mnuEditCCP(Item::kCut);
  EXPECT_EQ(clipboard.Text(), u"second");
  EXPECT_EQ(Box(0).Text(), u"first");
}

}  // namespace
}  // namespace deck
