// What the edit box over the system's control does beyond the suite of edit boxes.
#include "documents/win32/rich_edit_box.h"

#include <commdlg.h>
#include <richedit.h>

#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/text_edits.h"
#include "platform/text_search.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/wine.h"
#include "tests/contract/edit_box/real_edit_box_driver.h"

namespace deck {
namespace {

class RichEditBoxTest : public testing::Test {
 protected:
  RichEditBoxTest() {
    box().SetVisible(true);
    box().Focus();
    driver_.events = {};
  }

  RichEditBox& box() { return driver_.box(); }
  EventCounts& events() { return driver_.events; }
  HWND control() { return driver_.control(); }

  // The text of the topmost line that shows.
  std::u16string TopLine() {
    RealEditBoxDriver::Pump();
    const int line = static_cast<int>(driver_.Send(EM_GETFIRSTVISIBLELINE)) + 1;
    const int start = box().StartOfLine(line);
    const int end = box().StartOfLine(line + 1);
    return box().Text().substr(static_cast<std::size_t>(start),
                               static_cast<std::size_t>(end - start - 1));
  }

  int LeftScroll() {
    POINT position{};
    driver_.Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
    return position.x;
  }

  CHARFORMAT2W FormatOfSelection() {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    driver_.Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
  }

  std::u16string FontFace() { return FromWide(FormatOfSelection().szFaceName); }

