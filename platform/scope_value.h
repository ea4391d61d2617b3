// A value that holds for the length of a scope: suppressions and busy flags must come back to what
// they were on every way out, also when the same command runs inside itself.
#pragma once

#include <utility>

namespace deck {

template <class T>
class [[nodiscard]] ScopeValue {
 public:
  ScopeValue(T& target, T value) : target_(target), previous_(std::exchange(target, value)) {}
  ~ScopeValue() { target_ = previous_; }
  ScopeValue(const ScopeValue&) = delete;
  ScopeValue& operator=(const ScopeValue&) = delete;

 private:
  T& target_;
  T previous_;
};

}  // namespace deck
