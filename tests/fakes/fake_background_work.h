// Does its work at once, or when the test says so.
#pragma once

#include <deque>
#include <functional>
#include <utility>

#include "platform/background_work.h"

namespace deck {

class FakeBackgroundWork : public BackgroundWork {
 public:
  void Start(std::function<void()> work) override {
    waiting.push_back(std::move(work));
    if (!held) Finish();
  }
  void Finish() override {
    while (!waiting.empty()) {
      const std::function<void()> work = std::move(waiting.front());
      waiting.pop_front();
      work();
    }
  }

  bool held = false;  // from now on work waits for Finish
  std::deque<std::function<void()>> waiting;
};

}  // namespace deck
