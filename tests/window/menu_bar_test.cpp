// What stands in the menus, letter for letter, and which key presses reach the program.
#include <array>
#include <cctype>
#include <string>
#include <vector>

#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

const std::string kSeparator = "-";

std::string CaptionAt(HMENU menu, int position) {
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  std::array<wchar_t, 300> caption{};
  item.fMask = MIIM_FTYPE | MIIM_STRING;
  item.dwTypeData = caption.data();
  item.cch = static_cast<UINT>(caption.size());
  GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
  if ((item.fType & MFT_SEPARATOR) != 0) return kSeparator;
  const std::wstring text = caption.data();
  return {text.begin(), text.end()};
}

std::vector<std::string> CaptionsOf(HMENU menu) {
  std::vector<std::string> captions;
  for (int item = 0; item < GetMenuItemCount(menu); ++item) {
    captions.push_back(CaptionAt(menu, item));
  }
  return captions;
}

class MenuBarTest : public MainWindowFixture {
 protected:
  HMENU Bar() const { return GetMenu(window.Handle()); }
  HMENU Popup(int position) const { return GetSubMenu(Bar(), position); }
  std::vector<UINT> IdsOf(HMENU menu) const {
    std::vector<UINT> ids;
    for (int item = 0; item < GetMenuItemCount(menu); ++item) {
      ids.push_back(GetMenuItemID(menu, item));
    }
    return ids;
  }

  // As a key press with these modifiers held down arrives.
  void Press(WORD key, bool control, bool shift) {
    std::array<BYTE, 256> keys{};
    keys[VK_CONTROL] = control ? 0x80 : 0;
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys.data());
    MSG message{};
    message.hwnd = window.Handle();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    loop.Dispatch(message);
    keys = {};
    SetKeyboardState(keys.data());
  }
};

TEST_F(MenuBarTest, EightMenusStandInOrder) {
  EXPECT_EQ(CaptionsOf(Bar()), (std::vector<std::string>{"&File", "&Edit", "F&ind", "&View",
                                                         "&Tools", "&Download", "&Apps", "&Help"}));
}

TEST_F(MenuBarTest, EveryMenuHoldsItsItemsInOrderWithCaptionsAndShortcuts) {
  const std::vector<std::vector<std::string>> menus = {
      {"&New\tCtrl+N", "&Open...\tCtrl+O", "&Save\tCtrl+S", "Save &As...\tF12",
       "Save A&ll\tCtrl+Shift+S", "&Close\tCtrl+F4", kSeparator, "&Print\tCtrl+P",
       "Printer Set&up...", kSeparator, "E&xit\tAlt+F4"},
      {"&Undo\tCtrl+Z", kSeparator, "Cu&t\tCtrl+X", "&Copy\tCtrl+C", "&Paste\tCtrl+V",
       "&Delete\tDel", kSeparator, "Select &all\tCtrl+A", "Refresh &fonts", kSeparator,
       "&Key tester...\tF6"},
      {"&Find...\tCtrl+F", "&Replace...\tCtrl+H", "&Goto line...\tCtrl+G"},
      {"View &macros\tCtrl+M", "&Update macro list\tF5"},
      {"Block &REM\tCtrl+K", "Block &un-REM\tCtrl+Shift+K", kSeparator,
       "&Align slash modifiers\tCtrl+L", "&Indent statements when aligning"},
      {"&Compile\tF9", "&Download\tCtrl+F9", kSeparator, "&Enable after download",
       "Ignore RUN_APP statements on download"},
      {"&Wren", "&Starter", "HOTAS &control panel"},
      {"&Help topics\tF1", kSeparator, "&Syntax\tShift+F1", "Slash &modifiers", "&Error codes",
       kSeparator, "&Version"},
  };
  for (std::size_t menu = 0; menu < menus.size(); ++menu) {
    EXPECT_EQ(CaptionsOf(Popup(static_cast<int>(menu))), menus[menu]);
  }
}

