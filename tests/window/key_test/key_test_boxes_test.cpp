// The key tester among the other windows of the program: boxes in front of it, the main window
// behind it.
#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include "platform/win32/box_owner.h"
#include "platform/win32/dpi.h"
#include "platform/win32/win32_prompts.h"
#include "tests/contract/win32/box_driver.h"
#include "tests/window/key_test/key_test_fixture.h"

namespace deck {
namespace {

class KeyTestBoxesTest : public KeyTestWindowFixture {
 protected:
  void ShowMain() {
    ShowWindow(Main(), SW_SHOW);
    SetForegroundWindow(Main());
    ASSERT_TRUE(WaitFor([this] { return GetActiveWindow() == Main(); }));
  }
  HWND Main() const { return main_.Get(); }

  // What stands in front of which window while a box of the editor is open.
  HWND OwnerOfABox() {
    HWND owner = nullptr;
    driver_.WhenOpen([&owner](HWND box) {
      owner = GetWindow(box, GW_OWNER);
      PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    prompts_.Show({u"Text", u"Title", BoxStyle::kInformation});
    return owner;
  }

  BoxDriver driver_;

 private:
  WindowHandle main_{CreateWindowExW(0, L"STATIC", L"main", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)};
  Win32Prompts prompts_{[this] { return OwnerOfBoxes(Main()); }};
};

TEST_F(KeyTestBoxesTest, ABoxStandsAloneBeforeTheMainWindowIsSeen) {
  EXPECT_EQ(OwnerOfABox(), nullptr);
}

TEST_F(KeyTestBoxesTest, ABoxStandsInFrontOfTheWindowThatHasTheKeyboard) {
  ShowMain();
  EXPECT_EQ(OwnerOfABox(), Main());
  Open();
  EXPECT_EQ(OwnerOfABox(), form.Handle());
  ShowMain();
  EXPECT_EQ(OwnerOfABox(), Main());
}

TEST_F(KeyTestBoxesTest, ADialogOfTheMainWindowLeavesItsBoxesToTheMainWindow) {
  ShowMain();
  const WindowHandle dialog(CreateWindowExW(0, L"STATIC", L"dialog", WS_POPUP | WS_CAPTION, 0, 0,
                                            100, 100, Main(), nullptr, GetModuleHandleW(nullptr),
                                            nullptr));
  ShowWindow(dialog.Get(), SW_SHOW);
  SetActiveWindow(dialog.Get());
  ASSERT_TRUE(WaitFor([&] { return GetActiveWindow() == dialog.Get(); }));
  EXPECT_EQ(OwnerOfBoxes(Main()), Main());
}

TEST_F(KeyTestBoxesTest, NoWindowIsUsedBehindABoxOfTheKeyTester) {
  ShowMain();
  Open();
  bool mainWasUsable = true;
  bool testerWasUsable = true;
  driver_.WhenOpen([&](HWND box) {
    mainWasUsable = IsWindowEnabled(Main());
    testerWasUsable = IsWindowEnabled(form.Handle());
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  });
  MessageBoxW(form.Handle(), L"Text", L"Title", MB_OK);
  EXPECT_FALSE(mainWasUsable);
  EXPECT_FALSE(testerWasUsable);
  EXPECT_TRUE(IsWindowEnabled(Main()));
  EXPECT_TRUE(IsWindowEnabled(form.Handle()));
}

TEST_F(KeyTestBoxesTest, AWindowThatWasNotToBeUsedBeforeStaysSo) {
  ShowMain();
  Open();
  EnableWindow(Main(), FALSE);
  EnableWindow(form.Handle(), FALSE);
  EnableWindow(form.Handle(), TRUE);
  EXPECT_FALSE(IsWindowEnabled(Main()));
}

TEST_F(KeyTestBoxesTest, TheMainWindowIsUsableWhenTheKeyTesterClosesBehindItsBox) {
  ShowMain();
  Open();
  EnableWindow(form.Handle(), FALSE);
  ASSERT_FALSE(IsWindowEnabled(Main()));
  presenter.Unload();
  EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(KeyTestBoxesTest, TheCommandBringsTheKeyTesterToTheFrontWithItsLog) {
  ShowMain();
  Open();
  Press({VK_F5});
  Settle();
  const std::u16string lines = EventLines();
  ShowMain();
  ASSERT_NE(GetForegroundWindow(), form.Handle());
  presenter.Show();
  EXPECT_TRUE(WaitFor([this] { return GetFocus() == Names(); }));
  EXPECT_EQ(GetForegroundWindow(), form.Handle());
  EXPECT_EQ(EventLines(), lines);
}

// ---- Fonts.

LOGFONTW FontOf(HWND window) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  return font;
}

class KeyTestFontTest : public KeyTestBoxesTest {
 protected:
  // Chooses a size in points, or leaves the dialog without a choice where it is none.
  void Choose(const wchar_t* points) {
    driver_.WhenOpen([points](HWND dialog) {
      if (points != nullptr) Type(dialog, points);
      PostMessageW(dialog, WM_COMMAND, points != nullptr ? IDOK : IDCANCEL, 0);
    });
    SendMessageW(form.Handle(), WM_COMMAND, static_cast<WPARAM>(KeyTestCommand::kForFonts), 0);
  }

 private:
  // Into the field of the sizes, which tells the dialog what a user's keys do.
  static void Type(HWND dialog, const wchar_t* points) {
    const HWND sizes = GetDlgItem(dialog, cmb3);
    SetWindowTextW(sizes, points);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_EDITCHANGE),
                 reinterpret_cast<LPARAM>(sizes));
  }
};

TEST_F(KeyTestFontTest, TheChosenOneIsThatOfBothBoxes) {
  Open();
  Choose(L"24");
  const LONG height = -MulDiv(24, DpiOf(form.Handle()), 72);
  EXPECT_EQ(FontOf(Events()).lfHeight, height);
  EXPECT_EQ(FontOf(Names()).lfHeight, height);
}

TEST_F(KeyTestFontTest, TheLabelsKeepTheirs) {
  Open();
  const LONG height = FontOf(Control(ControlId::kLabelSHIFT)).lfHeight;
  Choose(L"24");
  EXPECT_EQ(FontOf(Control(ControlId::kLabelSHIFT)).lfHeight, height);
}

TEST_F(KeyTestFontTest, NoChoiceChangesNothing) {
  Open();
  const LONG height = FontOf(Names()).lfHeight;
  Choose(nullptr);
  EXPECT_EQ(FontOf(Names()).lfHeight, height);
}

TEST_F(KeyTestFontTest, IsKeptForTheNextOpening) {
  Open();
  Choose(L"20");
  const LONG height = FontOf(Names()).lfHeight;
  presenter.Unload();
  Open();
  EXPECT_EQ(FontOf(Names()).lfHeight, height);
}

TEST_F(KeyTestFontTest, MoreLinesOfASmallerFontAreInView) {
  Open();
  for (int line = 0; line < 500; ++line) form.Append(KeyBox::kEvents, u"line");
  const auto linesInView = [this] {
    Settle();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_PAGE;
    GetScrollInfo(Events(), SB_VERT, &info);
    return info.nPage;
  };
  Choose(L"28");
  const UINT few = linesInView();
  Choose(L"10");
  EXPECT_GT(linesInView(), 2 * few);
}

}  // namespace
}  // namespace deck