  RealEditBoxDriver driver_;
};

std::u16string NumberedLines(int count) {
  std::u16string text;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text += u"line " + std::u16string(number.begin(), number.end()) + u"\n";
  }
  return text;
}

// Lines and search, where the control and this program mean the same

TEST_F(RichEditBoxTest, CountsLinesAsTheControlDoes) {
  box().Load(u"one\n\ttwo\n\n\nfive\xD83D\xDE00\n" + std::u16string(3'000, u'x') + u"\n");
  for (int position = 0; position <= box().Length(); ++position) {
    ASSERT_EQ(box().LineOf(position), driver_.Send(EM_EXLINEFROMCHAR, 0, position) + 1) << position;
  }
  for (int line = 1; line <= 9; ++line) {
    EXPECT_EQ(box().StartOfLine(line), driver_.Send(EM_LINEINDEX, static_cast<WPARAM>(line - 1)));
  }
}

TEST_F(RichEditBoxTest, FindsWhatTheControlFinds) {
  const std::u16string text = u"foo bar Foo food\nfoo2 seafood, (foo) FOO\n\tbar.foo";
  box().Load(text);
  for (const std::u16string pattern : {u"foo", u"Foo", u"bar", u"o", u"foo bar", u"none", u"(f"}) {
    for (const int options : {0, kFindWholeWord, kFindMatchCase, kFindWholeWord | kFindMatchCase}) {
      for (int start = 0; start <= box().Length(); ++start) {
        for (const int end : {box().Length(), 20}) {
          FINDTEXTEXW request{{start, end}, Wide(pattern), {}};
          const LRESULT found = driver_.Send(EM_FINDTEXTEXW, static_cast<WPARAM>(options) | FR_DOWN,
                                             reinterpret_cast<LPARAM>(&request));
          ASSERT_EQ(FindInText(box().Text(), pattern, start, end, options), found)
              << "options " << options << " from " << start << " to " << end;
        }
      }
    }
  }
}

// The two ways to carry a batch out

TEST_F(RichEditBoxTest, TakesANewControlForALargeBatchOnly) {
  const std::u16string text = NumberedLines(300);
  box().Load(text);
  const HWND first = control();
  box().Apply({{{0, 4}, u"Line"}, {{7, 4}, u"Line"}});
  EXPECT_EQ(control(), first);
  box().Apply(EditPerLine(box().Text(), 0, u"Rem "));
  EXPECT_NE(control(), first);
  EXPECT_FALSE(IsWindow(first));
}

TEST_F(RichEditBoxTest, TheNewControlTakesThePlaceOfTheOld) {
  const HWND sibling = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 600, 400,
                                       driver_.window(), nullptr, nullptr, nullptr);
  SetWindowPos(control(), HWND_TOP, 20, 30, 400, 200, 0);
  box().Load(NumberedLines(300));
  RECT before{};
  GetWindowRect(control(), &before);
  const std::u16string face = FontFace();
  const HWND first = control();
  box().Apply(EditPerLine(box().Text(), 0, u"Rem "));
  ASSERT_NE(control(), first);
  RECT after{};
  GetWindowRect(control(), &after);
  EXPECT_TRUE(EqualRect(&before, &after));
  EXPECT_EQ(GetDlgItem(driver_.window(), RealEditBoxDriver::kControlId), control());
  EXPECT_EQ(GetTopWindow(driver_.window()), control());
  EXPECT_EQ(FontFace(), face);
  DestroyWindow(sibling);
}

TEST_F(RichEditBoxTest, TheParentHasNoPartInTheChangeOfControls) {
  static int focusMessages = 0;
  focusMessages = 0;
  const WNDPROC counting = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (message == WM_SETFOCUS) ++focusMessages;
    return DefWindowProcW(window, message, wParam, lParam);
  };
  const LONG_PTR before =
      SetWindowLongPtrW(driver_.window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(counting));
  box().Load(NumberedLines(300));
  box().Load(NumberedLines(200));
  box().Apply(EditPerLine(box().Text(), 0, u"Rem "));
  SetWindowLongPtrW(driver_.window(), GWLP_WNDPROC, before);
  EXPECT_EQ(focusMessages, 0);
  EXPECT_TRUE(driver_.IsFocused());
}

TEST_F(RichEditBoxTest, KeepsTheLinesInViewThroughBatchesOfAnySize) {
  for (const int edits : {2, 500}) {
    const std::u16string text = NumberedLines(500);
    box().Load(text);
    RealEditBoxDriver::Pump();
    driver_.Send(EM_LINESCROLL, 0, 250);
    ASSERT_EQ(TopLine(), u"line 250");
    std::vector<TextEdit> batch = EditPerLine(text, 4, u"Line");
    batch.resize(static_cast<std::size_t>(edits));
    batch.front().replacement = u"three\nmore\nlines\nLine";
    box().Apply(batch);
    EXPECT_EQ(TopLine(), edits == 2 ? u"line 250" : u"Line 250");
    EXPECT_EQ(box().LineOf(box().Selection().start), 1);
  }
}

TEST_F(RichEditBoxTest, KeepsTheColumnsInView) {
  for (const int edits : {2, 200}) {
    box().Load(Lines(200, std::u16string(300, u'x')));
    RealEditBoxDriver::Pump();
    POINT position{120, 0};
    driver_.Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
    ASSERT_EQ(LeftScroll(), 120);
    std::vector<TextEdit> batch = EditPerLine(box().Text(), 1, u"y");
    batch.resize(static_cast<std::size_t>(edits));
    box().Apply(batch);
    EXPECT_EQ(LeftScroll(), 120) << edits;
  }
}

TEST_F(RichEditBoxTest, ShowsTheCaretAfterUndoAndSelect) {
  box().Load(NumberedLines(500));
  box().Select({box().StartOfLine(300), 4});
  box().ReplaceSelection(u"x");
  box().Select({0, 0});
  EXPECT_EQ(TopLine(), u"line 0");
  box().Undo();
  RealEditBoxDriver::Pump();
  const int top = static_cast<int>(driver_.Send(EM_GETFIRSTVISIBLELINE)) + 1;
  EXPECT_LE(top, 300);
  EXPECT_GT(top, 250);
}

// Typing

TEST_F(RichEditBoxTest, TheInsertKeySwitchesWhatTypingDoes) {
  int switches = 0;
  driver_.settings().insertModeChanged = [&] { ++switches; };
  box().Load(u"abc\ndef");
  driver_.Type(u"1");
  EXPECT_EQ(box().Text(), u"1abc\ndef");
  driver_.Press(VK_INSERT);
  EXPECT_FALSE(driver_.settings().insertMode);
  driver_.Type(u"23456\n7");
  EXPECT_EQ(box().Text(), u"123456\n7\ndef") << "a line break is neither typed over nor types over";
  driver_.Press(VK_INSERT);
  EXPECT_TRUE(driver_.settings().insertMode);
  driver_.Type(u"8");
  EXPECT_EQ(box().Text(), u"123456\n78\ndef");
  EXPECT_EQ(switches, 2);
}

TEST_F(RichEditBoxTest, TypesOverWholeCharactersAndSelections) {
  driver_.settings().insertMode = false;
  box().Load(u"\xD83D\xDE00 abc");
  driver_.Type(u"x\xD83D\xDE01");
  EXPECT_EQ(box().Text(),
            u"x\xD83D\xDE01"
            u"abc");
  box().Select({3, 2});
  driver_.Type(u"!");
  EXPECT_EQ(box().Text(), u"x\xD83D\xDE01!c");
}

TEST_F(RichEditBoxTest, ErasesWholeCharacters) {
  box().Load(u"a\xD83D\xDE00\nb\xD83D\xDE00");
  box().Select({3, 0});
  driver_.Press(VK_BACK);
  EXPECT_EQ(box().Text(), u"a\nb\xD83D\xDE00");
  driver_.Press(VK_DELETE);
  EXPECT_EQ(box().Text(), u"ab\xD83D\xDE00");
  driver_.Press(VK_DELETE);
  driver_.Press(VK_DELETE);
  EXPECT_EQ(box().Text(), u"a");
  driver_.Press(VK_DELETE);
  driver_.Press(VK_BACK);
  driver_.Press(VK_BACK);
  EXPECT_EQ(box().Text(), u"");
  EXPECT_EQ(events().changed, 5);
}

TEST_F(RichEditBoxTest, ErasesTheSelectionAsOneStep) {
  box().Load(u"one two");
  box().Select({0, 4});
  driver_.Press(VK_BACK);
  EXPECT_EQ(box().Text(), u"two");
  box().Undo();
  EXPECT_EQ(box().Text(), u"one two");
  EXPECT_EQ(box().Selection(), (TextSpan{0, 4}));
}

TEST_F(RichEditBoxTest, ErasesWordsWithControl) {
  box().Load(u"one two three");
  box().Select({8, 0});
  driver_.Press(VK_BACK, {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"one three");
  driver_.Press(VK_DELETE, {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"one ");
  EXPECT_EQ(events().changed, 2);
  box().Undo();
  EXPECT_EQ(box().Text(), u"one two three");
}

TEST_F(RichEditBoxTest, EnterBreaksTheLineAlsoWithShiftButNotWithControl) {
  box().Load(u"ab");
  box().Select({1, 0});
  driver_.Press(VK_RETURN);
  driver_.Press(VK_RETURN, {VK_SHIFT});
  EXPECT_EQ(box().Text(), u"a\n\nb");
  driver_.Press(VK_RETURN, {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"a\n\nb");
}

TEST_F(RichEditBoxTest, TabIsACharacterUnlessControlIsDown) {
  driver_.Press(VK_TAB);
  EXPECT_EQ(box().Text(), u"\t");
  driver_.Press(VK_TAB, {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"\t");
}

TEST_F(RichEditBoxTest, FormattingKeysDoNothing) {
  box().Load(u"one two\nthree");
  box().Select({4, 3});
  const CHARFORMAT2W before = FormatOfSelection();
  for (int key = '0'; key <= 'Z'; ++key) {
    // Those edit, copy or select and have cases of their own.
    if (std::u16string_view(u"ACVXYZ").find(static_cast<char16_t>(key)) != std::u16string::npos) {
      continue;
    }
    driver_.Press(key, {VK_CONTROL});
    driver_.Press(key, {VK_CONTROL, VK_SHIFT});
  }
  for (const int key : {VK_OEM_PLUS, VK_OEM_MINUS, VK_OEM_COMMA, VK_OEM_PERIOD, VK_SPACE}) {
    driver_.Press(key, {VK_CONTROL});
    driver_.Press(key, {VK_CONTROL, VK_SHIFT});
  }
  const CHARFORMAT2W after = FormatOfSelection();
  EXPECT_EQ(after.dwEffects, before.dwEffects);
  EXPECT_EQ(after.yHeight, before.yHeight);
  EXPECT_EQ(FromWide(after.szFaceName), FromWide(before.szFaceName));
  PARAFORMAT2 paragraph{};
  paragraph.cbSize = sizeof paragraph;
  driver_.Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&paragraph));
  EXPECT_EQ(paragraph.wAlignment, PFA_LEFT);
  EXPECT_EQ(paragraph.wNumbering, 0);
  EXPECT_EQ(box().Text(), u"one two\nthree");
  EXPECT_EQ(box().Selection(), (TextSpan{4, 3}));
  EXPECT_EQ(events().changed, 0);
}

TEST_F(RichEditBoxTest, SelectsAllWithControlA) {
  box().Load(u"one\ntwo");
  driver_.Press('A', {VK_CONTROL});
  EXPECT_EQ(box().Selection(), (TextSpan{0, 7}));
}

TEST_F(RichEditBoxTest, TheWheelWithControlDoesNotZoom) {
  box().Load(NumberedLines(100));
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  driver_.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA));
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  WPARAM numerator = 0;
  LPARAM denominator = 0;
  driver_.Send(EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator),
               reinterpret_cast<LPARAM>(&denominator));
  EXPECT_EQ(numerator, static_cast<WPARAM>(denominator));
}

