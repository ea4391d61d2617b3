// The version of the system as it reports it to this program. Systems newer than those that the
// manifest names report the newest one named there.
#pragma once

#include "platform/system_info.h"

namespace deck {

class Win32SystemInfo : public SystemInfo {
 public:
  std::optional<SystemVersion> Version() const override;
};

}  // namespace deck
