#include "platform/files.h"

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kWildcards = u"*?";

// The first character as a drive, "C:", or empty when it is no letter. Nothing else is looked at:
// programs of old asked for no colon behind it.
std::u16string DriveOf(const std::u16string& path) {
  if (path.empty()) return {};
  const char16_t letter = ToLower(path[0]);
  return letter >= u'a' && letter <= u'z' ? path.substr(0, 1) + u":" : std::u16string();
}

}  // namespace

bool FileExists(const Files& files, const std::u16string& path) {
  if (path.empty() || path.find_first_of(kWildcards) != std::u16string::npos) return false;
  const std::optional<FileAttributes> attributes = files.Attributes(path);
  return attributes && !attributes->folder;
}

void ChangeDriveAndFolder(Files& files, const std::u16string& folder) {
  const std::u16string drive = DriveOf(folder);
  if (!drive.empty()) files.SetCurrentFolder(drive);
  ChangeToDriveRoot(files, folder);
  files.SetCurrentFolder(folder);
}

void ChangeToDriveRoot(Files& files, const std::u16string& path) {
  const std::u16string drive = DriveOf(path);
  if (!drive.empty()) files.SetCurrentFolder(drive + u"\\");
}

}  // namespace deck
