#include "help/help_commands.h"

#include <optional>
#include <string>

namespace deck {
namespace {

constexpr unsigned kHelpContext = 1;

struct App {
  std::u16string path;
  std::u16string workingFolder;
};

std::optional<App> AppAt(int index, const Settings& settings) {
  const std::u16string& own = settings.applicationFolder;
  switch (index) {
    case 0:
      return App{own + u"\\Wren.exe", own};
    case 1:
      return App{own + u"\\Starter.exe", own};
    case 2:
      return App{settings.CompilerFolder + u"HOTASConfig.exe", settings.CompilerFolder};
    default:
      return std::nullopt;
  }
}

}  // namespace

HelpCommands::HelpCommands(const Settings& settings, const HelpFile& helpFile, Ports ports)
    : settings_(settings), helpFile_(helpFile), ports_(ports) {}

void HelpCommands::mnuHelpTopics() {
  if (helpFile_.UseHlpFile) {
    ports_.help.OpenWithShell(helpFile_.path, settings_.applicationFolder);
  } else {
    ports_.help.ShowTopic(helpFile_.path, kHelpContext);
  }
}

void HelpCommands::mnuHelpVersion() {
  ports_.prompts.Show({u"Wren Deck - version 4.4.02\r\nWritten by the WrenDeck developers",
                       u"Version information", BoxStyle::kInformation});
}

void HelpCommands::mnuAppsArray(int index) {
  const std::optional<App> app = AppAt(index, settings_);
  if (!app) return;
  if (!FileExists(ports_.files, app->path)) {
    ports_.prompts.Show({u"I couldn't find the application: " + app->path +
                             u" - how very odd to say the least. What have you done with it? ",
                         u"Where is it?", BoxStyle::kInformation});
    return;
  }
  ChangeDriveAndFolder(ports_.files, app->workingFolder);
  // A program that the system refuses to start is skipped like every step that fails.
  static_cast<void>(ports_.programs.StartProgram(app->path, app->path, ProgramWindow::kNormal));
}

}  // namespace deck
