#include "platform/win32/win32_system_info.h"

#include <windows.h>

namespace deck {

std::optional<SystemVersion> Win32SystemInfo::Version() const {
  OSVERSIONINFOA version{};
  static_assert(sizeof version == 148);
  version.dwOSVersionInfoSize = sizeof version;
  // Deprecated for telling newer systems apart; that it answers as to an older program is what is
  // wanted here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  if (!GetVersionExA(&version)) return std::nullopt;
#pragma GCC diagnostic pop
  return SystemVersion{version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion};
}

}  // namespace deck
