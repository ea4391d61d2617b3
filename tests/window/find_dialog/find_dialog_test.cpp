// The find dialog over the real main window, driven by real keys and messages: what only the real
// controls can show.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "find/find_and_replace.h"
#include "find/move_aside.h"
#include "find/win32/find_and_replace_window.h"
#include "find/win32/selection_on_screen.h"
#include "platform/win32/fonts.h"
#include "tests/contract/win32/box_driver.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/window/dark_colours.h"
#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

using enum FindControl;
using Controls = std::vector<FindControl>;

constexpr UINT kDpiChanged = 0x02E0;

Rectangle ScreenPlace(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

class FindDialogTest : public MainWindowFixture {
 protected:
  FindDialogTest() {
    loop.AddFilter([this](MSG& message) { return dialog.TakeKey(message); });
    documents.Add();
    documents.Select(0);
    ShowWindowed();
  }
  ~FindDialogTest() override { SetModifiers({}); }

  // ---- The user.

  static void SetModifiers(std::initializer_list<int> keys) {
    std::array<BYTE, 256> state{};
    for (const int key : keys) state[static_cast<std::size_t>(key)] = 0x80;
    SetKeyboardState(state.data());
  }
  void Press(WPARAM key, std::initializer_list<int> modifiers = {}) {
    SetModifiers(modifiers);
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    loop.Dispatch(message);
    SetModifiers({});
    loop.Pump();
  }
  void PressAlt(wchar_t letter) {
    constexpr LPARAM kAltIsDown = 1 << 29;
    PostMessageW(GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), kAltIsDown);
    loop.Pump();
  }
  void Type(FindControl field, std::u16string_view text) {
    dialog.Focus(field);
    for (const char16_t character : text) PostMessageW(GetFocus(), WM_CHAR, character, 1);
    loop.Pump();
  }
  void Press(FindControl button) {
    PostMessageW(dialog.Control(button), BM_CLICK, 0, 0);
    loop.Pump();
  }

  // ---- What is seen.

  FindControl Focused() const {
    HWND control = GetFocus();
    while (control != nullptr && GetParent(control) != dialog.Handle())
      control = GetParent(control);
    return control == nullptr ? kNoControl : static_cast<FindControl>(GetDlgCtrlID(control));
  }
  // The display tells a little later that another window has the keyboard.
  FindControl FocusedBy(FindControl expected) {
    WaitFor([&] { return Focused() == expected; });
    return Focused();
  }
  // Behind a window that came and went at once the display may tell only that it took the keyboard:
  // asked again, it gives the dialog the keyboard, and the dialog gives it to the control that had
  // it.
  FindControl FocusedBehindABoxBy(FindControl expected) {
    if (FocusedBy(expected) == kNoControl) SetForegroundWindow(dialog.Handle());
    return FocusedBy(expected);
  }
  EditBox& Box() { return documents.GetCurrentTextBox(); }
  bool TextHasFocus() const {
    return GetDlgCtrlID(GetFocus()) == static_cast<int>(ControlId::kText1);
  }
  // The display may tell only meanwhile that the dialog, which has just been opened, has the
  // keyboard, and takes it from the text again. It tells that once.
  template <class Action>
  bool GivesTheTextTheFocus(Action action) {
    action();
    if (WaitFor([this] { return TextHasFocus(); })) return true;
    action();
    return WaitFor([this] { return TextHasFocus(); });
  }
  // Presses the key until the focus is where it was.
  Controls RoundBy(WPARAM key, std::initializer_list<int> modifiers) {
    Controls round;
    const FindControl start = Focused();
    do {
      Press(key, modifiers);
      round.push_back(Focused());
    } while (round.back() != start && round.size() < 30);
    return round;
  }

  FakeKeyboard keyboard;
  Settings settings;
  StatusBar status{window};
  DocumentSet documents{window, status, keyboard, settings};
  FindAndReplaceWindow dialog{window.Handle(), loop};
  FindAndReplace find{documents, status, dialog};
};

