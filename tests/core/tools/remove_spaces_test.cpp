#include "tools/remove_spaces.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "tests/core/documents/documents_fixture.h"

namespace deck {
namespace {

const std::u16string kBefore = u"C:\\Host\\Temp\\DeckAlign.txt";
const std::u16string kAfter = u"C:\\Host\\Temp\\DeckAlign2.txt";

class RemoveSpacesTest : public DocumentsFixture {
 protected:
  RemoveSpacesTest() {
    settings.applicationFolder = u"C:\\Host";
    files.AddFolder(u"C:\\Host\\Temp");
  }

  SlashAlignment alignment{documents, status, settings, {files, codePage, view}};
};

TEST_F(RemoveSpacesTest, AlignsTheDocument) {
  Box().Load(u"BTN  T1 /I X\n/O Y\n");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"BTN T1 /I X\n       /O Y\n");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(Panel(1), u" Hang on - this could take time ...");
  EXPECT_EQ(Panel(3), u"Modified");
}

TEST_F(RemoveSpacesTest, ShowsItsTextBeforeItBegins) {
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(view.refreshes, 1);
}

TEST_F(RemoveSpacesTest, OneUndoTakesItBack) {
  const std::u16string text = u"BTN  T1\t/I X\n/O Y\n   z  \n\n/I a";
  Box().Load(text);
  Box().Select({3, 5});
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().undoSteps(), 1);
  Box().Undo();
  EXPECT_EQ(Box().Text(), text);
  EXPECT_EQ(Box().Selection(), (TextSpan{3, 5}));
}

TEST_F(RemoveSpacesTest, KeepsTheSelectionOnItsText) {
  Box().Load(u"BTN  T1 /I X\n/O Yes");
  Box().Select({16, 3});
  alignment.RemoveSpaces();
  const TextSpan selection = Box().Selection();
  EXPECT_EQ(Box().Text().substr(static_cast<std::size_t>(selection.start),
                                static_cast<std::size_t>(selection.length)),
            u"Yes");
}

TEST_F(RemoveSpacesTest, KeepsPathCaptionAndTheLastBreak) {
  OpenNew(u"C:\\a.tmj", "BTN T1 /I X\r\n/O Y");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"BTN T1 /I X\n       /O Y");
  EXPECT_EQ(documents.Current().path, u"C:\\a.tmj");
  EXPECT_EQ(view.Captions(), std::vector<std::u16string>{u"a.tmj"});
}

TEST_F(RemoveSpacesTest, ADocumentThatIsAlignedAlreadyCountsAsModifiedButHasNothingToUndo) {
  const std::u16string text = u"BTN T1 /I X\n       /O Y\n";
  Box().Load(text);
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), text);
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(Panel(3), u"Modified");
  EXPECT_FALSE(Box().CanUndo());
  EXPECT_EQ(Panel(1), u" Hang on - this could take time ...");
}

TEST_F(RemoveSpacesTest, DoesNothingInAnEmptyDocument) {
  status.Say(u"as before");
  alignment.RemoveSpaces();
  EXPECT_EQ(Panel(1), u"as before");
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
  EXPECT_TRUE(files.AllFiles().empty());
}

TEST_F(RemoveSpacesTest, IndentsWhenThatIsTicked) {
  settings.IndentSpaces = 4;
  settings.IndentAsWell = 1;
  Box().Load(u"BTN T1 /I X\n/O Y");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"    BTN T1 /I X\n           /O Y");
}

TEST_F(RemoveSpacesTest, IndentsForNoOtherNumberThanOne) {
  settings.IndentSpaces = 4;
  for (const std::int16_t flag : std::initializer_list<std::int16_t>{0, 2, -1}) {
    settings.IndentAsWell = flag;
    Box().Load(u" BTN");
    alignment.RemoveSpaces();
    EXPECT_EQ(Box().Text(), u"BTN");
  }
}

TEST_F(RemoveSpacesTest, WorksOnTheSelectedTab) {
  Box().Load(u"  first");
  documents.Add();
  documents.Select(1);
  Box().Load(u"  second");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box(0).Text(), u"  first");
  EXPECT_EQ(Box(1).Text(), u"second");
}

