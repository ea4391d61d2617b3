// Text on its way into and out of a real edit box: clipboard, menu and drops.
#include <ole2.h>
#include <richedit.h>
#include <shlobj.h>

#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "documents/win32/edit_context_menu.h"
#include "documents/win32/edit_drop_target.h"
#include "documents/win32/rich_edit_box.h"
#include "platform/win32/text_drag.h"
#include "platform/win32/wide_text.h"
#include "tests/contract/edit_box/real_edit_box_driver.h"

namespace deck {
namespace {

using Bytes = std::string;

Bytes BytesOf(std::wstring_view text) {
  const std::wstring terminated(text);
  return {reinterpret_cast<const char*>(terminated.c_str()),
          (terminated.size() + 1) * sizeof(wchar_t)};
}

HGLOBAL MemoryWith(const Bytes& bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
  GlobalUnlock(memory);
  return memory;
}

UINT RtfFormat() {
  return RegisterClipboardFormatW(L"Rich Text Format");
}

const Bytes kRtf = Bytes("{\\rtf1 {\\b formatted}\\par}") + '\0';

class RichEditBoxTransfer : public testing::Test {
 protected:
  RichEditBoxTransfer() {
    box().SetVisible(true);
    box().Focus();
    box().Load(u"one\ntwo\nthree");
    driver_.events = {};
  }

  RichEditBox& box() { return driver_.box(); }

  void PutOnClipboard(const std::vector<std::pair<UINT, Bytes>>& contents) {
    ASSERT_TRUE(OpenClipboard(driver_.window()));
    EmptyClipboard();
    for (const auto& [format, bytes] : contents) SetClipboardData(format, MemoryWith(bytes));
    CloseClipboard();
  }

  std::optional<std::wstring> TextOnClipboard() {
    if (!OpenClipboard(driver_.window())) return std::nullopt;
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    std::optional<std::wstring> text;
    if (memory != nullptr) text = static_cast<const wchar_t*>(GlobalLock(memory));
    CloseClipboard();
    return text;
  }

  CHARFORMAT2W FormatOfAll() {
    box().Select({0, box().Length()});
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    driver_.Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
  }