TEST_F(FindDialogTest, IsADialogOfTheMainWindow) {
  find.mnuFRGArray(0);
  EXPECT_EQ(FindWindowW(L"FindAndReplace", L"Find and replace"), dialog.Handle());
  EXPECT_EQ(GetWindow(dialog.Handle(), GW_OWNER), window.Handle());
  EXPECT_TRUE(IsWindowVisible(dialog.Handle()));
  EXPECT_TRUE(IsWindowEnabled(window.Handle())) << "both remain usable";
  EXPECT_EQ(GetActiveWindow(), dialog.Handle());
}

TEST_F(FindDialogTest, ItsFrameShowsTheProgramsIcon) {
  find.mnuFRGArray(0);
  for (const WPARAM kind : {ICON_BIG, ICON_SMALL}) {
    EXPECT_NE(SendMessageW(dialog.Handle(), WM_GETICON, kind, 0), 0);
  }
}

TEST_F(FindDialogTest, ControlsHaveTheClassesThatScriptsLookFor) {
  find.mnuFRGArray(0);
  int found = 0;
  for (const ControlRow& row : kControls) {
    if (row.window != u"FindAndReplace") continue;
    ++found;
    const HWND control = GetDlgItem(dialog.Handle(), static_cast<int>(row.id));
    ASSERT_NE(control, nullptr) << Narrow(row.name);
    std::array<wchar_t, 100> name{};
    GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    const std::u16string expected(row.windowClass);
    EXPECT_EQ(std::wstring(name.data()), std::wstring(expected.begin(), expected.end()));
  }
  EXPECT_EQ(found, 18);
}

// ---- Keys.

TEST_F(FindDialogTest, TabVisitsTheControlsOfThePageInOrder) {
  find.mnuFRGArray(0);
  EXPECT_EQ(FocusedBy(kComboTextFind), kComboTextFind);
  EXPECT_EQ(RoundBy(VK_TAB, {}),
            (Controls{kMatchCaseF, kWholeWordF, kCommand1, kCommand2, kSSTab1, kComboTextFind}));
  EXPECT_EQ(RoundBy(VK_TAB, {VK_SHIFT}),
            (Controls{kSSTab1, kCommand2, kCommand1, kWholeWordF, kMatchCaseF, kComboTextFind}));
  find.mnuFRGArray(1);
  EXPECT_EQ(RoundBy(VK_TAB, {}), (Controls{kComboTextReplaceWith, kMatchCaseR, kWholeWordR,
                                           kCommand3, kCommand4, kSSTab1, kComboTextReplaceFind}))
      << "what is disabled is left out";
  dialog.SetEnabled(kCommand5, true);
  dialog.SetEnabled(kCommand6, true);
  dialog.Focus(kCommand3);
  EXPECT_EQ(RoundBy(VK_TAB, {}),
            (Controls{kCommand5, kCommand6, kCommand4, kSSTab1, kComboTextReplaceFind,
                      kComboTextReplaceWith, kMatchCaseR, kWholeWordR, kCommand3}));
  find.mnuFRGArray(2);
  EXPECT_EQ(RoundBy(VK_TAB, {}), (Controls{kCommand7, kCommand8, kSSTab1, kLineToFind}));
}

TEST_F(FindDialogTest, EscapeClosesItFromEveryControl) {
  for (int page = 0; page < 3; ++page) {
    for (const FindPart& part : kFindParts) {
      if (part.kind == FindPartKind::kLabel || part.control == kCommand9) continue;
      if (part.page && *part.page != static_cast<FindPage>(page)) continue;
      find.mnuFRGArray(page);
      dialog.SetEnabled(kCommand5, true);
      dialog.SetEnabled(kCommand6, true);
      dialog.Focus(part.control);
      ASSERT_EQ(FocusedBy(part.control), part.control);
      Press(VK_ESCAPE);
      EXPECT_FALSE(dialog.IsOpen()) << static_cast<int>(part.control);
    }
  }
}