// Undo from every side

TEST_F(RichEditBoxTest, TakesBackWithKeysAndMessages) {
  const auto twoSteps = [&] {
    box().Load(u"");
    box().ReplaceSelection(u"one");
    box().ReplaceSelection(u"two");
  };
  twoSteps();
  driver_.Press('Z', {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"one");
  driver_.Press('Y', {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"onetwo");
  EXPECT_EQ(driver_.Send(EM_CANUNDO), TRUE);
  EXPECT_EQ(driver_.Send(EM_UNDO), TRUE);
  EXPECT_EQ(box().Text(), u"one");
  EXPECT_EQ(driver_.Send(WM_UNDO), TRUE);
  EXPECT_EQ(box().Text(), u"");
  EXPECT_EQ(driver_.Send(EM_CANUNDO), FALSE);
  EXPECT_EQ(driver_.Send(EM_UNDO), FALSE);
  EXPECT_EQ(driver_.Send(EM_CANREDO), TRUE);
  EXPECT_EQ(driver_.Send(EM_REDO), TRUE);
  EXPECT_EQ(box().Text(), u"one");
}

TEST_F(RichEditBoxTest, TakesBackWithAltAndBackspace) {
  box().ReplaceSelection(u"one");
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_MENU] = 0x80;
  SetKeyboardState(keys);
  driver_.Send(WM_SYSKEYDOWN, VK_BACK, 1 << 29);
  keys[VK_MENU] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(box().Text(), u"");
}

TEST_F(RichEditBoxTest, DoesAgainALargeBatchThatWasTakenBack) {
  const std::u16string text = NumberedLines(300);
  box().Load(text);
  box().Apply(EditPerLine(text, 0, u"Rem "));
  const std::u16string changed = box().Text();
  box().Undo();
  EXPECT_EQ(box().Text(), text);
  ASSERT_TRUE(box().CanRedo());
  box().Redo();
  EXPECT_EQ(box().Text(), changed);
  box().Undo();
  EXPECT_EQ(box().Text(), text);
}

TEST_F(RichEditBoxTest, TakesOverWhatOthersDoToTheControl) {
  box().Load(u"one two three");
  box().Select({4, 3});
  driver_.Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"2\r\n"));
  EXPECT_EQ(box().Text(), u"one 2\n three");
  EXPECT_EQ(events().changed, 1);
  EXPECT_EQ(box().LineOf(box().Length()), 2);
  driver_.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"replaced"));
  EXPECT_EQ(box().Text(), u"replaced");
  box().ReplaceSelection(u"x");
  box().Undo();
  box().Undo();
  EXPECT_EQ(box().Text(), u"one 2\n three");
  box().Undo();
  EXPECT_EQ(box().Text(), u"one two three");
  EXPECT_FALSE(box().CanUndo());
}

