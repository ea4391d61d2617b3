// How a message finds its window: the one rule that the main loop and every pump share. One object
// for the thread, owned by the program's entry; windows sign their dialogs on and off.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace deck {

class MessageLoop {
 public:
  // True when the message is dealt with.
  using Filter = std::function<bool(MSG&)>;

  // Sees every message first. What it throws ends with it, and the message is dealt with.
  void AddFilter(Filter filter) { filters_.push_back(std::move(filter)); }
  // A modeless dialog: Tab, Return, Escape and mnemonics work in it until it is removed.
  void AddDialog(HWND dialog) { dialogs_.push_back(dialog); }
  void RemoveDialog(HWND dialog) { std::erase(dialogs_, dialog); }
  // The shortcuts work while the window or a part of it has the focus. The table is not owned.
  void SetShortcuts(HWND window, HACCEL table);

  // Filters, then modeless dialogs, then shortcuts, then the window itself.
  void Dispatch(MSG& message);
  // Runs until the thread is told to quit; gives the exit code.
  int Run();
  // Run waits for the next message: the thread is in no command, box, menu or pump.
  bool IsWaiting() const { return waiting_; }
  // Dispatches what is pending and returns. With nothing pending it waits a moment for more, so
  // that a command that pumps in a loop leaves the processor to others. An order to quit is left
  // for Run.
  void Pump();

 private:
  bool Wait(MSG& message);
  bool TranslateShortcut(MSG& message) const;

  std::vector<Filter> filters_;
  std::vector<HWND> dialogs_;
  HWND shortcutWindow_ = nullptr;
  HACCEL shortcuts_ = nullptr;
  bool waiting_ = false;
};

}  // namespace deck
