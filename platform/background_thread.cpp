#include "platform/background_thread.h"

#include <utility>

namespace deck {

BackgroundThread::~BackgroundThread() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundThread::Start(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(work));
  }
  if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
  changed_.notify_all();
}

void BackgroundThread::Finish() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty() && !working_; });
}

void BackgroundThread::Run() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    if (waiting_.empty()) return;
    const std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    working_ = true;
    lock.unlock();
    work();
    lock.lock();
    working_ = false;
    changed_.notify_all();
  }
}

}  // namespace deck
