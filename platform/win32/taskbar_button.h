// The sign of work on a window's button in the taskbar. Owned by the main window.
#pragma once

#include <windows.h>

#include <shobjidl.h>

#include "platform/main_window_view.h"

namespace deck {

class TaskbarButton {
 public:
  // The thread needs COM. Systems older than Windows 7 and shells without such buttons show
  // nothing, and nothing is said about it.
  explicit TaskbarButton(HWND window);
  ~TaskbarButton();
  TaskbarButton(const TaskbarButton&) = delete;
  TaskbarButton& operator=(const TaskbarButton&) = delete;

  void Show(WorkState state);
  // For every message of the window: a taskbar that began anew has forgotten the sign.
  void OnMessage(UINT message);

 private:
  ITaskbarList3* Taskbar();

  HWND window_;
  UINT buttonCreated_;
  ITaskbarList3* taskbar_ = nullptr;
  bool lookedFor_ = false;
  WorkState shown_ = WorkState::kNone;
};

}  // namespace deck