TEST_F(MenuBarTest, NoTwoItemsOfAMenuShareAMnemonic) {
  window.SetRecentFiles({u"C:\\a.tmj"});
  for (int menu = -1; menu < GetMenuItemCount(Bar()); ++menu) {
    std::string seen;
    for (const std::string& caption : CaptionsOf(menu < 0 ? Bar() : Popup(menu))) {
      const std::size_t mark = caption.find('&');
      if (mark == std::string::npos) continue;
      const auto letter = static_cast<char>(std::tolower(caption[mark + 1]));
      EXPECT_EQ(seen.find(letter), std::string::npos) << caption;
      seen += letter;
    }
  }
}

TEST_F(MenuBarTest, RecentFilesStandBetweenPrintingAndExitWithTheirIds) {
  window.SetRecentFiles({u"C:\\new.tmj", u"C:\\old.tmm"});
  EXPECT_EQ(CaptionsOf(Popup(0)),
            (std::vector<std::string>{"&New\tCtrl+N", "&Open...\tCtrl+O", "&Save\tCtrl+S",
                                      "Save &As...\tF12", "Save A&ll\tCtrl+Shift+S",
                                      "&Close\tCtrl+F4", kSeparator, "&Print\tCtrl+P",
                                      "Printer Set&up...", kSeparator, "C:\\new.tmj", "C:\\old.tmm",
                                      "Clea&r recent files", kSeparator, "E&xit\tAlt+F4"}));
  const std::vector<UINT> ids = IdsOf(Popup(0));
  EXPECT_EQ(ids[10], 2001U);
  EXPECT_EQ(ids[11], 2002U);
  EXPECT_EQ(ids[12], 109U);
}

TEST_F(MenuBarTest, RecentFilesAreReplacedByTheNextListAndHiddenByAnEmptyOne) {
  const std::vector<std::string> without = CaptionsOf(Popup(0));
  window.SetRecentFiles({u"C:\\a.tmj", u"C:\\b.tmj", u"C:\\c.tmj"});
  window.SetRecentFiles({u"C:\\c.tmj"});
  EXPECT_EQ(CaptionsOf(Popup(0)).size(), without.size() + 3);
  window.SetRecentFiles({});
  EXPECT_EQ(CaptionsOf(Popup(0)), without);
}

TEST_F(MenuBarTest, AmpersandsInRecentFilesAreDoubled) {
  window.SetRecentFiles({u"C:\\R&D\\a&b.tmj"});
  EXPECT_EQ(CaptionAt(Popup(0), 10), "C:\\R&&D\\a&&b.tmj");
}

TEST_F(MenuBarTest, CommandShowsItsStateAndKeepsItsShortcut) {
  window.SetCommand(CommandId::kCompile, {.enabled = false, .caption = u"&Compile R&&D.tmj"});
  window.SetCommand(CommandId::kViewMacros,
                    {.enabled = true, .checked = true, .caption = u"View &macros"});
  EXPECT_EQ(CaptionAt(Popup(5), 0), "&Compile R&&D.tmj\tF9");
  EXPECT_NE(GetMenuState(Bar(), 601, MF_BYCOMMAND) & MF_GRAYED, 0U);
  EXPECT_NE(GetMenuState(Bar(), 401, MF_BYCOMMAND) & MF_CHECKED, 0U);
  window.SetCommand(CommandId::kCompile, {.enabled = true, .caption = u"&Compile"});
  window.SetCommand(CommandId::kViewMacros, {.enabled = true, .caption = u"View &macros"});
  EXPECT_EQ(CaptionAt(Popup(5), 0), "&Compile\tF9");
  EXPECT_EQ(GetMenuState(Bar(), 601, MF_BYCOMMAND) & MF_GRAYED, 0U);
  EXPECT_EQ(GetMenuState(Bar(), 401, MF_BYCOMMAND) & MF_CHECKED, 0U);
}