  RealEditBoxDriver driver_;
};

// Clipboard

TEST_F(RichEditBoxTransfer, PastesPlainTextFromEveryRoute) {
  PutOnClipboard({{RtfFormat(), kRtf}, {CF_UNICODETEXT, BytesOf(L"A\r\n\u4E2D")}});
  const std::array<std::function<void()>, 4> routes = {
      [&] { driver_.Press('V', {VK_CONTROL}); },
      [&] { driver_.Press(VK_INSERT, {VK_SHIFT}); },
      [&] { driver_.Send(WM_PASTE); },
      [&] { driver_.Send(EM_PASTESPECIAL, RtfFormat()); },
  };
  for (const auto& route : routes) {
    box().Load(u"one two");
    box().Select({4, 3});
    route();
    EXPECT_EQ(box().Text(), u"one A\n\u4E2D");
    EXPECT_EQ(box().Selection(), (TextSpan{7, 0}));
    EXPECT_EQ(FormatOfAll().dwEffects & CFE_BOLD, 0u);
    box().Undo();
    EXPECT_EQ(box().Text(), u"one two");
  }
}

TEST_F(RichEditBoxTransfer, PastesTextOfTheCodePage) {
  PutOnClipboard({{CF_TEXT, Bytes("caf\xE9\r\n") + '\0'}});
  driver_.Press('V', {VK_CONTROL});
  EXPECT_EQ(box().Text(), u"caf\u00E9\none\ntwo\nthree");
}

TEST_F(RichEditBoxTransfer, PastesNothingWithoutText) {
  PutOnClipboard({{RtfFormat(), kRtf}});
  box().Select({0, 3});
  driver_.Press('V', {VK_CONTROL});
  driver_.Send(WM_PASTE);
  EXPECT_EQ(box().Text(), u"one\ntwo\nthree");
  EXPECT_EQ(box().Selection(), (TextSpan{0, 3}));
  EXPECT_FALSE(box().CanUndo());
}

TEST_F(RichEditBoxTransfer, CopiesWithTheLineBreaksOfTheSystem) {
  const std::array<std::function<void()>, 3> routes = {
      [&] { driver_.Press('C', {VK_CONTROL}); },
      [&] { driver_.Press(VK_INSERT, {VK_CONTROL}); },
      [&] { driver_.Send(WM_COPY); },
  };
  for (const auto& route : routes) {
    PutOnClipboard({});
    box().Select({2, 4});
    route();
    EXPECT_EQ(TextOnClipboard(), L"e\r\ntw");
    EXPECT_EQ(box().Text(), u"one\ntwo\nthree");
  }
}

TEST_F(RichEditBoxTransfer, CutsTheSelection) {
  const std::array<std::function<void()>, 3> routes = {
      [&] { driver_.Press('X', {VK_CONTROL}); },
      [&] { driver_.Press(VK_DELETE, {VK_SHIFT}); },
      [&] { driver_.Send(WM_CUT); },
  };
  for (const auto& route : routes) {
    PutOnClipboard({});
    box().Load(u"one\ntwo\nthree");
    box().Select({4, 4});
    route();
    EXPECT_EQ(TextOnClipboard(), L"two\r\n");
    EXPECT_EQ(box().Text(), u"one\nthree");
  }
}

TEST_F(RichEditBoxTransfer, LeavesTheClipboardAloneWithoutASelection) {
  PutOnClipboard({{CF_UNICODETEXT, BytesOf(L"kept")}});
  box().Select({2, 0});
  driver_.Press('X', {VK_CONTROL});
  driver_.Press('C', {VK_CONTROL});
  driver_.Send(WM_CUT);
  driver_.Send(WM_COPY);
  driver_.Send(WM_CLEAR);
  EXPECT_EQ(TextOnClipboard(), L"kept");
  EXPECT_EQ(box().Text(), u"one\ntwo\nthree");
  EXPECT_EQ(driver_.events.changed, 0);
}

TEST_F(RichEditBoxTransfer, CutsNothingWhileTheClipboardIsTaken) {
  PutOnClipboard({{CF_UNICODETEXT, BytesOf(L"kept")}});
  box().Select({0, 3});
  ASSERT_TRUE(OpenClipboard(driver_.window()));
  driver_.Press('X', {VK_CONTROL});
  CloseClipboard();
  EXPECT_EQ(box().Text(), u"one\ntwo\nthree");
  EXPECT_EQ(TextOnClipboard(), L"kept");
}

TEST_F(RichEditBoxTransfer, ClearsTheSelectionWithoutTheClipboard) {
  PutOnClipboard({{CF_UNICODETEXT, BytesOf(L"kept")}});
  box().Select({0, 4});
  driver_.Send(WM_CLEAR);
  EXPECT_EQ(box().Text(), u"two\nthree");
  EXPECT_EQ(TextOnClipboard(), L"kept");
}

// The menu

// Waits for a menu to open, notes its commands and answers it with a key, 0 for none.
class MenuUser {
 public:
  explicit MenuUser(HWND owner, int key) {
    current_ = this;
    owner_ = owner;
    key_ = key;
    timer_ = SetTimer(nullptr, 0, 10, Answer);
  }
  ~MenuUser() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
  }
  MenuUser(const MenuUser&) = delete;
  MenuUser& operator=(const MenuUser&) = delete;

  bool seen() const { return seen_; }
  bool IsEnabled(EditMenuCommand command) const {
    const auto found = enabled_.find(static_cast<UINT>(command));
    return found != enabled_.end() && found->second;
  }
  RECT place() const { return place_; }

 private:
  static void CALLBACK Answer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND window = FindWindowW(L"#32768", nullptr);
    if (current_ == nullptr || current_->seen_ || window == nullptr || !IsWindowVisible(window)) {
      return;
    }
    current_->Note(window);
  }

  void Note(HWND window) {
    constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
    const HMENU menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
      enabled_[GetMenuItemID(menu, i)] = (state & (MF_GRAYED | MF_DISABLED)) == 0;
    }
    GetWindowRect(window, &place_);
    seen_ = true;
    if (key_ == 0) {
      EndMenu();
    } else {
      PostMessageW(owner_, WM_CHAR, static_cast<WPARAM>(key_), 1);
    }
  }

  inline static MenuUser* current_ = nullptr;
  HWND owner_;
  int key_;
  UINT_PTR timer_;
  bool seen_ = false;
  std::map<UINT, bool> enabled_;
  RECT place_{};
};

TEST_F(RichEditBoxTransfer, TheMenuOffersWhatIsPossible) {
  PutOnClipboard({});
  box().Load(u"");
  {
    const MenuUser user(driver_.control(), 0);
    driver_.Send(WM_RBUTTONUP, 0, MAKELPARAM(20, 20));
    ASSERT_TRUE(user.seen());
    for (int command = 1; command <= static_cast<int>(EditMenuCommand::kSelectAll); ++command) {
      EXPECT_FALSE(user.IsEnabled(static_cast<EditMenuCommand>(command))) << command;
    }
  }
  PutOnClipboard({{CF_UNICODETEXT, BytesOf(L"text")}});
  box().ReplaceSelection(u"word");
  box().Select({0, 2});
  {
    const MenuUser user(driver_.control(), 0);
    driver_.Send(WM_RBUTTONUP, 0, MAKELPARAM(20, 20));
    ASSERT_TRUE(user.seen());
    for (int command = 1; command <= static_cast<int>(EditMenuCommand::kSelectAll); ++command) {
      EXPECT_TRUE(user.IsEnabled(static_cast<EditMenuCommand>(command))) << command;
    }
  }
  EXPECT_EQ(box().Text(), u"word");
}

