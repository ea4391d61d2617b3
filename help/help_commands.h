// The commands of the Help and Apps menus that need no window of their own. Owned by app/editor.
#pragma once

#include "help/help_file.h"
#include "platform/files.h"
#include "platform/help_system.h"
#include "platform/programs.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

class HelpCommands {
 public:
  struct Ports {
    Files& files;
    Prompts& prompts;
    Programs& programs;
    HelpSystem& help;
  };

  // `helpFile` is filled in by app/editor during start-up.
  HelpCommands(const Settings& settings, const HelpFile& helpFile, Ports ports);

  void mnuHelpTopics();
  void mnuHelpVersion();
  // 0 the host, 1 its starter, 2 the controllers' control panel; other indexes do nothing.
  void mnuAppsArray(int index);

 private:
  const Settings& settings_;
  const HelpFile& helpFile_;
  Ports ports_;
};

}  // namespace deck
