#include "help/help_file.h"

namespace deck {
namespace {

// Only this major version counts; later ones report another and get the older help on purpose.
constexpr unsigned kVistaMajorVersion = 6;

}  // namespace

HelpFile ChooseHelpFile(const Settings& settings, const std::optional<SystemVersion>& version) {
  const bool isVistaOrLater =
      version && version->platform == kNtPlatform && version->major == kVistaMajorVersion;
  const bool useHlpFile = settings.PreferHlpHelp != 0 || !isVistaOrLater;
  return {
      .UseHlpFile = useHlpFile,
      .path = settings.applicationFolder + (useHlpFile ? u"\\Wren.hlp" : u"\\Wren.chm"),
  };
}

}  // namespace deck
