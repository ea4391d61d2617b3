// How long the program waits for the outside compiler and how often it looks, as the host's
// preference file says. Read once at start-up; held by compiler/run_and_wait.
#pragma once

#include <cstdint>
#include <string>

#include "platform/profile_files.h"

namespace deck {

struct WaitSettings {
  // Milliseconds, counted in poll intervals. Less than one interval gives up at the first tick.
  std::int32_t WaitLimit = 45000;
  // Milliseconds. 0 or less never ticks, and the wait has no limit.
  std::int32_t PollInterval = 1000;

  friend bool operator==(const WaitSettings&, const WaitSettings&) = default;
};

// A value that is missing, empty, no whole number or too large for 32 bits is the default.
WaitSettings ReadWaitSettings(const ProfileFiles& profiles, const std::u16string& hostPath);

}  // namespace deck