// The font

TEST_F(RichEditBoxTest, ShowsTextInTheChosenFont) {
  box().Load(u"text");
  const EditFontChoice choice = driver_.settings().fonts.ChoiceFor(96);
  EXPECT_EQ(FontFace(), choice.face);
  // Whole pixels, of which each is three quarters of a point.
  EXPECT_NEAR(FormatOfSelection().yHeight, choice.points * 20, 15);
}

TEST_F(RichEditBoxTest, PutsTheFontBackOnTheWholeTextWithoutAChange) {
  const std::u16string text = NumberedLines(200);
  box().Load(text);
  const std::u16string face = FontFace();
  box().ReplaceSelection(u"x");
  CHARFORMAT2W foreign{};
  foreign.cbSize = sizeof foreign;
  foreign.dwMask = CFM_FACE | CFM_SIZE;
  foreign.yHeight = 600;
  wcscpy(foreign.szFaceName, L"DejaVu Sans");
  driver_.Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&foreign));
  ASSERT_EQ(FormatOfSelection().yHeight, 600);
  box().Select({12, 5});
  driver_.Send(EM_LINESCROLL, 0, 50);
  const std::u16string top = TopLine();
  const EventCounts before = events();
  box().RefreshFont();
  EXPECT_EQ(FontFace(), face);
  EXPECT_NE(FormatOfSelection().yHeight, 600);
  EXPECT_EQ(box().Selection(), (TextSpan{12, 5}));
  EXPECT_EQ(TopLine(), top);
  EXPECT_TRUE(driver_.IsFocused());
  EXPECT_EQ(events().changed, before.changed);
  EXPECT_EQ(events().entered, before.entered);
  box().Undo();
  EXPECT_EQ(box().Text(), text);
  EXPECT_FALSE(box().CanUndo());
}

