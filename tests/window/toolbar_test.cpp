#include <array>
#include <string>

#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

struct ButtonExpectation {
  int index;  // from 1
  int command;
  const wchar_t* hint;
};

constexpr ButtonExpectation kButtons[] = {
    {1, 101, L"Create a new file"},
    {2, 102, L"Open a file"},
    {3, 103, L"Save currently selected file"},
    {5, 107, L"Print currently selected file"},
    {7, 202, L"Cut"},
    {8, 203, L"Copy"},
    {9, 204, L"Paste"},
    {11, 301, L"Find word or phrase in file"},
    {12, 302, L"Find word or phrase in file and replace with some other text"},
    {13, 303, L"Goto line number - useful when a download files with an error at a line number"},
    {15, 401, L"View the macros list"},
    {16, 402, L"Update macros in the macro list to reflect changes to the macro file"},
    {18, 208, L"Test the output from your controllers using the Keytester"},
    {20, 601, L"Compile joystick file"},
    {21, 602, L"Download joystick file to joystick"},
    {23, 801, L"View the help file"},
};

class ToolbarTest : public MainWindowFixture {
 protected:
  ToolbarTest() { ShowWindowed(); }

  HWND Bar() const { return Control(ControlId::kToolbar1); }
  TBBUTTON Button(int index) const {
    TBBUTTON button{};
    SendMessageW(Bar(), TB_GETBUTTON, static_cast<WPARAM>(index - 1),
                 reinterpret_cast<LPARAM>(&button));
    return button;
  }
  RECT PlaceOfButton(int index) const {
    RECT place{};
    SendMessageW(Bar(), TB_GETITEMRECT, static_cast<WPARAM>(index - 1),
                 reinterpret_cast<LPARAM>(&place));
    return place;
  }
  POINT MiddleOf(int index) const {
    const RECT place = PlaceOfButton(index);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  }
  // What the tool tips control is told when the pointer rests on the command's button.
  std::wstring ToolTip(int command) const {
    NMTTDISPINFOW info{};
    info.hdr.hwndFrom = reinterpret_cast<HWND>(SendMessageW(Bar(), TB_GETTOOLTIPS, 0, 0));
    info.hdr.idFrom = static_cast<UINT_PTR>(command);
    info.hdr.code = TTN_GETDISPINFOW;
    info.lpszText = info.szText;
    SendMessageW(window.Handle(), WM_NOTIFY, info.hdr.idFrom, reinterpret_cast<LPARAM>(&info));
    return info.lpszText;
  }
  void ClickButton(int index) {
    Click(Bar(), MiddleOf(index));
    loop.Pump();
  }
};

TEST_F(ToolbarTest, ButtonsStandAtTheirIndexesAndSeparatorsBetween) {
  ASSERT_EQ(SendMessageW(Bar(), TB_BUTTONCOUNT, 0, 0), 23);
  for (const int index : {4, 6, 10, 14, 17, 19, 22}) {
    EXPECT_NE(Button(index).fsStyle & BTNS_SEP, 0) << index;
  }
  for (const ButtonExpectation& expected : kButtons) {
    EXPECT_EQ(Button(expected.index).idCommand, expected.command);
    EXPECT_EQ(Button(expected.index).fsStyle & BTNS_SEP, 0) << expected.index;
  }
}

TEST_F(ToolbarTest, EveryButtonHasAnImageOfItsOwn) {
  const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(Bar(), TB_GETIMAGELIST, 0, 0));
  EXPECT_EQ(ImageList_GetImageCount(images), static_cast<int>(std::size(kButtons)));
  int image = 0;
  for (const ButtonExpectation& expected : kButtons) {
    EXPECT_EQ(Button(expected.index).iBitmap, image++) << expected.index;
  }
}

TEST_F(ToolbarTest, ClickRunsTheCommand) {
  for (const ButtonExpectation& expected : kButtons) {
    events.clear();
    ClickButton(expected.index);
    EXPECT_TRUE(Happened("execute " + std::to_string(expected.command))) << expected.index;
  }
}

TEST_F(ToolbarTest, ClickOnASeparatorDoesNothing) {
  ClickButton(4);
  EXPECT_TRUE(events.empty());
}

TEST_F(ToolbarTest, DisabledButtonDoesNothing) {
  window.SetCommand(CommandId::kCompile, {.enabled = false, .caption = u"&Compile"});
  ClickButton(20);
  EXPECT_FALSE(Happened("execute 601"));
  window.SetCommand(CommandId::kCompile, {.enabled = true, .caption = u"&Compile"});
  ClickButton(20);
  EXPECT_TRUE(Happened("execute 601"));
}

TEST_F(ToolbarTest, ButtonKeepsItsStateWhenOnlyTheMenuItemIsMeant) {
  window.SetCommand(CommandId::kCut, {.enabled = false, .caption = u"Cu&t", .menuItemOnly = true});
  ClickButton(7);
  EXPECT_TRUE(Happened("execute 202"));
}

TEST_F(ToolbarTest, ButtonOfATickedCommandLooksPressed) {
  window.SetCommand(CommandId::kViewMacros, {.checked = true, .caption = u"View &macros"});
  EXPECT_NE(Button(15).fsState & TBSTATE_CHECKED, 0);
  window.SetCommand(CommandId::kViewMacros, {.checked = false, .caption = u"View &macros"});
  EXPECT_EQ(Button(15).fsState & TBSTATE_CHECKED, 0);
}

TEST_F(ToolbarTest, HintsAreToolTips) {
  for (const ButtonExpectation& expected : kButtons) {
    EXPECT_EQ(ToolTip(expected.command), expected.hint);
  }
}

// Screen readers take them for the names of the buttons.
TEST_F(ToolbarTest, HintsCanBeAskedForWhenToolTipsAreTurnedOff) {
  window.ShowToolTips(false);
  EXPECT_EQ(ToolTip(101), L"Create a new file");
}

TEST_F(ToolbarTest, PointerOverAButtonIsReportedWithItsCommand) {
  for (const ButtonExpectation& expected : kButtons) {
    events.clear();
    Mouse(Bar(), WM_MOUSEMOVE, MiddleOf(expected.index));
    EXPECT_EQ(events,
              std::vector<std::string>{"toolbar hovered " + std::to_string(expected.command)});
  }
}

TEST_F(ToolbarTest, PointerOverASeparatorOrBesideTheButtonsReportsNothing) {
  Mouse(Bar(), WM_MOUSEMOVE, MiddleOf(10));
  Mouse(Bar(), WM_MOUSEMOVE, {PlaceOf(Bar()).width - 3, 5});
  EXPECT_TRUE(events.empty());
}

TEST_F(ToolbarTest, ButtonsGrowWithTheResolution) {
  const RECT before = PlaceOfButton(1);
  RECT suggested{0, 0, 1200, 900};
  SendMessageW(window.Handle(), 0x02E0, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  const RECT after = PlaceOfButton(1);
  EXPECT_EQ(after.right - after.left, 2 * (before.right - before.left));
  EXPECT_LE(after.bottom, PlaceOf(Bar()).height);
  int width = 0;
  int height = 0;
  ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(SendMessageW(Bar(), TB_GETIMAGELIST, 0, 0)),
                        &width, &height);
  EXPECT_EQ(width, 32);
}

}  // namespace
}  // namespace deck
