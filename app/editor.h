// The program: owns every feature and joins them. The main window reports what happened to it here
// and nowhere else; every command runs through Execute.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_table.h"
#include "app/recent_files.h"
#include "app/settings_store.h"
#include "compiler/compile_command.h"
#include "compiler/controller_mode_switch.h"
#include "compiler/download_command.h"
#include "compiler/hotas_ini.h"
#include "compiler/run_and_report.h"
#include "compiler/run_and_wait.h"
#include "compiler/run_apps.h"
#include "documents/disk_changes.h"
#include "documents/document_set.h"
#include "documents/file_commands.h"
#include "documents/print_command.h"
#include "documents/recovery.h"
#include "documents/status_bar.h"
#include "find/find_and_replace.h"
#include "find/find_dialog_view.h"
#include "help/help_commands.h"
#include "help/help_file.h"
#include "help/info_window_view.h"
#include "help/quick_help.h"
#include "keytest/key_test_presenter.h"
#include "keytest/key_test_view.h"
#include "macros/macro_panel.h"
#include "platform/background_work.h"
#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/help_system.h"
#include "platform/keyboard.h"
#include "platform/macro_panel_view.h"
#include "platform/main_window_view.h"
#include "platform/printer.h"
#include "platform/profile_files.h"
#include "platform/programs.h"
#include "platform/prompts.h"
#include "platform/system_info.h"
#include "tools/block_rem.h"
#include "tools/edit_commands.h"
#include "tools/remove_spaces.h"

namespace deck {

struct EditorPorts {
  MainWindowView& window;
  MacroPanelView& macroPanel;
  Files& files;
  ProfileFiles& profiles;
  FileDialogs& dialogs;
  Prompts& prompts;
  Programs& programs;
  EventLoop& events;
  Keyboard& keyboard;
  const CodePage& codePage;
  const SystemInfo& system;
  HelpSystem& help;
  InfoWindowView& infoWindow;
  Printer& printer;
  Clipboard& clipboard;
  KeyTestView& keyTest;
  FindDialogView& findDialog;
  BackgroundWork& background;
};

class Editor {
 public:
  explicit Editor(const EditorPorts& ports);

  // The start-up: host checks, settings, the first tab, the file named on the command line.
  // `applicationFolder` is the program's own, without a trailing "\". False when the host is
  // missing: the user has been told and the program must end without another step.
  [[nodiscard]] bool Load(const std::u16string& applicationFolder, std::u16string_view commandLine);
  // Any close: asks for every modified document. False keeps the window open.
  [[nodiscard]] bool QueryUnload();
  // The close that QueryUnload allowed does not happen after all: Windows goes on running.
  void StayOpen() { closing_ = false; }
  // After QueryUnload: settings are written and the other windows closed.
  void Unload();

  // Runs a command of the table or a recent file. Unknown and unavailable ones do nothing.
  void Execute(CommandId command);

  // Tab positions count from 1; a position without a tab does nothing.
  void OnTabClicked(int position);
  void OnTabMiddleClicked(int position);
  void OnTabHovered(int position);
  void OnToolbarHovered(CommandId command);
  void OnStatusBarHovered();
  void OnFilesDropped(const std::vector<std::u16string>& paths);
  // By a later start; `path` is absolute. Opened as a recent file is; nothing when it is gone.
  void OnFileHandedOver(const std::u16string& path);
  void OnMenuOpening(Menu menu);
  void OnTimer(TimerId timer);
  void OnMinimised();
  // The program came to the foreground or left it.
  void OnLookedAt(bool lookedAt);
  // The window got the focus: the text has it from there.
  void OnFocus();
  // The panels that the status bar keeps by itself: whether typing inserts, the toggle keys, and
  // the time as the user's locale writes it, without seconds.
  void OnKeysAndClock(bool insertMode, const std::u16string& clock);

  DocumentSet& Documents() { return documents_; }
  QuickHelp& InfoPages() { return quickHelp_; }
  MacroPanel& Macros() { return macros_; }
  const Settings& settings() const { return settings_; }
  const HelpFile& Help() const { return helpFile_; }

 private:
  // False while a box at the start tells that the host is missing: its message loop brings events.
  bool IsLoaded() const { return documents_.Count() > 0; }
  bool HostIsThere(const std::u16string& applicationFolder);
  void RestorePosition();
  void OpenStartupFile(std::u16string_view commandLine);
  void BringBackUnsavedTexts(const std::u16string& applicationFolder);
  void KeepUnsavedTexts();

  void JoinFeatures();
  void JoinFileCommands();
  void JoinCompiler();
  void JoinKeyTest();
  void FillHandlers();
  void ShowCommands();
  void ShowTick(CommandId command, bool ticked);
  void ToggleIndentWhenAligning();
  void ToggleEnableAfterDownload();
  void ToggleIgnoreRunApp();
  void ShowEditCommands();
  void OpenRecentFile(std::size_t index);
  void OpenChosenFiles();
  void Open(const std::vector<std::u16string>& paths);
  void ShowInfoPage(int index);

  EditorPorts ports_;
  Settings settings_;
  DownloadTicks ticks_;

  StatusBar status_;
  DocumentSet documents_;
  FileCommands files_;
  RecentFileList recentFiles_;
  MacroPanel macros_;
  HotasIni hotasIni_;
  RunAndWait wait_;
  RunAndReport runAndReport_;
  RunApps runApps_;
  CompileCommand compile_;
  DownloadCommand download_;
  ControllerModeSwitch modeSwitch_;
  HelpFile helpFile_;
  HelpCommands help_;
  QuickHelp quickHelp_;
  PrintCommand print_;
  BlockRem blockRem_;
  SlashAlignment alignment_;
  EditCommands edit_;
  KeyTestPresenter keyTest_;
  FindAndReplace find_;
  Recovery recovery_;
  DiskChanges diskChanges_;
  std::map<CommandId, std::function<void()>> handlers_;

  bool closing_ = false;
  bool recoveryFailureTold_ = false;
};

}  // namespace deck
