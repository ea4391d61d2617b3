#include "documents/document_set.h"

#include <gtest/gtest.h>

#include "platform/scope_value.h"
#include "tests/core/documents/documents_fixture.h"

namespace deck {
namespace {

struct DocumentSetTest : DocumentsFixture {
  void AddNamed(const std::u16string& path) {
    documents.Add();
    documents.Rename(documents.CurrentIndex(), path);
    documents.Select(documents.CurrentIndex());
  }
};

TEST_F(DocumentSetTest, StartsWithOneUntitledTab) {
  EXPECT_EQ(view.Captions(), std::vector<std::u16string>{u"Untitled"});
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_TRUE(Box(0).visible());
}

TEST_F(DocumentSetTest, ShowsOnlyTheCurrentBox) {
  AddNamed(u"C:\\a.tmj");
  AddNamed(u"C:\\b.tmm");
  documents.Select(1);
  EXPECT_FALSE(Box(0).visible());
  EXPECT_TRUE(Box(1).visible());
  EXPECT_FALSE(Box(2).visible());
  EXPECT_EQ(view.selectedTab, 2);
}

TEST_F(DocumentSetTest, NamesTheTabByTheFilesNameWithItsPathAsToolTip) {
  AddNamed(u"C:\\Games\\R&D.tmj");
  EXPECT_EQ(view.TabAt(2), (FakeMainWindowView::Tab{u"R&D.tmj", u"C:\\Games\\R&D.tmj"}));
}

TEST_F(DocumentSetTest, SwitchingTabsSaysWhatIsEdited) {
  AddNamed(u"C:\\a.tmj");
  documents.Select(0);
  EXPECT_EQ(Panel(1), u"Editing Untitled");
  documents.Select(1);
  EXPECT_EQ(Panel(1), u"Editing a.tmj");
}

TEST_F(DocumentSetTest, SwitchingTabsLeavesResultsDefinitionsAndBusyTextsAlone) {
  AddNamed(u"C:\\a.tmj");
  for (const std::u16string_view text :
       {u" Compiled successfully. (Memory used: 5%)", u" Compiler reported the following error: x",
        u"FIRE = SPC"}) {
    status.Say(std::u16string(text));
    documents.Select(0);
    EXPECT_EQ(Panel(1), text);
  }
  status.Say(u"Compiling a.tmj ..... please wait ...");
  documents.CompilerBusy = 1;
  documents.Select(1);
  EXPECT_EQ(Panel(1), u"Compiling a.tmj ..... please wait ...");
  documents.CompilerBusy = 2;  // only 1 counts
  documents.Select(0);
  EXPECT_EQ(Panel(1), u"Editing Untitled");
}

struct StateCase {
  std::u16string_view path;
  std::int16_t flag;
  std::u16string_view shown;
};

TEST_F(DocumentSetTest, ShowsTheStateOfTheDocument) {
  for (const StateCase& c :
       {StateCase{u"", 0, u"New file"}, StateCase{u"", 1, u"Modified"}, StateCase{u"", 2, u"Saved"},
        StateCase{u"C:\\a.tmj", 0, u"Saved"}, StateCase{u"C:\\a.tmj", 1, u"Modified"},
        StateCase{u"C:\\a.tmj", -1, u"Saved"}}) {
    documents.Rename(0, std::u16string(c.path));
    documents[0].modifiedFlag = c.flag;
    documents.Select(0);
    EXPECT_EQ(Panel(3), c.shown) << c.flag;
  }
}

TEST_F(DocumentSetTest, TypingMarksTheDocumentAsModified) {
  EXPECT_EQ(Panel(3), u"New file");
  Box().Type(u"x");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(3), u"Modified");
}

TEST_F(DocumentSetTest, AChangeInAHiddenBoxDoesNotTouchTheStateShown) {
  AddNamed(u"C:\\a.tmj");
  Box(0).ReplaceSelection(u"x");
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  EXPECT_EQ(Panel(3), u"Saved");
}

TEST_F(DocumentSetTest, LoadingIsNotAChange) {
  Box().Load(u"text");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Panel(3), u"New file");
}

