#include <windows.h>

#include <commctrl.h>

#include <array>

#include "find/win32/find_and_replace_window.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "tests/contract/find_dialog/find_dialog_world.h"
#include "tests/contract/win32/box_driver.h"

namespace deck {
namespace {

HWND MakeOwner() {
  return CreateWindowExW(0, WC_STATICW, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 700,
                         500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

// Which icon a box shows tells its style.
BoxStyle StyleOf(HWND box) {
  const HWND icon = FindWindowExW(box, nullptr, WC_STATICW, nullptr);
  const auto shown = reinterpret_cast<HICON>(SendMessageW(icon, STM_GETICON, 0, 0));
  return shown == LoadIconW(nullptr, IDI_EXCLAMATION) ? BoxStyle::kExclamation
                                                      : BoxStyle::kInformation;
}

class RealFindDialogWorld : public FindDialogWorld {
 public:
  RealFindDialogWorld() {
    loop_.AddFilter([this](MSG& message) { return view_.TakeKey(message); });
    SetCursorPos(0, 0);
    ExpectBox();
  }

  FindDialogView& View() override { return view_; }

  void Type(FindControl field, const std::u16string& text) override {
    if (!CanBeUsed(field)) return;
    view_.Focus(field);
    const HWND edit = GetFocus();
    SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) PostMessageW(edit, WM_KEYDOWN, VK_DELETE, 0);
    for (const char16_t character : text) PostMessageW(edit, WM_CHAR, character, 1);
    loop_.Pump();
  }
  void Pick(FindControl combo, int entry) override {
    if (!CanBeUsed(combo)) return;
    const HWND control = view_.Control(combo);
    SendMessageW(control, CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(control, &info);
    RECT item{};
    SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(&item));
    ClickAt(info.hwndList, {item.left + 3, item.top + 3});
  }
  void Click(FindControl control) override {
    // The one that is never seen is pressed by number.
    if (control == FindControl::kCommand9) {
      PostMessageW(view_.Control(control), BM_CLICK, 0, 0);
      loop_.Pump();
    } else if (CanBeUsed(control)) {
      ClickAt(view_.Control(control), {5, 5});
    }
  }
  void Choose(FindPage page) override {
    RECT tab{};
    SendMessageW(Tabs(), TCM_GETITEMRECT, static_cast<WPARAM>(page),
                 reinterpret_cast<LPARAM>(&tab));
    ClickAt(Tabs(), {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
  }
  void PressEnter() override { Press(VK_RETURN); }
  void PressEscape() override { Press(VK_ESCAPE); }
  void PressFindAgain() override { Press(VK_F3); }
  void MoveMouse() override {
    ++pointer_;
    PostMessageW(view_.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(pointer_, 3));
    loop_.Pump();
    PostMessageW(Tabs(), WM_MOUSEMOVE, 0, MAKELPARAM(pointer_, 50));
    loop_.Pump();
  }

  FindPage Page() const override {
    return static_cast<FindPage>(SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0));
  }
  bool IsMinimised() const override {
    return view_.Handle() != nullptr && IsIconic(view_.Handle());
  }
  bool IsEnabled(FindControl button) const override {
    return IsWindowEnabled(view_.Control(button)) != 0;
  }
  FindControl FocusedControl() const override {
    HWND window = GetFocus();
    while (window != nullptr && GetParent(window) != view_.Handle()) window = GetParent(window);
    return static_cast<FindControl>(GetDlgCtrlID(window));
  }
  std::vector<std::u16string> List(FindControl combo) const override {
    std::vector<std::u16string> list;
    const HWND control = view_.Control(combo);
    const LRESULT count = SendMessageW(control, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry) {
      std::array<wchar_t, 100> text{};
      SendMessageW(control, CB_GETLBTEXT, static_cast<WPARAM>(entry),
                   reinterpret_cast<LPARAM>(text.data()));
      const std::wstring_view shown(text.data());
      list.emplace_back(shown.begin(), shown.end());
    }
    return list;
  }
  const std::vector<Message>& Boxes() const override { return boxes_; }

 private:
  HWND Tabs() const { return view_.Control(FindControl::kSSTab1); }
  bool CanBeUsed(FindControl control) const {
    const HWND window = view_.Control(control);
    return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window);
  }
  void ClickAt(HWND window, POINT where) {
    const LPARAM point = MAKELPARAM(where.x, where.y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(window, WM_LBUTTONUP, 0, point);
    loop_.Pump();
  }
  void Press(WPARAM key) {
    PostMessageW(GetFocus() != nullptr ? GetFocus() : view_.Handle(), WM_KEYDOWN, key, 0);
    loop_.Pump();
  }
  void ExpectBox() {
    driver_.WhenOpen([this](HWND box) {
      constexpr int kTextOfBox = 0xFFFF;
      boxes_.push_back({TextOf(GetDlgItem(box, kTextOfBox)), TextOf(box), StyleOf(box)});
      ExpectBox();
      PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
  }

  BoxDriver driver_;
  std::vector<Message> boxes_;
  MessageLoop loop_;
  WindowHandle owner_{MakeOwner()};
  FindAndReplaceWindow view_{owner_.Get(), loop_};
  int pointer_ = 0;
};

}  // namespace

std::unique_ptr<FindDialogWorld> MakeFindDialogWorld() {
  return std::make_unique<RealFindDialogWorld>();
}

}  // namespace deck