TEST_F(RichEditBoxTest, RefreshesTheFontOfAnEmptyText) {
  box().RefreshFont();
  EXPECT_EQ(box().Text(), u"");
  EXPECT_EQ(box().Selection(), TextSpan{});
  EXPECT_EQ(events().changed, 0);
}

TEST_F(RichEditBoxTest, GrowsTheFontWithTheResolution) {
  box().Load(u"text");
  const LONG before = FormatOfSelection().yHeight;
  box().SetDpi(192);
  EXPECT_GE(FormatOfSelection().yHeight, 2 * before);
  EXPECT_EQ(box().Text(), u"text");
  EXPECT_EQ(events().changed, 0);
}

// The mouse and the window

TEST_F(RichEditBoxTest, TellsWhenAMouseButtonGoesUp) {
  box().Load(u"text");
  driver_.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(events().keyOrMouseDone, 0);
  driver_.Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(events().keyOrMouseDone, 1);
}

// Enter in a dialog that brings the focus here, or a shortcut of the window.
TEST_F(RichEditBoxTest, AKeyThatWasPressedElsewhereIsNoneOfItsOwn) {
  box().Load(u"text");
  box().SetVisible(true);
  box().Focus();
  driver_.Send(WM_KEYUP, VK_RETURN, 1);
  EXPECT_EQ(events().keyOrMouseDone, 0);
  driver_.Send(WM_KEYDOWN, VK_RIGHT, 1);
  driver_.Send(WM_KEYUP, VK_F3, 1);
  EXPECT_EQ(events().keyOrMouseDone, 0);
  driver_.Send(WM_KEYUP, VK_RIGHT, 1);
  EXPECT_EQ(events().keyOrMouseDone, 1);
  driver_.Send(WM_KEYDOWN, VK_RIGHT, 1);
  SetFocus(driver_.window());
  box().Focus();
  driver_.Send(WM_KEYUP, VK_RIGHT, 1);
  EXPECT_EQ(events().keyOrMouseDone, 1);
}

TEST_F(RichEditBoxTest, AKeyStaysPressedWhileTheControlIsReplaced) {
  box().Load(u"text");
  box().SetVisible(true);
  box().Focus();
  driver_.Send(WM_KEYDOWN, VK_CONTROL, 1);
  box().RefreshFont();
  driver_.Send(WM_KEYUP, VK_CONTROL, 1);
  EXPECT_EQ(events().keyOrMouseDone, 1);
}

TEST_F(RichEditBoxTest, AMessageWithoutMovementIsNone) {
  driver_.Send(WM_MOUSEMOVE, 0, MAKELPARAM(40, 40));
  driver_.Send(WM_MOUSEMOVE, 0, MAKELPARAM(40, 40));
  EXPECT_EQ(events().mouseMoved, 1);
}