TEST_F(FindDialogTest, EscapeClosesItWithAnOpenListToo) {
  find.mnuFRGArray(0);
  dialog.AddToList(kComboTextFind, u"one");
  SendMessageW(dialog.Control(kComboTextFind), CB_SHOWDROPDOWN, TRUE, 0);
  Press(VK_ESCAPE);
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, EscapeInTheTextLeavesItOpen) {
  Box().Load(u"one");
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"one");
  ASSERT_TRUE(GivesTheTextTheFocus([this] {
    Box().Select({0, 0});
    Press(kCommand1);
  }));
  Press(VK_ESCAPE);
  EXPECT_TRUE(dialog.IsOpen());
}

TEST_F(FindDialogTest, CloseBoxAndCloseButtonsCloseItAndTheTextGoesOn) {
  find.mnuFRGArray(0);
  PostMessageW(dialog.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
  loop.Pump();
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_EQ(GetActiveWindow(), window.Handle());
  find.mnuFRGArray(1);
  Press(kCommand4);
  EXPECT_FALSE(dialog.IsOpen());
  find.mnuFRGArray(2);
  PostMessageW(dialog.Handle(), WM_COMMAND, static_cast<WPARAM>(kCommand9), 0);
  loop.Pump();
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, EnterInAFieldPressesTheDefaultButton) {
  Box().Load(u"a\none\nthree");
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"one");
  EXPECT_TRUE(GivesTheTextTheFocus([this] {
    Box().Select({0, 0});
    dialog.Focus(kComboTextFind);
    Press(VK_RETURN);
    EXPECT_EQ(Box().Selection(), (TextSpan{2, 3}));
  }));
  find.mnuFRGArray(2);
  Type(kLineToFind, u"3");
  Press(VK_RETURN);
  EXPECT_EQ(Box().Selection(), (TextSpan{6, 5}));
  find.mnuFRGArray(1);
  Type(kComboTextReplaceFind, u"three");
  Press(VK_RETURN);
  EXPECT_EQ(Box().Selection(), (TextSpan{6, 5}));
  EXPECT_EQ(dialog.Text(kCommand3), u"Find next");
}

TEST_F(FindDialogTest, EnterOnAButtonPressesThatButton) {
  find.mnuFRGArray(0);
  dialog.Focus(kCommand2);
  Press(VK_RETURN);
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, MnemonicsReachTheControlsOfTheirPage) {
  find.mnuFRGArray(0);
  dialog.Focus(kCommand2);
  PressAlt(L'n');
  EXPECT_EQ(FocusedBy(kComboTextFind), kComboTextFind);
  PressAlt(L'c');
  EXPECT_TRUE(dialog.IsTicked(kMatchCaseF));
  EXPECT_TRUE(dialog.IsTicked(kMatchCaseR)) << "mirrored once, not toggled twice";
  PressAlt(L'w');
  EXPECT_TRUE(dialog.IsTicked(kWholeWordF));
  find.mnuFRGArray(1);
  PressAlt(L'p');
  EXPECT_EQ(FocusedBy(kComboTextReplaceWith), kComboTextReplaceWith);
  PressAlt(L'n');
  EXPECT_EQ(FocusedBy(kComboTextReplaceFind), kComboTextReplaceFind);
  find.mnuFRGArray(2);
  dialog.Focus(kCommand8);
  PressAlt(L'l');
  EXPECT_EQ(FocusedBy(kLineToFind), kLineToFind);
}

TEST_F(FindDialogTest, MnemonicsReplaceAndGo) {
  Box().Load(u"one one one");
  find.mnuFRGArray(1);
  Type(kComboTextReplaceFind, u"one");
  Type(kComboTextReplaceWith, u"1");
  Press(kCommand3);
  dialog.Focus(kComboTextReplaceWith);
  PressAlt(L'r');
  EXPECT_EQ(Box().Text(), u"1 one one");
  EXPECT_EQ(FocusedBy(kCommand3), kCommand3);
  Press(VK_RETURN);
  dialog.Focus(kComboTextReplaceWith);
  BoxDriver driver;
  driver.WhenOpen([](HWND box) { PostMessageW(box, WM_COMMAND, IDOK, 0); });
  PressAlt(L'a');
  EXPECT_EQ(Box().Text(), u"1 1 1");
  EXPECT_EQ(FocusedBy(kCommand3), kCommand3);
  find.mnuFRGArray(2);
  Type(kLineToFind, u"1");
  PressAlt(L'g');
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 5}));
}

