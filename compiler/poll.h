// Waiting for another program's report in HOTAS.ini: the ticks of a timer are summed until the
// report is there or the sum passes the limit. Time is that of the ticks, not of a clock, so a late
// tick stretches it. One state per timer, held by the class that handles the timer.
#pragma once

#include <cstdint>
#include <string_view>

#include "compiler/wait_settings.h"

namespace deck {

enum class PollOutcome : std::int16_t { kWaiting = 0, kReported = 1, kTimedOut = 2 };

struct PollState {
  PollOutcome outcome = PollOutcome::kWaiting;
  std::int32_t elapsed = 0;  // milliseconds

  friend bool operator==(const PollState&, const PollState&) = default;
};

// The state after one more tick, which found `status` in the file.
PollState AfterTick(PollState state, std::u16string_view status, const WaitSettings& settings);

}  // namespace deck