TEST_F(RichEditBoxTransfer, TheMenuDoesWhatIsChosen) {
  PutOnClipboard({{CF_UNICODETEXT, BytesOf(L"pasted")}});
  const struct {
    int key;
    std::u16string text;
    TextSpan selection;
  } rows[] = {
      {'p', u"pasted\ntwo\nthree", {6, 0}}, {'d', u"\ntwo\nthree", {0, 0}},
      {'a', u"one\ntwo\nthree", {0, 13}},   {'c', u"one\ntwo\nthree", {0, 3}},
      {'t', u"\ntwo\nthree", {0, 0}},
  };
  for (const auto& row : rows) {
    box().Load(u"one\ntwo\nthree");
    box().Select({0, 3});
    driver_.events = {};
    const MenuUser user(driver_.control(), row.key);
    driver_.Send(WM_RBUTTONUP, 0, MAKELPARAM(20, 20));
    EXPECT_TRUE(user.seen());
    EXPECT_EQ(box().Text(), row.text) << row.key;
    EXPECT_EQ(box().Selection(), row.selection) << row.key;
    EXPECT_GE(driver_.events.keyOrMouseDone, 1);
  }
  EXPECT_EQ(TextOnClipboard(), L"one");
  box().ReplaceSelection(u"x");
  const MenuUser user(driver_.control(), 'u');
  driver_.Send(WM_RBUTTONUP, 0, MAKELPARAM(20, 20));
  EXPECT_EQ(box().Text(), u"\ntwo\nthree");
}

TEST_F(RichEditBoxTransfer, TheMenuKeyOpensTheMenuAtTheCaret) {
  box().Select({box().Length(), 0});
  POINTL caret{};
  driver_.Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&caret), box().Length());
  POINT expected{caret.x, caret.y};
  ClientToScreen(driver_.control(), &expected);
  for (const bool menuKey : {true, false}) {
    const MenuUser user(driver_.control(), 0);
    if (menuKey) {
      driver_.Press(VK_APPS);
    } else {
      driver_.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(driver_.control()), -1);
    }
    ASSERT_TRUE(user.seen());
    EXPECT_NEAR(user.place().left, expected.x, 3);
    EXPECT_NEAR(user.place().top, expected.y, 3);
  }
}

// Drops

// The interfaces of OLE end objects by Release and have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// What a program offers while it drags.
class Offer final : public IDataObject {
 public:
  explicit Offer(std::map<UINT, Bytes> contents) : contents_(std::move(contents)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
    const auto found = contents_.find(format->cfFormat);
    if (found == contents_.end()) return DV_E_FORMATETC;
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = MemoryWith(found->second);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
    return contents_.contains(format->cfFormat) ? S_OK : DV_E_FORMATETC;
  }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }

 private:
  std::map<UINT, Bytes> contents_;
};

#pragma GCC diagnostic pop

Bytes FileListOf(std::wstring_view names) {
  DROPFILES header{};
  header.pFiles = sizeof header;
  header.fWide = TRUE;
  return Bytes(reinterpret_cast<const char*>(&header), sizeof header) + BytesOf(names) +
         Bytes(2, '\0');
}

class EditDropTargetTest : public testing::Test {
 protected:
  EditDropTargetTest() {
    EditDropTarget::Receiver receiver;
    receiver.text = [this](POINT where, const std::u16string& text) {
      where_ = where;
      text_ = text;
    };
    receiver.files = [this](std::vector<std::u16string> paths) { files_ = std::move(paths); };
    target_ = new EditDropTarget(std::move(receiver));
  }
  ~EditDropTargetTest() override { target_->Release(); }

  // Over the box and let go; gives the effect that was shown before.
  DWORD Drop(std::map<UINT, Bytes> contents, DWORD allowed = DROPEFFECT_COPY) {
    Offer offer(std::move(contents));
    DWORD shown = allowed;
    EXPECT_EQ(target_->DragEnter(&offer, MK_LBUTTON, {30, 40}, &shown), S_OK);
    DWORD over = allowed;
    EXPECT_EQ(target_->DragOver(MK_LBUTTON, {30, 40}, &over), S_OK);
    EXPECT_EQ(over, shown);
    DWORD done = allowed;
    EXPECT_EQ(target_->Drop(&offer, MK_LBUTTON, {30, 40}, &done), S_OK);
    EXPECT_EQ(done, shown);
    return shown;
  }

