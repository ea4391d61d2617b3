// Expected failures as values. What may fail for reasons outside the program returns a Result, made
// by `return value;` or `return Problem{words for the user};`, which is why neither is explicit.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace deck {

struct Problem {
  // A sentence for the user, in the words of the system where it has some ("Access is denied.").
  std::u16string reason;
};

template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::move(value)) {}            // NOLINT(google-explicit-constructor)
  Result(Problem problem) : state_(std::move(problem)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return state_.index() == 0; }
  T& operator*() { return std::get<0>(state_); }
  const T& operator*() const { return std::get<0>(state_); }
  T* operator->() { return &std::get<0>(state_); }
  const T* operator->() const { return &std::get<0>(state_); }
  const Problem& problem() const { return std::get<1>(state_); }

 private:
  std::variant<T, Problem> state_;
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Problem problem) : problem_(std::move(problem)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return !problem_.has_value(); }
  const Problem& problem() const { return *problem_; }

 private:
  std::optional<Problem> problem_;
};

}  // namespace deck
