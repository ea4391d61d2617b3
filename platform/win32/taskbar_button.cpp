#include "platform/win32/taskbar_button.h"

namespace deck {

TaskbarButton::TaskbarButton(HWND window)
    : window_(window), buttonCreated_(RegisterWindowMessageW(L"TaskbarButtonCreated")) {}

TaskbarButton::~TaskbarButton() {
  if (taskbar_ != nullptr) taskbar_->Release();
}

ITaskbarList3* TaskbarButton::Taskbar() {
  if (lookedFor_) return taskbar_;
  lookedFor_ = true;
  void* made = nullptr;
  if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                              &made))) {
    return nullptr;
  }
  taskbar_ = static_cast<ITaskbarList3*>(made);
  if (FAILED(taskbar_->HrInit())) {
    taskbar_->Release();
    taskbar_ = nullptr;
  }
  return taskbar_;
}

void TaskbarButton::Show(WorkState state) {
  shown_ = state;
  ITaskbarList3* const taskbar = Taskbar();
  if (taskbar == nullptr) return;
  switch (state) {
    case WorkState::kNone:
      taskbar->SetProgressState(window_, TBPF_NOPROGRESS);
      break;
    case WorkState::kWorking:
      taskbar->SetProgressState(window_, TBPF_INDETERMINATE);
      break;
    case WorkState::kFailed:
      taskbar->SetProgressState(window_, TBPF_ERROR);
      // The colour fills as much of the button as there is progress.
      taskbar->SetProgressValue(window_, 1, 1);
      break;
  }
}

void TaskbarButton::OnMessage(UINT message) {
  if (message == buttonCreated_ && shown_ != WorkState::kNone) Show(shown_);
}

}  // namespace deck
