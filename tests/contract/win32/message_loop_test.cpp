#include "platform/win32/message_loop.h"

#include <atomic>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/win32/handles.h"

namespace deck {
namespace {

constexpr WORD kShortcut = 77;

// A window with a field in it, and beside it a dialog with two fields.
class MessageLoopTest : public testing::Test {
 protected:
  MessageLoopTest() {
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    loop_.SetShortcuts(window_.Get(), shortcuts_.Get());
  }

  static HWND MakeWindow() {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"DeckMessageLoopTest";
    RegisterClassW(&description);
    return CreateWindowExW(0, description.lpszClassName, L"", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                           nullptr, nullptr, description.hInstance, nullptr);
  }

  static HWND MakeDialog(HWND owner) {
    return CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"", WS_POPUP, 0, 0, 200, 100, owner,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
  }

  static HACCEL MakeShortcuts() {
    ACCEL shortcut{FVIRTKEY, VK_F5, kShortcut};
    return CreateAcceleratorTableW(&shortcut, 1);
  }

  static HWND MakeField(HWND parent) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20,
                           parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  }

  void Press(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    loop_.Pump();
  }

  std::vector<int> commands_;
  std::function<void()> onSent_;
  const WindowHandle window_{MakeWindow()};
  const HWND field_ = MakeField(window_.Get());
  const WindowHandle dialog_{MakeDialog(window_.Get())};
  const HWND first_ = MakeField(dialog_.Get());
  const HWND second_ = MakeField(dialog_.Get());
  const AcceleratorsHandle shortcuts_{MakeShortcuts()};
  MessageLoop loop_;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const test = reinterpret_cast<MessageLoopTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (test != nullptr && message == WM_COMMAND && HIWORD(wParam) == 1) {
      test->commands_.push_back(LOWORD(wParam));
      return 0;
    }
    if (test != nullptr && message == WM_USER && test->onSent_) test->onSent_();
    return DefWindowProcW(window, message, wParam, lParam);
  }
};

TEST_F(MessageLoopTest, TurnsAShortcutIntoItsCommand) {
  Press(window_.Get(), VK_F5);
  Press(field_, VK_F5);
  EXPECT_EQ(commands_, (std::vector<int>{kShortcut, kShortcut}));
}

TEST_F(MessageLoopTest, KnowsNoShortcutsInOtherWindows) {
  Press(first_, VK_F5);
  EXPECT_TRUE(commands_.empty());
}

TEST_F(MessageLoopTest, TypesCharacters) {
  SetFocus(field_);
  Press(field_, 'A');
  EXPECT_EQ(GetWindowTextLengthW(field_), 1);
}

TEST_F(MessageLoopTest, MovesTheFocusInADialogThatWasAdded) {
  SetFocus(first_);
  Press(first_, VK_TAB);
  EXPECT_EQ(GetFocus(), first_);
  loop_.AddDialog(dialog_.Get());
  Press(first_, VK_TAB);
  EXPECT_EQ(GetFocus(), second_);
}

TEST_F(MessageLoopTest, ForgetsADialogThatWasRemoved) {
  loop_.AddDialog(dialog_.Get());
  loop_.RemoveDialog(dialog_.Get());
  SetFocus(first_);
  Press(first_, VK_TAB);
  EXPECT_EQ(GetFocus(), first_);
}

TEST_F(MessageLoopTest, AsksItsFiltersFirst) {
  loop_.AddFilter([](MSG& message) { return message.message == WM_KEYDOWN; });
  Press(field_, VK_F5);
  EXPECT_TRUE(commands_.empty());
}

TEST_F(MessageLoopTest, AFilterThatFailsHasTakenItsMessageAndTheLoopGoesOn) {
  bool fails = true;
  loop_.AddFilter([&fails](MSG& message) {
    if (fails && message.message == WM_KEYDOWN) throw std::bad_alloc();
    return false;
  });
  Press(field_, VK_F5);
  EXPECT_TRUE(commands_.empty());
  fails = false;
  Press(field_, VK_F5);
  EXPECT_EQ(commands_, std::vector<int>{kShortcut});
}

TEST_F(MessageLoopTest, LeavesAnOrderToQuitForTheMainLoop) {
  constexpr int kLost = 99;
  loop_.AddFilter([](MSG& message) {
    if (message.message == WM_TIMER) PostQuitMessage(kLost);
    return false;
  });
  PostQuitMessage(5);
  loop_.Pump();
  loop_.Pump();
  SetTimer(window_.Get(), 1, 3'000, nullptr);
  EXPECT_EQ(loop_.Run(), 5);
}

TEST_F(MessageLoopTest, PumpsTimersWhileAnOrderToQuitWaits) {
  int ticks = 0;
  loop_.AddFilter([&ticks](MSG& message) {
    ticks += message.message == WM_TIMER;
    return false;
  });
  PostQuitMessage(0);
  SetTimer(window_.Get(), 1, 10, nullptr);
  const ULONGLONG start = GetTickCount64();
  while (ticks == 0 && GetTickCount64() - start < 10'000) loop_.Pump();
  EXPECT_GT(ticks, 0);
  KillTimer(window_.Get(), 1);
  MSG quit{};
  EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(MessageLoopTest, SaysThatItWaitsToWhatArrivesBetweenTheMessagesOfRunOnly) {
  std::vector<bool> waiting;
  onSent_ = [&] {
    waiting.push_back(loop_.IsWaiting());
    if (waiting.size() == 1) PostMessageW(window_.Get(), WM_APP, 0, 0);
  };
  std::atomic<bool> inCommand = false;
  loop_.AddFilter([&](MSG& message) {
    if (message.message != WM_APP) return false;
    inCommand = true;
    while (waiting.size() < 2) loop_.Pump();
    PostQuitMessage(0);
    return true;
  });
  EXPECT_FALSE(loop_.IsWaiting());
  std::thread other([&] {
    SendMessageW(window_.Get(), WM_USER, 0, 0);
    while (!inCommand) Sleep(1);
    SendMessageW(window_.Get(), WM_USER, 0, 0);
  });
  loop_.Run();
  other.join();
  EXPECT_EQ(waiting, (std::vector<bool>{true, false}));
}

TEST_F(MessageLoopTest, WaitsBrieflyWhenNothingIsPending) {
  loop_.Pump();
  const ULONGLONG start = GetTickCount64();
  for (int i = 0; i < 20; ++i) loop_.Pump();
  EXPECT_GE(GetTickCount64() - start, 100U);
}

}  // namespace
}  // namespace deck
