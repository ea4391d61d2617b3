// Work that must not hold up typing, done one piece after the other in the order it was given.
// The program has one thread for everything else; what is done here may only use values of its own
// and the file system.
#pragma once

#include <functional>

namespace deck {

class BackgroundWork {
 public:
  virtual ~BackgroundWork() = default;
  // Returns at once. `work` must not throw.
  virtual void Start(std::function<void()> work) = 0;
  // Returns when everything that was started is done.
  virtual void Finish() = 0;
};

}  // namespace deck
