// What the taskbar button and the pointer say about the compiler: that it works, and, when its
// answer is bad news that nobody was there to see, that something failed. Owned by
// compiler/run_and_report.
#pragma once

#include "platform/main_window_view.h"

namespace deck {

class WorkIndicator {
 public:
  explicit WorkIndicator(MainWindowView& window) : window_(window) {}

  // The compiler is waited for; again for a run that takes an older one's place.
  void Begin() { Show(WorkState::kWorking); }
  // It is no longer waited for.
  void End() { Show(WorkState::kNone); }
  // The result is bad. A user who looks at the program needs no sign.
  void Fail() { Show(lookedAt_ ? WorkState::kNone : WorkState::kFailed); }

  // The program has come to the foreground or has left it.
  void OnLookedAt(bool lookedAt) {
    lookedAt_ = lookedAt;
    if (lookedAt && shown_ == WorkState::kFailed) End();
  }

 private:
  void Show(WorkState state) {
    shown_ = state;
    window_.ShowWork(state);
  }

  MainWindowView& window_;
  WorkState shown_ = WorkState::kNone;
  bool lookedAt_ = false;
};

}  // namespace deck