TEST_F(DocumentSetTest, OffersCompileAndDownloadForTmjFilesOnly) {
  struct Case {
    std::u16string_view path;
    bool enabled;
    std::u16string_view compile;
    std::u16string_view download;
  };
  for (const Case& c : {Case{u"C:\\a.tmj", true, u"&Compile a.tmj", u"&Download a.tmj"},
                        Case{u"C:\\A.TMJ", true, u"&Compile A.TMJ", u"&Download A.TMJ"},
                        Case{u"C:\\mytmj", true, u"&Compile mytmj", u"&Download mytmj"},
                        Case{u"C:\\R&D.tmj", true, u"&Compile R&&D.tmj", u"&Download R&&D.tmj"},
                        Case{u"C:\\a.f22", false, u"&Compile", u"&Download"},
                        Case{u"C:\\a.b50", false, u"&Compile", u"&Download"},
                        Case{u"C:\\a.tmm", false, u"&Compile", u"&Download"},
                        Case{u"", false, u"&Compile", u"&Download"}}) {
    documents.Rename(0, std::u16string(c.path));
    documents.Select(0);
    EXPECT_EQ(view.commands[CommandId::kCompile],
              (CommandState{c.enabled, false, std::u16string(c.compile)}));
    EXPECT_EQ(view.commands[CommandId::kDownload],
              (CommandState{c.enabled, false, std::u16string(c.download)}));
  }
}

TEST_F(DocumentSetTest, OffersCompileForEveryFileWhenTheHostSaysSo) {
  settings.AlwaysShowCompileDownload = 1;
  documents.Select(0);
  EXPECT_EQ(view.commands[CommandId::kCompile], (CommandState{true, false, u"&Compile Untitled"}));
  settings.AlwaysShowCompileDownload = 2;  // only 1 counts
  documents.Select(0);
  EXPECT_EQ(view.commands[CommandId::kCompile], (CommandState{false, false, u"&Compile"}));
}

TEST_F(DocumentSetTest, BringsTheMacroListUpToDateUnlessSuppressed) {
  AddNamed(u"C:\\a.tmm");
  refreshedMacrosOf.clear();
  documents.Select(0);
  {
    const ScopeValue skip(documents.SkipMacroRefresh, std::int16_t{1});
    documents.Select(1);
  }
  documents.SkipMacroRefresh = 2;  // only 1 counts
  documents.Select(1);
  EXPECT_EQ(refreshedMacrosOf, (std::vector<std::u16string>{u"Untitled", u"a.tmm"}));
}

TEST_F(DocumentSetTest, ShowsTheCaretsLineAfterATabSwitch) {
  AddNamed(u"C:\\a.tmj");
  Box(1).Load(u"one\ntwo\nthree");
  Box(1).Select({8, 0});
  documents.Select(0);
  EXPECT_EQ(Panel(2), u"Line no: 1");
  documents.Select(1);
  EXPECT_EQ(Panel(2), u"Line no: 3");
}

TEST_F(DocumentSetTest, ShowsTheCaretsLineWhenAKeyOrButtonGoesUp) {
  Box().Load(u"one\ntwo\n");
  Box().Select({5, 0});
  EXPECT_EQ(Panel(2), u"Line no: 1") << "moving the caret by program is not a key";
  Box().MoveCaret({5, 0});
  EXPECT_EQ(Panel(2), u"Line no: 2");
  Box().MoveCaret({8, 0});
  EXPECT_EQ(Panel(2), u"Line no: 3");
}

TEST_F(DocumentSetTest, NextTabWrapsRound) {
  AddNamed(u"C:\\a.tmj");
  AddNamed(u"C:\\b.tmj");
  documents.SelectNext();
  EXPECT_EQ(documents.CurrentIndex(), 0);
  documents.SelectNext();
  EXPECT_EQ(documents.CurrentIndex(), 1);
  documents.SelectPrevious();
  documents.SelectPrevious();
  EXPECT_EQ(documents.CurrentIndex(), 2);
}

TEST_F(DocumentSetTest, WithOneTabNextSelectsTheSameAgain) {
  refreshedMacrosOf.clear();
  documents.SelectNext();
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(refreshedMacrosOf.size(), 1u);
}

TEST_F(DocumentSetTest, HoveringATabNamesThatTab) {
  AddNamed(u"C:\\a.tmj");
  documents.OnHoverTab(0);
  EXPECT_EQ(Panel(1), u"Click to select Untitled for editing.");
  documents.OnHoverTab(1);
  EXPECT_EQ(Panel(1), u"Click to select a.tmj for editing.");
  documents.OnHoverTab(7);
  documents.OnHoverTab(-1);
  EXPECT_EQ(Panel(1), u"Click to select a.tmj for editing.");
}

TEST_F(DocumentSetTest, HoveringTheTextNamesItsDocument) {
  status.Say(u"x = y");
  Box().MoveMouse();
  EXPECT_EQ(Panel(1), u"Editing Untitled");
}

