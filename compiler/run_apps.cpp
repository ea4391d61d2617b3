#include "compiler/run_apps.h"

#include <optional>
#include <string>

#include "compiler/run_app_scan.h"
#include "platform/text_encoding.h"

namespace deck {

RunApps::RunApps(const Settings& settings, const RunAndWait& wait, Ports ports)
    : settings_(settings), wait_(wait), ports_(ports) {}

void RunApps::GetAppsToRun(const Document& document) {
  if (ignoreRunApp && ignoreRunApp()) return;
  const std::u16string text = document.text1->Text();
  if (!WriteCopy(text, document.file.format)) return;
  for (const AppToRun& app : FindAppsToRun(text)) {
    if (wait_.Closing()) return;
    ChangeToDriveRoot(ports_.files, app.commandLine);
    static_cast<void>(ports_.programs.Start(app.commandLine, app.window));
    ports_.events.PumpEvents();
  }
}

bool RunApps::WriteCopy(std::u16string_view text, FileFormat format) {
  const std::u16string folder = settings_.applicationFolder + u"\\Temp";
  const std::optional<FileAttributes> attributes = ports_.files.Attributes(folder);
  if (!attributes || !attributes->folder) return true;
  const std::u16string copy = folder + u"\\Original.txt";
  // What could not be deleted cannot be created either.
  static_cast<void>(ports_.files.Delete(copy));
  return static_cast<bool>(ports_.files.Create(copy, EncodeFile(text, format, ports_.codePage)));
}

}  // namespace deck
