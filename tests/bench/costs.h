// Times of single actions under Windows, in milliseconds.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "tests/contract/win32/clocks.h"

namespace deck {

inline double CostOf(const std::function<void()>& action) {
  const double start = Milliseconds();
  action();
  return Milliseconds() - start;
}

// What one action cost in each round. The machine may be busy with something else in some of them.
class Costs {
 public:
  void Add(double milliseconds) {
    costs_.insert(std::ranges::lower_bound(costs_, milliseconds), milliseconds);
  }
  double Least() const { return costs_.front(); }
  double Median() const { return costs_[costs_.size() / 2]; }

 private:
  std::vector<double> costs_;  // in order of size
};

}  // namespace deck