TEST_F(DocumentSetTest, HoveringLeavesBusyAndResultTextsAlone) {
  documents.CompilerBusy = 1;
  status.Say(u"Compiling");
  Box().MoveMouse();
  documents.OnHoverTab(0);
  EXPECT_EQ(Panel(1), u"Compiling");
  documents.CompilerBusy = 0;
  status.Say(u" Compiled successfully. (Memory used: 5%)");
  Box().MoveMouse();
  documents.OnHoverTab(0);
  EXPECT_EQ(Panel(1), u" Compiled successfully. (Memory used: 5%)");
}

TEST_F(DocumentSetTest, BringsTheKeyboardLayoutOfTheStartBackForANewBox) {
  documents.SetKeyboardLayoutName(u"00000407");
  documents.Add();
  EXPECT_TRUE(keyboard.activated.empty()) << "the fix is off by default";
  settings.ForeignKeyboardFix = 5;  // any non-zero value
  documents.Add();
  EXPECT_EQ(keyboard.activated, std::vector<std::u16string>{u"00000407"});
  documents.Add();
  EXPECT_EQ(keyboard.activated.size(), 1u) << "it is active now";
}

TEST_F(DocumentSetTest, ARefusedLayoutIsTriedAgainWithTheNextBox) {
  settings.ForeignKeyboardFix = 1;
  documents.SetKeyboardLayoutName(u"00000407");
  keyboard.refusesLayouts = true;
  documents.Add();
  keyboard.refusesLayouts = false;
  documents.Add();
  EXPECT_EQ(keyboard.LayoutName(), u"00000407");
}

TEST_F(DocumentSetTest, RemovingATabKeepsTheOthersTextUndoAndFlag) {
  AddNamed(u"C:\\a.tmj");
  AddNamed(u"C:\\b.tmj");
  Box(2).Type(u"typed");
  const DocumentId last = documents[2].id;
  documents.Remove(1);
  documents.Select(documents.CurrentIndex());
  EXPECT_EQ(view.Captions(), (std::vector<std::u16string>{u"Untitled", u"b.tmj"}));
  EXPECT_EQ(documents.IndexOf(last), 1);
  EXPECT_EQ(documents[1].modifiedFlag, 1);
  EXPECT_EQ(Box(1).Text(), u"typed");
  EXPECT_EQ(Box(1).undoSteps(), 1);
}

TEST_F(DocumentSetTest, RemovingATabBeforeTheCurrentOneKeepsTheDocumentCurrent) {
  documents.Rename(0, u"C:\\a.tmj");
  documents.Add();
  documents.Rename(1, u"C:\\b.tmj");
  documents.Add();
  documents.Select(1);
  documents.Remove(0);
  EXPECT_EQ(documents.Current().path, u"C:\\b.tmj");
  documents.Remove(1);
  EXPECT_EQ(documents.Current().path, u"C:\\b.tmj");
}

TEST_F(DocumentSetTest, AFileThatIsCalledUntitledIsShownAsANewOneToo) {
  documents.Rename(0, u"C:\\Untitled");
  documents.Select(0);
  EXPECT_EQ(Panel(3), u"New file");
  documents[0].modifiedFlag = 2;
  documents.Select(0);
  EXPECT_EQ(Panel(3), u"Saved");
}

TEST_F(DocumentSetTest, OnlyTheValueOneMeansThatTheCompilerIsBusy) {
  documents.CompilerBusy = 2;
  documents.OnHoverTab(0);
  EXPECT_EQ(Panel(1), u"Click to select Untitled for editing.");
  documents.OnHoverText(documents[0].id);
  EXPECT_EQ(Panel(1), u"Editing Untitled");
}

TEST_F(DocumentSetTest, AnEmptiedDocumentIsAnotherOne) {
  documents.Rename(0, u"C:\\a.tmj");
  Box().Type(u"x");
  const DocumentId before = documents[0].id;
  documents.Empty(0);
  EXPECT_EQ(documents.IndexOf(before), -1);
  EXPECT_EQ(documents[0].path, u"");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(view.TabAt(1), (FakeMainWindowView::Tab{u"Untitled", u""}));
}

TEST_F(DocumentSetTest, FindsDocumentsByTheirExactPath) {
  AddNamed(u"C:\\a.tmj");
  EXPECT_EQ(documents.IndexOfPath(u"C:\\a.tmj"), 1);
  EXPECT_EQ(documents.IndexOfPath(u"C:\\A.tmj"), -1);
}

}  // namespace
}  // namespace deck