TEST_F(RichEditBoxTest, AnotherWidthLeavesALongTextAsItWas) {
  const std::u16string text = NumberedLines(1'000);
  box().Load(text);
  box().Select({box().StartOfLine(500), 4});
  box().ReplaceSelection(u"word");
  box().Select({box().StartOfLine(500), 4});
  const std::u16string top = TopLine();
  events() = {};
  const HWND before = control();
  for (const LONG width : {300, 420, 300, 420}) {
    box().Place({10, 20, 10 + width, 220});
    RECT place{};
    GetWindowRect(control(), &place);
    EXPECT_EQ(place.right - place.left, width);
    EXPECT_EQ(place.bottom - place.top, 200);
    EXPECT_EQ(box().Selection(), (TextSpan{box().StartOfLine(500), 4}));
    EXPECT_TRUE(IsWindowVisible(control()));
    EXPECT_EQ(GetFocus(), control());
    EXPECT_EQ(TopLine(), top);
  }
  EXPECT_EQ(events().changed, 0);
  EXPECT_NE(box().Text(), text);
  box().Undo();
  EXPECT_EQ(box().Text(), text);
  if (RunsUnderWine()) {
    EXPECT_NE(control(), before) << "the lines are laid out again, which gets slower each time";
  }
}

// A scroll bar that comes with the text would make the control narrower, and all lines would be
// laid out once more.
TEST_F(RichEditBoxTest, LongTextArrivesAtTheWidthThatItKeeps) {
  const auto width = [this] {
    RECT client{};
    GetClientRect(control(), &client);
    return client.right;
  };
  const auto hasScrollBar = [this] {
    return (GetWindowLongPtrW(control(), GWL_STYLE) & WS_VSCROLL) != 0;
  };
  PrepareForLines(control(), 5);
  EXPECT_FALSE(hasScrollBar()) << "a short text needs none";
  const LONG wide = width();
  PrepareForLines(control(), 1'000);
  EXPECT_TRUE(hasScrollBar());
  const LONG narrow = width();
  EXPECT_LT(narrow, wide);
  box().Load(NumberedLines(1'000));
  EXPECT_TRUE(hasScrollBar());
  EXPECT_EQ(width(), narrow);
  box().Load(u"short");
  EXPECT_FALSE(hasScrollBar());
  EXPECT_EQ(width(), wide);
}

// Most macro files are opened beside their joystick file and never looked at.
TEST_F(RichEditBoxTest, HasNoControlBeforeItIsInView) {
  EventCounts counts;
  RichEditBox hidden(driver_.settings(), driver_.window(), 6, 96, Counting(counts));
  hidden.SetVisible(false);
  hidden.Load(u"one\r\ntwo\tthree \u00FC\u0416");
  hidden.Place({20, 30, 220, 130});
  hidden.SetDpi(144);
  hidden.Focus();
  hidden.Select({100, 1});
  EXPECT_EQ(hidden.Selection(), (TextSpan{16, 0}));
  hidden.Select({4, 3});
  hidden.Undo();
  EXPECT_EQ(hidden.Window(), nullptr);
  EXPECT_EQ(hidden.Text(), u"one\ntwo\tthree \u00FC\u0416");
  EXPECT_EQ(hidden.Length(), 16);
  EXPECT_EQ(hidden.Selection(), (TextSpan{4, 3}));
  EXPECT_EQ(hidden.LineOf(5), 2);
  EXPECT_EQ(hidden.StartOfLine(2), 4);
  hidden.SetVisible(true);
  ASSERT_NE(hidden.Window(), nullptr);
  EXPECT_EQ(ControlText(hidden.Window()), u"one\ntwo\tthree \u00FC\u0416");
  EXPECT_EQ(hidden.Selection(), (TextSpan{4, 3}));
  EXPECT_TRUE(IsWindowVisible(hidden.Window()));
  RECT place{};
  GetWindowRect(hidden.Window(), &place);
  MapWindowPoints(nullptr, driver_.window(), reinterpret_cast<POINT*>(&place), 2);
  const RECT expected{20, 30, 220, 130};
  EXPECT_TRUE(EqualRect(&place, &expected));
  EXPECT_EQ(counts.changed, 0);
  EXPECT_FALSE(hidden.CanUndo());
  const HWND made = hidden.Window();
  hidden.SetVisible(false);
  EXPECT_EQ(hidden.Window(), made);
}

// Painting a frame takes Wine as long as loading a few lines.
TEST_F(RichEditBoxTest, BoxesThatChangePlacesPaintTheirFramesLater) {
  RichEditBox other(driver_.settings(), driver_.window(), 6, 96, EditBox::Events{});
  other.Load(u"text");
  other.SetVisible(true);
  other.SetVisible(false);
  RealEditBoxDriver::Pump();
  static int frames;
  frames = 0;
  static WNDPROC procedure;
  procedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(other.Window(), GWLP_WNDPROC,
                        reinterpret_cast<LONG_PTR>(+[](HWND window, UINT message, WPARAM wParam,
                                                       LPARAM lParam) -> LRESULT {
                          frames += message == WM_NCPAINT ? 1 : 0;
                          return CallWindowProcW(procedure, window, message, wParam, lParam);
                        })));
  other.SetVisible(true);
  box().SetVisible(false);
  EXPECT_EQ(frames, 0);
  RealEditBoxDriver::Pump();
  EXPECT_EQ(frames, 1);
  SetWindowLongPtrW(other.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

// What counts as the text is what the control makes of it.
TEST_F(RichEditBoxTest, AsksTheControlAboutCharactersThatItMightNotHold) {
  for (const std::u16string text :
       {u"a\u000Bb", u"a\u0085b", u"a\u05D0b", u"a\u2028b", u"\xD800"}) {
    RichEditBox hidden(driver_.settings(), driver_.window(), 6, 96, EditBox::Events{});
    hidden.Load(text);
    ASSERT_NE(hidden.Window(), nullptr);
    EXPECT_EQ(hidden.Text(), ControlText(hidden.Window()));
  }
}

TEST_F(RichEditBoxTest, AnEditMakesTheControl) {
  using Edit = void (*)(RichEditBox&);
  for (const Edit edit :
       {Edit([](RichEditBox& box) { box.ReplaceSelection(u"x"); }), Edit([](RichEditBox& box) {
          box.Apply({{{4, 3}, u"x"}});
        }),
        Edit([](RichEditBox& box) {
          box.ApplyStepByStep({{{4, 3}, u"x"}});
        })}) {
    RichEditBox hidden(driver_.settings(), driver_.window(), 6, 96, EditBox::Events{});
    hidden.Load(u"one\ntwo");
    hidden.Select({4, 3});
    edit(hidden);
    ASSERT_NE(hidden.Window(), nullptr);
    EXPECT_FALSE(IsWindowVisible(hidden.Window()));
    EXPECT_EQ(ControlText(hidden.Window()), u"one\nx");
    EXPECT_EQ(hidden.Selection(), ControlSelection(hidden.Window()));
    hidden.Undo();
    EXPECT_EQ(ControlText(hidden.Window()), u"one\ntwo");
    EXPECT_EQ(hidden.Selection(), (TextSpan{4, 3}));
  }
}

TEST_F(RichEditBoxTest, KeepsItsTextWhenTheParentIsDestroyed) {
  for (const bool wasInView : {true, false}) {
    const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 100, 100,
                                        driver_.window(), nullptr, nullptr, nullptr);
    EventCounts counts;
    RichEditBox orphan(driver_.settings(), parent, 5, 96, Counting(counts));
    orphan.Load(u"text");
    if (wasInView) orphan.SetVisible(true);
    DestroyWindow(parent);
    EXPECT_EQ(orphan.Window(), nullptr);
    EXPECT_EQ(orphan.Text(), u"text");
    EXPECT_EQ(orphan.Length(), 4);
    orphan.SetVisible(true);
    orphan.Focus();
    orphan.Select({1, 1});
    orphan.ReplaceSelection(u"x");
    orphan.Apply({{{4, 1}, u"!"}});
    orphan.RefreshFont();
    EXPECT_EQ(orphan.Text(), u"txxt!");
    orphan.Undo();
    orphan.Undo();
    EXPECT_EQ(orphan.Text(), u"text");
    orphan.Load(u"other");
    EXPECT_EQ(orphan.Text(), u"other");
  }
}

TEST_F(RichEditBoxTest, EndsWithoutATraceInItsParent) {
  const int children = [&] {
    int count = 0;
    EnumChildWindows(
        driver_.window(), [](HWND, LPARAM n) -> BOOL { return ++*reinterpret_cast<int*>(n), TRUE; },
        reinterpret_cast<LPARAM>(&count));
    return count;
  }();
  EXPECT_EQ(children, 1);
  auto second =
      std::make_unique<RichEditBox>(driver_.settings(), driver_.window(), 6, 96, EditBox::Events{});
  second->Load(NumberedLines(100));
  second->SetVisible(true);
  const HWND window = second->Window();
  EXPECT_TRUE(IsWindow(window));
  second.reset();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(GetDlgItem(driver_.window(), 6), nullptr);
}

}  // namespace
}  // namespace deck
