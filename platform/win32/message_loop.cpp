#include "platform/win32/message_loop.h"

#include <algorithm>
#include <optional>

#include "platform/scope_value.h"
#include "platform/win32/procedure_border.h"

namespace deck {
namespace {

constexpr DWORD kIdleWait = 10;  // milliseconds

// A filter may run a whole command, as keys of dialogs do. One that fails half-way has taken the
// message: nothing behind it would know what was done.
bool Takes(const MessageLoop::Filter& filter, MSG& message) {
  bool isLeft = false;
  InProcedure([&] {
    isLeft = !filter(message);
    return LRESULT{0};
  });
  return !isLeft;
}

}  // namespace

void MessageLoop::SetShortcuts(HWND window, HACCEL table) {
  shortcutWindow_ = window;
  shortcuts_ = table;
}

void MessageLoop::Dispatch(MSG& message) {
  if (std::any_of(filters_.begin(), filters_.end(),
                  [&message](const Filter& filter) { return Takes(filter, message); })) {
    return;
  }
  // A dialog that takes the message may sign itself off meanwhile; nothing is looked at after that.
  for (const HWND dialog : dialogs_)
    if (IsDialogMessageW(dialog, &message)) return;
  if (TranslateShortcut(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int MessageLoop::Run() {
  MSG message{};
  while (Wait(message)) Dispatch(message);
  return static_cast<int>(message.wParam);
}

// False for an order to quit.
bool MessageLoop::Wait(MSG& message) {
  const ScopeValue waiting(waiting_, true);
  return GetMessageW(&message, nullptr, 0, 0) > 0;
}

void MessageLoop::Pump() {
  // Timers come behind an order to quit: it is kept out of the queue until all else is dispatched.
  std::optional<int> exitCode;
  bool idle = true;
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    idle = false;
    if (message.message == WM_QUIT) {
      exitCode = static_cast<int>(message.wParam);
    } else {
      Dispatch(message);
    }
  }
  if (idle) MsgWaitForMultipleObjects(0, nullptr, FALSE, kIdleWait, QS_ALLINPUT);
  if (exitCode) PostQuitMessage(*exitCode);
}

bool MessageLoop::TranslateShortcut(MSG& message) const {
  if (shortcuts_ == nullptr) return false;
  if (message.hwnd != shortcutWindow_ && !IsChild(shortcutWindow_, message.hwnd)) return false;
  return TranslateAcceleratorW(shortcutWindow_, shortcuts_, &message) != 0;
}

}  // namespace deck
