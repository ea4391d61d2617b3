// The key tester's real window with its presenter, on a host folder in memory, driven by keys that
// go through the system's own input queue. Needs the keyboard: no other window may be in front.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "keytest/key_test_presenter.h"
#include "keytest/win32/key_test_form.h"
#include "platform/control_ids.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/win32_keyboard.h"
#include "tests/fakes/fake_clipboard.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {

class KeyTestWindowFixture : public testing::Test {
 protected:
  KeyTestWindowFixture() {
    settings.applicationFolder = u"C:\\Host";
    settings.HostPath = u"C:\\Host\\Wren.ini";
    settings.FilesFolder = u"C:\\Host\\Files\\";
    files.AddFile(u"C:\\Host\\KeyCodes.txt",
                  "9,TAB\r\n13,ENT\r\n27,ESC\r\n37,LARROW\r\n44,PRTSC\r\n93,APPS\r\n"
                  "112,F1\r\n115,F4\r\n116,F5\r\n121,F10\r\n");
    // Without clearing, so that a slow machine clears nothing in the middle of a test.
    SetSettings(u"ClearDelay=65535\r\n");
    presenter.links.readControllerMode = [this] { return report; };
    presenter.links.switchButtonsMode = [](bool) {};
  }
  ~KeyTestWindowFixture() override {
    for (const WORD key : held_) SendKey(key, true);
    Settle();
    presenter.Unload();
    Settle();
  }

  void SetSettings(const std::u16string& lines) {
    profiles.SetText(settings.HostPath, u"[Key Tester]\r\n" + lines);
  }
  // Shown, in front and with the keyboard.
  void Open() {
    presenter.Show();
    ASSERT_TRUE(WaitFor([this] { return GetFocus() == Names(); })) << "the keyboard is elsewhere";
    Settle();
  }

  HWND Control(ControlId id) const { return GetDlgItem(form.Handle(), static_cast<int>(id)); }
  HWND Events() const { return Control(ControlId::kRTFKeysText); }
  HWND Names() const { return Control(ControlId::kRTFKeysDownText); }
  std::u16string EventLines() const { return form.Text(KeyBox::kEvents); }
  std::u16string NameLines() const { return form.Text(KeyBox::kNames); }

  // Keys as the driver of the keyboard gives them to the system.
  void Down(WORD key, bool extended = false) {
    held_.push_back(key);
    SendKey(key, false, extended);
  }
  void Up(WORD key, bool extended = false) {
    std::erase(held_, key);
    SendKey(key, true, extended);
  }
  // One after the other down, and up in the opposite order.
  void Press(std::initializer_list<WORD> keys) {
    for (const WORD key : keys) Down(key);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) Up(*key);
  }
  static void SendKey(WORD key, bool up, bool extended = false) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (extended ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof input);
  }

  // Runs what has come in until nothing comes for a while.
  void Settle() {
    for (int quiet = 0; quiet < 3; ++quiet) {
      MSG message{};
      if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) quiet = -1;
      loop.Pump();
    }
  }
  // Pumps until the condition holds; false after five seconds.
  template <class Condition>
  bool WaitFor(Condition condition) {
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
      if (GetTickCount64() - start > 5000) return false;
      loop.Pump();
    }
    return true;
  }

  MessageLoop loop;
  KeyTestForm form{loop};
  FakeFiles files;
  FakeProfileFiles profiles;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakeEventLoop events;
  Win32Keyboard keyboard;
  FakeClipboard clipboard;
  FakeCodePage codePage;
  Settings settings;
  ControllerReport report{u"OK", 1};
  KeyTestPresenter presenter{
      form, settings, {files, profiles, dialogs, prompts, events, keyboard, clipboard, codePage}};

 private:
  std::vector<WORD> held_;
};

}  // namespace deck
