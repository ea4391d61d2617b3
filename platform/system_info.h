// What the program asks about the system it runs on.
#pragma once

#include <optional>

namespace deck {

inline constexpr unsigned kNtPlatform = 2;

struct SystemVersion {
  unsigned platform = kNtPlatform;
  unsigned major = 0;
  unsigned minor = 0;
};

class SystemInfo {
 public:
  virtual ~SystemInfo() = default;
  // Nothing when the query fails.
  virtual std::optional<SystemVersion> Version() const = 0;
};

}  // namespace deck
