#include <windows.h>

#include <dlgs.h>

#include <array>
#include <deque>
#include <utility>

#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_dialogs.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_keyboard.h"
#include "platform/win32/win32_prompts.h"
#include "tests/contract/win32/box_driver.h"
#include "tests/contract/win32/temporary_folder.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

HWND NoOwner() {
  return nullptr;
}

class RealEventLoopWorld : public EventLoopWorld {
 public:
  RealEventLoopWorld() {
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }

  EventLoop& Port() override { return events_; }
  void OnTimer(std::function<void(TimerId)> tick) override { tick_ = std::move(tick); }
  void Post(std::function<void()> action) override {
    actions_.push_back(std::move(action));
    PostMessageW(window_.Get(), WM_APP, 0, 0);
  }
  void Wait(int milliseconds) override { Sleep(static_cast<DWORD>(milliseconds)); }
  int Now() const override { return static_cast<int>(GetTickCount64() - start_); }

 private:
  // Without a place on the screen: it is there for its messages only.
  static HWND MakeWindow() {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"DeckEventLoopContract";
    RegisterClassW(&description);
    return CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                           description.hInstance, nullptr);
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const world =
        reinterpret_cast<RealEventLoopWorld*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (world != nullptr && message == WM_TIMER) {
      world->tick_(static_cast<TimerId>(wParam));
      return 0;
    }
    if (world != nullptr && message == WM_APP) {
      const std::function<void()> action = std::move(world->actions_.front());
      world->actions_.pop_front();
      action();
      return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  const ULONGLONG start_ = GetTickCount64();
  std::function<void(TimerId)> tick_ = [](TimerId) {};
  std::deque<std::function<void()>> actions_;
  const WindowHandle window_{MakeWindow()};
  MessageLoop loop_;
  Win32EventLoop events_{window_.Get(), loop_};
};

class RealKeyboardWorld : public KeyboardWorld {
 public:
  Keyboard& Port() override { return keyboard_; }
  void Switch(ToggleKey key, bool on) override {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[static_cast<std::size_t>(key)] = on ? 1 : 0;
    SetKeyboardState(keys.data());
  }

 private:
  Win32Keyboard keyboard_;
};

class RealPromptsWorld : public PromptsWorld {
 public:
  Prompts& Port() override { return prompts_; }
  void WillAnswer(Answer answer) override {
    driver_.WhenOpen([this, answer](HWND box) {
      constexpr int kTextId = 0xFFFF;
      seenText_ = TextOf(GetDlgItem(box, kTextId));
      seenTitle_ = TextOf(box);
      // In a box with OK alone that button has the number of Cancel.
      const int chosen = static_cast<int>(answer);
      const int button = GetDlgItem(box, chosen) != nullptr ? chosen : IDCANCEL;
      PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
  }
  std::u16string SeenText() const override { return seenText_; }
  std::u16string SeenTitle() const override { return seenTitle_; }

 private:
  BoxDriver driver_;
  Win32Prompts prompts_{NoOwner};
  std::u16string seenText_;
  std::u16string seenTitle_;
};

class RealFileDialogsWorld : public FileDialogsWorld {
 public:
  RealFileDialogsWorld() {
    for (const char16_t* name : {u"a.tmj", u"b.tmj"})
      if (!Win32Files().Create(folder_.In(name), "x")) std::abort();
  }

  FileDialogs& Port() override { return dialogs_; }
  std::u16string Folder() const override { return folder_.Path(); }
  void WillChoose(const std::vector<std::u16string>& names) override {
    std::u16string typed = names[0];
    if (names.size() > 1) {
      typed.clear();
      for (const std::u16string& name : names) typed += u"\"" + name + u"\" ";
    }
    driver_.WhenOpen([typed](HWND dialog) {
      HWND nameField = GetDlgItem(dialog, cmb13);
      if (nameField == nullptr) nameField = GetDlgItem(dialog, edt1);
      SetWindowTextW(nameField, Wide(typed));
      PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
  }
  void WillCancel() override {
    driver_.WhenOpen([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
  }

 private:
  TemporaryFolder folder_;
  BoxDriver driver_;
  Win32FileDialogs dialogs_{NoOwner};
};

}  // namespace

std::unique_ptr<EventLoopWorld> MakeEventLoopWorld() {
  return std::make_unique<RealEventLoopWorld>();
}
std::unique_ptr<KeyboardWorld> MakeKeyboardWorld() {
  return std::make_unique<RealKeyboardWorld>();
}
std::unique_ptr<PromptsWorld> MakePromptsWorld() {
  return std::make_unique<RealPromptsWorld>();
}
std::unique_ptr<FileDialogsWorld> MakeFileDialogsWorld() {
  return std::make_unique<RealFileDialogsWorld>();
}

}  // namespace deck