TEST_F(FindDialogTest, MnemonicsOfOtherPagesDoNothing) {
  Box().Load(u"one");
  find.mnuFRGArray(1);
  Type(kComboTextReplaceFind, u"one");
  Press(kCommand3);
  find.mnuFRGArray(0);
  for (const wchar_t letter : {L'r', L'a', L'p', L'l', L'g'}) {
    PressAlt(letter);
    EXPECT_EQ(FocusedBy(kComboTextFind), kComboTextFind) << static_cast<char>(letter);
  }
  EXPECT_EQ(Box().Text(), u"one");
}

TEST_F(FindDialogTest, KeysTurnThePages) {
  find.mnuFRGArray(0);
  const auto page = [this] { return SendMessageW(dialog.Control(kSSTab1), TCM_GETCURSEL, 0, 0); };
  Press(VK_TAB, {VK_CONTROL});
  EXPECT_EQ(page(), 1);
  EXPECT_EQ(FocusedBy(kComboTextReplaceFind), kComboTextReplaceFind);
  Press(VK_NEXT, {VK_CONTROL});
  EXPECT_EQ(page(), 2);
  EXPECT_EQ(FocusedBy(kLineToFind), kLineToFind);
  Press(VK_TAB, {VK_CONTROL});
  EXPECT_EQ(page(), 0);
  Press(VK_TAB, {VK_CONTROL, VK_SHIFT});
  EXPECT_EQ(page(), 2);
  Press(VK_PRIOR, {VK_CONTROL});
  EXPECT_EQ(page(), 1);
  dialog.Focus(kSSTab1);
  Press(VK_RIGHT);
  EXPECT_EQ(page(), 2);
  EXPECT_EQ(FocusedBy(kSSTab1), kSSTab1) << "so that the arrow keys can go on";
  EXPECT_TRUE(IsWindowVisible(dialog.Control(kLineToFind)));
}

TEST_F(FindDialogTest, FindAgainWorksInTheDialog) {
  Box().Load(u"one two one");
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"one");
  ASSERT_EQ(FocusedBy(kComboTextFind), kComboTextFind);
  Press(VK_F3);
  EXPECT_EQ(Box().Selection(), (TextSpan{0, 3}));
}

TEST_F(FindDialogTest, ShowsTheControlsOfOnePageOnly) {
  for (int page = 0; page < 3; ++page) {
    find.mnuFRGArray(page);
    for (const FindPart& part : kFindParts) {
      if (part.control == kNoControl) continue;
      const bool shown = IsWindowVisible(dialog.Control(part.control)) != 0;
      EXPECT_EQ(shown,
                part.page ? *part.page == static_cast<FindPage>(page) : part.control == kSSTab1)
          << page << ' ' << static_cast<int>(part.control);
    }
  }
}

// ---- The window.