TEST_F(MenuBarTest, StateOfClearingRecentFilesHoldsWhileTheyAreHidden) {
  window.SetCommand(CommandId::kClearRecentFiles,
                    {.enabled = false, .caption = u"Clea&r recent files"});
  window.SetRecentFiles({u"C:\\a.tmj"});
  EXPECT_NE(GetMenuState(Bar(), 109, MF_BYCOMMAND) & MF_GRAYED, 0U);
}

TEST_F(MenuBarTest, OpeningAMenuIsReportedWithTheMenu) {
  for (int menu = 0; menu < 8; ++menu) {
    SendMessageW(window.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(Popup(menu)),
                 MAKELPARAM(menu, FALSE));
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.back(), "menu " + std::to_string(menu + 1));
  }
}

TEST_F(MenuBarTest, ChosenItemIsExecuted) {
  SendMessageW(window.Handle(), WM_COMMAND, 103, 0);
  SendMessageW(window.Handle(), WM_COMMAND, 2007, 0);
  EXPECT_EQ(events, (std::vector<std::string>{"execute 103", "execute 2007"}));
}

TEST_F(MenuBarTest, CommandsAreIgnoredWhileABoxDisablesTheWindow) {
  EnableWindow(window.Handle(), FALSE);
  SendMessageW(window.Handle(), WM_COMMAND, 103, 0);
  EXPECT_TRUE(events.empty());
  EnableWindow(window.Handle(), TRUE);
  SendMessageW(window.Handle(), WM_COMMAND, 103, 0);
  EXPECT_EQ(events, std::vector<std::string>{"execute 103"});
}

TEST_F(MenuBarTest, EveryShortcutExecutesItsCommand) {
  const struct {
    WORD key;
    bool control;
    bool shift;
    int command;
  } shortcuts[] = {
      {'N', true, false, 101},     {'O', true, false, 102},    {'S', true, false, 103},
      {VK_F12, false, false, 104}, {'S', true, true, 105},     {VK_F4, true, false, 106},
      {'P', true, false, 107},     {'Z', true, false, 201},    {'X', true, false, 202},
      {'C', true, false, 203},     {'V', true, false, 204},    {'A', true, false, 206},
      {VK_F6, false, false, 208},  {'F', true, false, 301},    {'H', true, false, 302},
      {'G', true, false, 303},     {VK_F3, false, false, 304}, {'M', true, false, 401},
      {VK_F5, false, false, 402},  {'K', true, false, 501},    {'K', true, true, 502},
      {'L', true, false, 503},     {VK_F9, false, false, 601}, {VK_F9, true, false, 602},
      {VK_F1, false, false, 801},  {VK_F1, false, true, 802},  {VK_TAB, true, false, 901},
      {VK_TAB, true, true, 902},
  };
  EXPECT_EQ(CopyAcceleratorTableW(window.Shortcuts(), nullptr, 0),
            static_cast<int>(std::size(shortcuts)));
  for (const auto& [key, control, shift, command] : shortcuts) {
    events.clear();
    Press(key, control, shift);
    EXPECT_TRUE(Happened("execute " + std::to_string(command))) << command;
  }
}

TEST_F(MenuBarTest, KeysThatBelongToTheTextAreNoShortcuts) {
  Press(VK_DELETE, false, false);
  Press('S', false, false);
  Press(VK_TAB, false, false);
  EXPECT_TRUE(events.empty());
}

TEST_F(MenuBarTest, MenuIsAskedForItsStateBeforeItsShortcutActs) {
  Press('X', true, false);
  EXPECT_EQ(events, (std::vector<std::string>{"menu 2", "execute 202"}));
}

TEST_F(MenuBarTest, ShortcutOfADisabledItemDoesNothing) {
  window.SetCommand(CommandId::kCompile, {.enabled = false, .caption = u"&Compile"});
  Press(VK_F9, false, false);
  EXPECT_FALSE(Happened("execute 601"));
}

}  // namespace
}  // namespace deck
