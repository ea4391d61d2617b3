// What screen readers call the controls of every window.
#include <string>
#include <utility>
#include <vector>

#include "find/win32/find_and_replace_window.h"
#include "help/win32/info_window.h"
#include "keytest/win32/key_test_form.h"
#include "tests/window/main_window_fixture.h"
#include "tests/window/screen_reader.h"

namespace deck {
namespace {

// Stands before the windows, which give their names while they are made.
struct WithReader {
  ScreenReader reader;
};

class AccessibleNamesTest : private WithReader, public MainWindowFixture {
 protected:
  using Names = std::vector<std::pair<ControlId, std::wstring>>;

  const ScreenReader& Reader() const { return reader; }
  void ExpectNames(HWND parent, const Names& names) const {
    for (const auto& [id, name] : names) {
      ASSERT_NE(Control(id, parent), nullptr) << static_cast<int>(id);
      EXPECT_EQ(Reader().NameOf(Control(id, parent)), name) << static_cast<int>(id);
    }
  }
  // Whether the list of expected names is a whole one.
  static void ExpectAllNamed(std::u16string_view parent, std::size_t named) {
    const auto count =
        std::count_if(std::begin(kControls), std::end(kControls),
                      [parent](const ControlRow& row) { return row.window == parent; });
    EXPECT_EQ(static_cast<std::size_t>(count), named);
  }
};

TEST_F(AccessibleNamesTest, MainWindowNamesAllItsControls) {
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  const Names names = {{ControlId::kTabStrip1, L"Open files"},
                       {ControlId::kStatusBar1, L"Status bar"},
                       {ControlId::kToolbar1, L"Toolbar"},
                       {ControlId::kText1, L"Text"},
                       {ControlId::kFrameMacros, L"Macro panel"}};
  ExpectNames(window.Handle(), names);
  ExpectAllNamed(u"Editor", names.size());
  const Names inPanel = {{ControlId::kCombo1, L"Macro headings"}, {ControlId::kList1, L"Macros"}};
  ExpectNames(Frame(), inPanel);
  ExpectAllNamed(u"FrameMacros", inPanel.size());
}

TEST_F(AccessibleNamesTest, EditBoxKeepsItsNameInANewControlAndForgetsItWithTheControl) {
  const std::size_t before = Reader().GivenNames();
  auto box = window.CreateEditBox({});
  box->SetVisible(true);
  box->Load(u"one");
  box->Load(u"which makes another control");
  EXPECT_EQ(Reader().NameOf(Control(ControlId::kText1)), L"Text");
  EXPECT_EQ(Reader().GivenNames(), before + 1);
  box.reset();
  EXPECT_EQ(Reader().GivenNames(), before);
}

TEST_F(AccessibleNamesTest, FindDialogNamesAllItsControls) {
  const std::size_t before = Reader().GivenNames();
  FindAndReplaceWindow dialog(window.Handle(), loop);
  dialog.Open(FindPage::kFind);
  const Names names = {{ControlId::kSSTab1, L"Pages"},
                       {ControlId::kComboTextFind, L"Find what:"},
                       {ControlId::kMatchCaseF, L"Match case"},
                       {ControlId::kWholeWordF, L"Whole word only"},
                       {ControlId::kFindCommand1, L""},
                       {ControlId::kFindCommand2, L"Close"},
                       {ControlId::kComboTextReplaceFind, L"Find what:"},
                       {ControlId::kComboTextReplaceWith, L"Replace with:"},
                       {ControlId::kMatchCaseR, L"Match case"},
                       {ControlId::kWholeWordR, L"Whole word only"},
                       {ControlId::kFindCommand3, L""},
                       {ControlId::kFindCommand5, L"Replace"},
                       {ControlId::kFindCommand6, L"Replace all"},
                       {ControlId::kFindCommand4, L"Close"},
                       {ControlId::kLineToFind, L"Line number:"},
                       {ControlId::kFindCommand7, L"Go"},
                       {ControlId::kFindCommand8, L"Close"},
                       {ControlId::kFindCommand9, L"Close"}};
  ExpectNames(dialog.Handle(), names);
  ExpectAllNamed(u"FindAndReplace", names.size());
  // The captions of these two tell the state of the search.
  dialog.SetText(FindControl::kCommand1, u"Find first");
  EXPECT_EQ(Reader().NameOf(Control(ControlId::kFindCommand1, dialog.Handle())), L"Find first");
  dialog.Close();
  EXPECT_EQ(Reader().GivenNames(), before);
}

TEST_F(AccessibleNamesTest, QuickHelpNamesAllItsControls) {
  const std::size_t before = Reader().GivenNames();
  InfoWindow help(window.Handle(), loop);
  help.Load({.top = 900, .left = 1500, .height = 6000, .width = 7500});
  const Names names = {{ControlId::kInfoText, L"Help page"}, {ControlId::kInfoCommand1, L"OK"}};
  ExpectNames(help.Handle(), names);
  ExpectAllNamed(u"InfoWindow", names.size());
  help.Unload();
  EXPECT_EQ(Reader().GivenNames(), before);
}

TEST_F(AccessibleNamesTest, KeyTesterNamesAllItsControls) {
  const std::size_t before = Reader().GivenNames();
  KeyTestForm form(loop);
  form.Open();
  form.SetLook({.heading = u"Keys"});
  const Names names = {
      {ControlId::kLabelSHIFT, L"SHIFT"},
      {ControlId::kLabelCTRL, L"CTRL"},
      {ControlId::kLabelALT, L"ALT"},
      {ControlId::kLabelNUMLOCK, L"NUM LOCK"},
      {ControlId::kLabel1, L"Menus"},
      {ControlId::kLabel3, L"Keys"},
      {ControlId::kLblModeWarning, L"The controllers are not in programmed mode. Click here."},
      {ControlId::kRTFKeysText, L"Key events"},
      {ControlId::kRTFKeysDownText, L"Keys pressed"}};
  ExpectNames(form.Handle(), names);
  ExpectAllNamed(u"KeyTestForm", names.size());
  form.Close();
  EXPECT_EQ(Reader().GivenNames(), before);
}

}  // namespace
}  // namespace deck