TEST_F(FindDialogTest, IsRestoredWhenOpenedAgain) {
  find.mnuFRGArray(0);
  SetWindowPos(dialog.Handle(), nullptr, 130, 140, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const Rectangle place = ScreenPlace(dialog.Handle());
  find.Minimise();
  EXPECT_TRUE(IsIconic(dialog.Handle()));
  EXPECT_FALSE(IsIconic(window.Handle()));
  EXPECT_EQ(GetActiveWindow(), window.Handle());
  find.mnuFRGArray(1);
  EXPECT_FALSE(IsIconic(dialog.Handle()));
  EXPECT_TRUE(IsWindowVisible(dialog.Handle()));
  EXPECT_EQ(ScreenPlace(dialog.Handle()), place);
  EXPECT_EQ(FocusedBy(kComboTextReplaceFind), kComboTextReplaceFind);
}

TEST_F(FindDialogTest, OpensWhereItWasLastAndAlwaysOnAMonitor) {
  find.mnuFRGArray(0);
  const Rectangle first = ScreenPlace(dialog.Handle());
  EXPECT_TRUE(Overlap(first, ScreenPlace(window.Handle())));
  SetWindowPos(dialog.Handle(), nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  find.Close();
  find.mnuFRGArray(0);
  EXPECT_EQ(ScreenPlace(dialog.Handle()).left, 30);
  EXPECT_EQ(ScreenPlace(dialog.Handle()).top, 40);
  SetWindowPos(dialog.Handle(), nullptr, 50'000, -50'000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  find.Close();
  find.mnuFRGArray(0);
  const Rectangle place = ScreenPlace(dialog.Handle());
  EXPECT_GE(place.top, 0);
  EXPECT_LE(place.right(), GetSystemMetrics(SM_CXSCREEN));
}

// Hidden, since a window manager answers a move when the next one is long done, and would bring the
// window back to where it was some moves ago.
TEST_F(FindDialogTest, MovesAsideFromWhatItHasFound) {
  std::u16string text;
  for (int line = 0; line < 200; ++line) text += u"line with a needle of its own number x\n";
  text += u"target";
  Box().Load(text);
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"needle");
  ShowWindow(dialog.Handle(), SW_HIDE);
  loop.Pump();
  const auto selection = [this] {
    const std::optional<Rectangle> place = SelectionOnScreen();
    EXPECT_TRUE(place) << "focus " << GetFocus() << ", active " << GetActiveWindow();
    return place.value_or(Rectangle{});
  };
  int hidden = 0;
  for (int i = 0; i < 30; ++i) {
    Press(kCommand1);
    const Rectangle match = selection();
    // Over the next match, one line lower.
    SetWindowPos(dialog.Handle(), nullptr, match.left - 20, match.top - 30, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const Rectangle before = ScreenPlace(dialog.Handle());
    Press(kCommand1);
    hidden += Overlap(before, selection()) ? 1 : 0;
    ASSERT_FALSE(Overlap(ScreenPlace(dialog.Handle()), selection())) << i;
  }
  EXPECT_EQ(hidden, 30) << "each was hidden at first";
  find.mnuFRGArray(2);
  Type(kLineToFind, u"100");
  ShowWindow(dialog.Handle(), SW_HIDE);
  loop.Pump();
  Press(kCommand7);
  EXPECT_FALSE(Overlap(ScreenPlace(dialog.Handle()), selection()));
}

TEST_F(FindDialogTest, StaysWhereItIsWhenItHidesNothing) {
  Box().Load(u"one one");
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"one");
  const Rectangle owner = ScreenPlace(window.Handle());
  SetWindowPos(dialog.Handle(), nullptr, owner.left + 100, owner.bottom() - 100, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER);
  const Rectangle before = ScreenPlace(dialog.Handle());
  Press(kCommand1);
  Press(kCommand1);
  EXPECT_EQ(ScreenPlace(dialog.Handle()), before);
}

TEST_F(FindDialogTest, MessagesStandInFrontOfItAndHoldTheMainWindow) {
  Box().Load(u"one");
  find.mnuFRGArray(0);
  Type(kComboTextFind, u"two");
  BoxDriver driver;
  HWND owner = nullptr;
  bool mainWasEnabled = true;
  driver.WhenOpen([&](HWND box) {
    owner = GetWindow(box, GW_OWNER);
    mainWasEnabled = IsWindowEnabled(window.Handle()) != 0;
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  });
  Press(kCommand1);
  EXPECT_EQ(owner, dialog.Handle());
  EXPECT_FALSE(mainWasEnabled);
  EXPECT_TRUE(IsWindowEnabled(window.Handle()));
  EXPECT_TRUE(IsWindowEnabled(dialog.Handle()));
  EXPECT_EQ(FocusedBehindABoxBy(kCommand1), kCommand1);
}

TEST_F(FindDialogTest, EndsWithTheMainWindow) {
  find.mnuFRGArray(0);
  DestroyWindow(window.Handle());
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(FindDialogTest, LabelsAndTicksAreWrittenInTheColourOfTheSystem) {
  const DarkColours dark;
  find.mnuFRGArray(0);
  const HWND label = GetWindow(dialog.Handle(), GW_CHILD);
  for (const HWND control : {label, dialog.Control(kMatchCaseF)}) {
    const HDC context = GetDC(control);
    SendMessageW(dialog.Handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                 reinterpret_cast<LPARAM>(control));
    EXPECT_EQ(GetTextColor(context), RGB(230, 230, 230));
    ReleaseDC(control, context);
  }
}

TEST_F(FindDialogTest, ScreenReadersFindALabelBeforeEveryField) {
  find.mnuFRGArray(0);
  for (const FindControl field :
       {kComboTextFind, kComboTextReplaceFind, kComboTextReplaceWith, kLineToFind}) {
    const HWND label = GetWindow(dialog.Control(field), GW_HWNDPREV);
    std::array<wchar_t, 100> name{};
    GetClassNameW(label, name.data(), static_cast<int>(name.size()));
    EXPECT_STREQ(name.data(), L"Static");
    EXPECT_GT(GetWindowTextLengthW(label), 0);
  }
}

// ---- Resolution.

class FindDialogAtDpi : public FindDialogTest, public testing::WithParamInterface<int> {};

TEST_P(FindDialogAtDpi, EverythingFits) {
  find.mnuFRGArray(0);
  RECT suggested{0, 0, 100, 100};
  const auto dpi = static_cast<WORD>(GetParam());
  SendMessageW(dialog.Handle(), kDpiChanged, MAKEWPARAM(dpi, dpi),
               reinterpret_cast<LPARAM>(&suggested));
  RECT client{};
  GetClientRect(dialog.Handle(), &client);
  for (HWND child = GetWindow(dialog.Handle(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    Rectangle place = ScreenPlace(child);
    POINT corner{place.left, place.top};
    ScreenToClient(dialog.Handle(), &corner);
    EXPECT_LE(corner.x + place.width, client.right);
    EXPECT_LE(corner.y + place.height, client.bottom);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0));
    std::u16string text = TextOf(child);
    std::erase(text, u'&');
    const TextMeasure measure(child, font);
    EXPECT_LE(measure.LineHeight(), place.height) << Narrow(text);
    std::array<wchar_t, 100> name{};
    GetClassNameW(child, name.data(), static_cast<int>(name.size()));
    const bool isTick = (GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX &&
                        std::wstring_view(name.data()) == L"Button";
    const int beside = isTick ? measure.LineHeight() + 6 : 0;
    EXPECT_LE(measure.Width(text) + beside, place.width) << Narrow(text);
  }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, FindDialogAtDpi, testing::Values(96, 120, 144, 192, 288));

TEST_F(FindDialogTest, GrowsAndShrinksWithTheResolution) {
  find.mnuFRGArray(0);
  RECT before{};
  GetClientRect(dialog.Handle(), &before);
  const auto change = [this](WORD dpi) {
    RECT suggested{10, 20, 300, 300};
    SendMessageW(dialog.Handle(), kDpiChanged, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&suggested));
    RECT client{};
    GetClientRect(dialog.Handle(), &client);
    return client;
  };
  EXPECT_NEAR(static_cast<double>(change(192).right) / before.right, 2.0, 0.25);
  EXPECT_EQ(ScreenPlace(dialog.Handle()).left, 10);
  EXPECT_EQ(ScreenPlace(dialog.Handle()).top, 20);
  const RECT after = change(96);
  EXPECT_EQ(after.right, before.right);
  EXPECT_EQ(after.bottom, before.bottom);
}

}  // namespace
}  // namespace deck
