// A system as plain values.
#pragma once

#include <optional>

#include "platform/system_info.h"

namespace deck {

class FakeSystemInfo : public SystemInfo {
 public:
  std::optional<SystemVersion> Version() const override { return version; }

  std::optional<SystemVersion> version = SystemVersion{kNtPlatform, 6, 2};
};

}  // namespace deck
