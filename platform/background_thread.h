// The thread behind BackgroundWork. It is made with the first piece of work: most programs that are
// started and looked at need none. Owned by the program's entry; ends after its last piece of work.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/background_work.h"

namespace deck {

class BackgroundThread : public BackgroundWork {
 public:
  BackgroundThread() = default;
  ~BackgroundThread() override;
  BackgroundThread(const BackgroundThread&) = delete;
  BackgroundThread& operator=(const BackgroundThread&) = delete;

  void Start(std::function<void()> work) override;
  void Finish() override;

 private:
  void Run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> waiting_;
  bool working_ = false;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace deck
