#include "compiler/poll.h"

namespace deck {

PollState AfterTick(PollState state, std::u16string_view status, const WaitSettings& settings) {
  if (!status.empty()) {
    state.outcome = PollOutcome::kReported;
    return state;
  }
  // Limit and interval may both be as large as 32 bits allow.
  const std::int64_t elapsed = std::int64_t{state.elapsed} + settings.PollInterval;
  if (elapsed > settings.WaitLimit) return {.outcome = PollOutcome::kTimedOut, .elapsed = 0};
  state.elapsed = static_cast<std::int32_t>(elapsed);
  return state;
}

}  // namespace deck