// ---- Temporary files.

TEST_F(RemoveSpacesTest, LeavesTheTextBeforeAndAfterInTheTempFolder) {
  Box().Load(u"BTN  T1 /I X\n/O Y");
  alignment.RemoveSpaces();
  EXPECT_EQ(files.Content(kBefore), "BTN  T1 /I X\r\n/O Y");
  EXPECT_EQ(files.Content(kAfter), "BTN T1 /I X\r\n       /O Y");
}

TEST_F(RemoveSpacesTest, WritesThemAsTheDocumentIsWritten) {
  OpenNew(u"C:\\a.tmj", "  \xC3\xA9\n  \xE2\x86\x92\n");
  alignment.RemoveSpaces();
  EXPECT_EQ(files.Content(kBefore), "  \xC3\xA9\n  \xE2\x86\x92\n");
  EXPECT_EQ(files.Content(kAfter), "\xC3\xA9\n\xE2\x86\x92\n");
}

TEST_F(RemoveSpacesTest, ACharacterThatTheFormatLacksDoesNotChangeTheDocumentsFormat) {
  OpenNew(u"C:\\a.tmj", "  x\r\n");
  Box().Select({0, 0});
  Box().ReplaceSelection(u"\u2192");
  alignment.RemoveSpaces();
  EXPECT_EQ(files.Content(kAfter), "\xE2\x86\x92 x\r\n");
  EXPECT_EQ(documents.Current().file.format, FileFormat{});
}

TEST_F(RemoveSpacesTest, AnEndOfFileCharacterEndsNothing) {
  Box().Load(u"a\x1A  b\n  c");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"a\x1A b\nc");
  EXPECT_EQ(files.Content(kAfter), "a\x1A b\r\nc");
}

TEST_F(RemoveSpacesTest, TakesThePlaceOfFilesOfAnEarlierRun) {
  files.AddFile(kBefore, "an earlier and much longer text");
  files.AddFile(kAfter, "an earlier and much longer text");
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(files.Content(kBefore), "  x");
  EXPECT_EQ(files.Content(kAfter), "x");
}

TEST_F(RemoveSpacesTest, AlignsWithoutATempFolderAndMakesNone) {
  settings.applicationFolder = u"C:\\Elsewhere";
  files.AddFolder(u"C:\\Elsewhere");
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_FALSE(files.Exists(u"C:\\Elsewhere\\Temp"));
  EXPECT_TRUE(files.AllFiles().empty());
}

TEST_F(RemoveSpacesTest, AFileInThePlaceOfTheFolderIsLeftAlone) {
  settings.applicationFolder = u"C:\\Elsewhere";
  files.AddFile(u"C:\\Elsewhere\\Temp", "a file");
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_EQ(files.Content(u"C:\\Elsewhere\\Temp"), "a file");
}

TEST_F(RemoveSpacesTest, NothingButThisRunsTextReachesTheBox) {
  files.AddFile(kBefore, "stale");
  files.AddFile(kAfter, "stale");
  for (const FileOperation operation : {FileOperation::kDelete, FileOperation::kReplace}) {
    files.Fail(operation, kBefore);
    files.Fail(operation, kAfter);
  }
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(files.Content(kAfter), "stale");
}

TEST_F(RemoveSpacesTest, AReadOnlyFileInTheWayIsSkipped) {
  files.AddFile(kBefore, "stale");
  files.SetReadOnly(kBefore, true);
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_EQ(Box().Text(), u"x");
  EXPECT_EQ(files.Content(kBefore), "stale");
  EXPECT_EQ(files.Content(kAfter), "x");
}

TEST_F(RemoveSpacesTest, AFileThatCannotBeWrittenDoesNotPassForTheOneBefore) {
  files.AddFile(kAfter, "stale");
  files.Fail(FileOperation::kReplace, kAfter);
  Box().Load(u"  x");
  alignment.RemoveSpaces();
  EXPECT_FALSE(files.Exists(kAfter));
  EXPECT_EQ(files.Content(kBefore), "  x");
}

}  // namespace
}  // namespace deck
