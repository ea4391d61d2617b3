// Which help file the program shows: the compiled help on one family of systems, the older format
// everywhere else and wherever the host's preferences ask for it.
#pragma once

#include <optional>
#include <string>

#include "platform/settings.h"
#include "platform/system_info.h"

namespace deck {

struct HelpFile {
  bool UseHlpFile = true;  // the older format
  std::u16string path;

  friend bool operator==(const HelpFile&, const HelpFile&) = default;
};

// `version` is empty when the system did not tell.
HelpFile ChooseHelpFile(const Settings& settings, const std::optional<SystemVersion>& version);

}  // namespace deck