  EditDropTarget* target_;
  std::optional<std::u16string> text_;
  std::vector<std::u16string> files_;
  POINT where_{};
};

TEST_F(EditDropTargetTest, TakesText) {
  EXPECT_EQ(Drop({{CF_UNICODETEXT, BytesOf(L" FIRE\r\n")}, {CF_TEXT, "no"}}),
            static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(text_, u" FIRE\n");
  EXPECT_EQ(where_.x, 30);
  EXPECT_EQ(where_.y, 40);
}

TEST_F(EditDropTargetTest, TakesTextOfTheCodePageThatEndsWithItsMemory) {
  EXPECT_EQ(Drop({{CF_TEXT, Bytes("caf\xE9")}}), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(text_->substr(0, 4), u"caf\u00E9");
}

TEST_F(EditDropTargetTest, GivesFilesToTheWindow) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Drop({{CF_HDROP, FileListOf(L"C:\\a b.tmj\0C:\\\u4E2D.tmm"sv)},
                  {CF_UNICODETEXT, BytesOf(L"C:\\a b.tmj")}}),
            static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(files_, (std::vector<std::u16string>{u"C:\\a b.tmj", u"C:\\\u4E2D.tmm"}));
  EXPECT_FALSE(text_.has_value());
}

TEST_F(EditDropTargetTest, RefusesEverythingElse) {
  EXPECT_EQ(Drop({{RtfFormat(), kRtf}, {CF_BITMAP, "picture"}}),
            static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_FALSE(text_.has_value());
}

TEST_F(EditDropTargetTest, CopiesUnlessTheSourceOnlyMoves) {
  const std::map<UINT, Bytes> text = {{CF_UNICODETEXT, BytesOf(L"x")}};
  EXPECT_EQ(Drop(text, DROPEFFECT_COPY | DROPEFFECT_MOVE), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(Drop(text, DROPEFFECT_MOVE), static_cast<DWORD>(DROPEFFECT_MOVE));
  text_.reset();
  EXPECT_EQ(Drop(text, DROPEFFECT_LINK), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_FALSE(text_.has_value());
}

TEST_F(EditDropTargetTest, TakesNothingAfterItsBoxIsGone) {
  target_->Disconnect();
  EXPECT_EQ(Drop({{CF_UNICODETEXT, BytesOf(L"x")}}), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_FALSE(text_.has_value());
}

// Drags with the mouse of the screen: presses where it is, goes to a place, lets go.
class MouseDrag {
 public:
  explicit MouseDrag(POINT to) {
    current_ = this;
    to_ = to;
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    RealEditBoxDriver::Pump();
    timer_ = SetTimer(nullptr, 0, 20, Step);
  }
  ~MouseDrag() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
    RealEditBoxDriver::Pump();
  }
  MouseDrag(const MouseDrag&) = delete;
  MouseDrag& operator=(const MouseDrag&) = delete;

 private:
  static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) {
    const int step = current_->steps_++;
    if (step < 3) {
      SetCursorPos(current_->to_.x + step - 2, current_->to_.y);
    } else {
      mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    }
  }

  inline static MouseDrag* current_ = nullptr;
  POINT to_;
  UINT_PTR timer_ = 0;
  int steps_ = 0;
};

TEST_F(RichEditBoxTransfer, InsertsDroppedTextWhereItFalls) {
  RealEditBoxDriver::Pump();
  POINTL character{};
  driver_.Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&character), 6);
  POINT to{character.x + 2, character.y + 6};
  ClientToScreen(driver_.control(), &to);
  RECT window{};
  GetWindowRect(driver_.window(), &window);
  SetCursorPos(window.right - 20, window.bottom - 20);
  RealEditBoxDriver::Pump();
  driver_.FocusElsewhere();
  driver_.events = {};
  {
    const MouseDrag drag(to);
    EXPECT_TRUE(DragText(u" FIRE "));
  }
  EXPECT_EQ(box().Text(), u"one\ntw FIRE o\nthree");
  EXPECT_EQ(box().Selection(), (TextSpan{12, 0}));
  EXPECT_TRUE(driver_.IsFocused());
  EXPECT_EQ(driver_.events.changed, 1);
  EXPECT_GE(driver_.events.keyOrMouseDone, 1);
  box().Undo();
  EXPECT_EQ(box().Text(), u"one\ntwo\nthree");
}

}  // namespace
}  // namespace deck
