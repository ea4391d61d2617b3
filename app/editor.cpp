#include "app/editor.h"

#include <utility>

#include "app/startup_file.h"
#include "platform/scope_value.h"
#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kGreeting =
    u"Hi there buddy, welcome to WrenDeck  - another handy utility!";

bool IsRecentFile(CommandId command) {
  return command >= CommandId::kRecentFile1 && command <= CommandId::kRecentFileLast;
}

}  // namespace

Editor::Editor(const EditorPorts& ports)
    : ports_(ports),
      status_(ports.window),
      documents_(ports.window, status_, ports.keyboard, settings_),
      files_(documents_, status_, settings_,
             {ports.files, ports.dialogs, ports.prompts, ports.events, ports.codePage}),
      recentFiles_(ports.profiles, ports.background, ports.window, settings_),
      macros_(documents_, status_, settings_,
              {ports.files, ports.codePage, ports.prompts, ports.profiles, ports.window,
               ports.macroPanel}),
      hotasIni_(ports.profiles, settings_),
      wait_(hotasIni_, documents_, settings_,
            {ports.profiles, ports.files, ports.programs, ports.events}),
      runAndReport_(hotasIni_, wait_, documents_, status_, settings_,
                    {ports.window, ports.prompts, ports.events}),
      runApps_(settings_, wait_, {ports.files, ports.programs, ports.events, ports.codePage}),
      compile_(documents_, settings_, wait_, runAndReport_, {ports.files, ports.prompts}),
      download_(documents_, settings_, wait_, runAndReport_, runApps_,
                {ports.files, ports.prompts}),
      modeSwitch_(hotasIni_, wait_, status_, settings_,
                  {ports.files, ports.programs, ports.events}),
      help_(settings_, helpFile_, {ports.files, ports.prompts, ports.programs, ports.help}),
      quickHelp_(status_, settings_, {ports.files, ports.profiles, ports.infoWindow}),
      print_(documents_, status_, ports.prompts, ports.printer),
      blockRem_(documents_),
      alignment_(documents_, status_, settings_, {ports.files, ports.codePage, ports.window}),
      edit_(documents_, ports.clipboard),
      keyTest_(ports.keyTest, settings_,
               {ports.files, ports.profiles, ports.dialogs, ports.prompts, ports.events,
                ports.keyboard, ports.clipboard, ports.codePage}),
      find_(documents_, status_, ports.findDialog),
      recovery_(documents_, {ports.files, ports.background, ports.events, ports.codePage}),
      diskChanges_(documents_, status_, ports.files, ports.codePage) {
  JoinFeatures();
  FillHandlers();
}

// ---- Features meet here, and only here.

void Editor::JoinFeatures() {
  documents_.refreshMacros = [this](Document& document) { macros_.RefreshFor(document); };
  macros_.links.openBehind = [this](const std::u16string& path) { return files_.OpenBehind(path); };
  macros_.links.save = [this] { return files_.FileSave(); };
  JoinFileCommands();
  JoinCompiler();
  JoinKeyTest();
}

void Editor::JoinFileCommands() {
  files_.links = {
      .keepText = [this](const Document& document) { recovery_.KeepNow(document); },
      .addRecentFile = [this](const std::u16string& path) { recentFiles_.AddRecentFile(path); },
      .showMacrosOf = [this](const std::u16string& path) { macros_.ShowMacrosOf(path); },
      .detectMacroFile =
          [this](std::u16string_view extension, const std::u16string& folder) {
            macros_.DetectMacroFile(extension, folder);
          },
      .clearMacros = [this] { macros_.Clear(); },
      .updateMacroList = [this] { macros_.UpdateMacroList(); },
  };
}

void Editor::JoinCompiler() {
  wait_.closing = [this] { return closing_; };
  compile_.links.saveCurrentDocument = [this] { files_.FileSave(); };
  compile_.links.minimiseFind = [this] { find_.Minimise(); };
  compile_.links.minimiseQuickHelp = [this] { quickHelp_.Minimise(); };
  download_.enableAfterDownload = [this] { return ticks_.enableAfterDownload; };
  runApps_.ignoreRunApp = [this] { return ticks_.ignoreRunApp; };
}

void Editor::JoinKeyTest() {
  keyTest_.links.readControllerMode = [this] {
    hotasIni_.ReadControllerMode();
    return ControllerReport{hotasIni_.Mode().Status, hotasIni_.Mode().Buttons};
  };
  keyTest_.links.switchButtonsMode = [this](bool programmed) {
    modeSwitch_.SwitchButtonsMode(programmed ? 1 : 0);
  };
  compile_.links.unloadKeyTester = [this] { keyTest_.Unload(); };
}

// ---- Start-up and shutdown.

bool Editor::Load(const std::u16string& applicationFolder, std::u16string_view commandLine) {
  if (!HostIsThere(applicationFolder)) return false;
  documents_.SetKeyboardLayoutName(ports_.keyboard.LayoutName());
  settings_.SettingsPath = applicationFolder + u"\\WrenDeck.ini";
  documents_.Add();
  macros_.Clear();
  ReadHostPreferences(ports_.profiles, applicationFolder, settings_);
  ShowCommands();
  ports_.window.ShowToolTips(settings_.ShowToolTips != 0);
  helpFile_ = ChooseHelpFile(settings_, ports_.system.Version());
  if (!helpFile_.UseHlpFile) ports_.help.Prepare();
  RestorePosition();
  recentFiles_.LoadRecentFiles();
  wait_.ReadWaitSettings();
  const std::u16string info = applicationFolder + u"\\Info";
  // Where it cannot be made, the help pages are simply not there.
  if (!ports_.files.Attributes(info)) static_cast<void>(ports_.files.CreateFolder(info));
  documents_.Select(0);
  ports_.window.PositionControls(macros_.FrameWidth());
  OpenStartupFile(commandLine);
  BringBackUnsavedTexts(applicationFolder);
  return true;
}

bool Editor::HostIsThere(const std::u16string& applicationFolder) {
  if (!FileExists(ports_.files, applicationFolder + u"\\Wren.exe")) {
    ports_.prompts.Show(
        {u"Sorry, but Deck requires Wren to run correctly. Make sure that "
         u"WrenDeck.exe is in the same directory as Wren.exe",
         u"Wren not detected", BoxStyle::kCritical});
    return false;
  }
  if (!FileExists(ports_.files, applicationFolder + u"\\Wren.ini")) {
    ports_.prompts.Show(
        {u"Sorry, but Deck requires that you've setup your preferences in Wren. "
         u"Make sure that WrenDeck.exe is in the same directory as Wren.ini",
         u"Wren incorrectly setup", BoxStyle::kCritical});
    return false;
  }
  return true;
}

void Editor::RestorePosition() {
  const EditorPosition position = GetEditorPosition(ports_.profiles, settings_);
  ticks_ = position.ticks;
  ShowTick(CommandId::kEnableAfterDownload, ticks_.enableAfterDownload);
  ShowTick(CommandId::kIgnoreRunApp, ticks_.ignoreRunApp);
  ports_.window.Place(position.placement);
}

void Editor::OpenStartupFile(std::u16string_view commandLine) {
  const std::u16string file = StartupFileOf(commandLine);
  if (FileExists(ports_.files, file)) Open({file});
}

void Editor::BringBackUnsavedTexts(const std::u16string& applicationFolder) {
  if (!recovery_.Start(applicationFolder + u"\\Recovery")) {
    status_.Say(u"Settings and unsaved texts cannot be kept in " + applicationFolder);
    return;
  }
  const std::u16string captions = Join(recovery_.Restore(), u", ");
  if (!captions.empty()) status_.Say(u"Unsaved text has come back: " + captions);
}

void Editor::KeepUnsavedTexts() {
  if (recovery_.Update() || recoveryFailureTold_) return;
  recoveryFailureTold_ = true;
  status_.Hint(u"Unsaved text cannot be kept for the case of a crash");
}

bool Editor::QueryUnload() {
  const ScopeValue skip(documents_.SkipMacroRefresh, std::int16_t{1});
  for (int index = 0; index < documents_.Count(); ++index) {
    documents_.Select(index);
    const Document& document = documents_.Current();
    if (document.modifiedFlag != 1) continue;
    const Answer answer =
        ports_.prompts.Show({document.caption + u" isn't saved. Do you want to save it now?",
                             u"Save " + document.caption + u"?", BoxStyle::kYesNoCancel});
    if (answer == Answer::kNo) continue;
    // What could not be saved is not lost: the window stays open with it in front.
    if (answer != Answer::kYes || !files_.FileSave()) return false;
  }
  closing_ = true;
  return true;
}

void Editor::Unload() {
  // Without its host the program ends before it has read anything that could be written back.
  if (!IsLoaded()) return;
  // Where the settings cannot be written they do not persist.
  static_cast<void>(SaveEditorPosition(
      ports_.profiles, settings_, {ticks_, ports_.window.Placement()}, ports_.window.ScreenSize()));
  find_.Close();
  quickHelp_.Close();
  keyTest_.Unload();
  if (!helpFile_.UseHlpFile) ports_.help.CloseAll();
  // An end that asked nobody, as when Windows is in a hurry, throws nothing away.
  if (closing_) recovery_.End();
  // The recent files may be on their way still, and Windows need not wait for them.
  ports_.background.Finish();
}

// ---- Commands.

void Editor::FillHandlers() {
  handlers_ = {
      {CommandId::kFileNew, [this] { files_.FileNew(); }},
      {CommandId::kFileOpen, [this] { OpenChosenFiles(); }},
      {CommandId::kFileSave, [this] { files_.FileSave(); }},
      {CommandId::kFileSaveAs, [this] { files_.FileSaveAs(); }},
      {CommandId::kFileSaveAll, [this] { files_.FileSaveAll(); }},
      {CommandId::kFileClose, [this] { files_.FileClose(); }},
      {CommandId::kPrint, [this] { print_.mnuPrint(); }},
      {CommandId::kPrinterSetup, [this] { print_.mnuPrinterSetup(); }},
      {CommandId::kClearRecentFiles, [this] { recentFiles_.Clear(); }},
      {CommandId::kExit, [this] { ports_.window.Close(); }},
      {CommandId::kUndo, [this] { edit_.mnuUndo(); }},
      {CommandId::kCut, [this] { edit_.mnuEditCCP(EditCommands::Item::kCut); }},
      {CommandId::kCopy, [this] { edit_.mnuEditCCP(EditCommands::Item::kCopy); }},
      {CommandId::kPaste, [this] { edit_.mnuEditCCP(EditCommands::Item::kPaste); }},
      {CommandId::kDelete, [this] { edit_.mnuEditCCP(EditCommands::Item::kDelete); }},
      {CommandId::kSelectAll, [this] { edit_.mnuEditSelAll(); }},
      {CommandId::kRefreshFonts, [this] { edit_.mnuRefreshFonts(); }},
      {CommandId::kKeyTest, [this] { keyTest_.Show(); }},
      {CommandId::kFind, [this] { find_.mnuFRGArray(0); }},
      {CommandId::kReplace, [this] { find_.mnuFRGArray(1); }},
      {CommandId::kGotoLine, [this] { find_.mnuFRGArray(2); }},
      {CommandId::kFindAgain, [this] { find_.FindAgain(); }},
      {CommandId::kBlockRem, [this] { blockRem_.REMblock(); }},
      {CommandId::kBlockUnRem, [this] { blockRem_.REMunblock(); }},
      {CommandId::kAlignSlashes, [this] { alignment_.RemoveSpaces(); }},
      {CommandId::kViewMacros, [this] { macros_.ToggleViewMacros(); }},
      {CommandId::kUpdateMacroList, [this] { macros_.UpdateMacroList(); }},
      {CommandId::kIndentWhenAligning, [this] { ToggleIndentWhenAligning(); }},
      {CommandId::kCompile, [this] { compile_.mnuCompile(); }},
      {CommandId::kDownload, [this] { download_.mnuFileDownload(); }},
      {CommandId::kEnableAfterDownload, [this] { ToggleEnableAfterDownload(); }},
      {CommandId::kIgnoreRunApp, [this] { ToggleIgnoreRunApp(); }},
      {CommandId::kAppWren, [this] { help_.mnuAppsArray(0); }},
      {CommandId::kAppStarter, [this] { help_.mnuAppsArray(1); }},
      {CommandId::kAppControlPanel, [this] { help_.mnuAppsArray(2); }},
      {CommandId::kHelpTopics, [this] { help_.mnuHelpTopics(); }},
      {CommandId::kHelpSyntax, [this] { ShowInfoPage(0); }},
      {CommandId::kHelpSlashModifiers, [this] { ShowInfoPage(1); }},
      {CommandId::kHelpErrorCodes, [this] { ShowInfoPage(2); }},
      {CommandId::kHelpVersion, [this] { help_.mnuHelpVersion(); }},
      {CommandId::kNextTab, [this] { documents_.SelectNext(); }},
      {CommandId::kPreviousTab, [this] { documents_.SelectPrevious(); }},
  };
}

void Editor::ShowCommands() {
  for (const CommandRow& row : kCommands) {
    if (row.caption.empty()) continue;
    ports_.window.SetCommand(
        row.id, {.enabled = handlers_.contains(row.id), .caption = std::u16string(row.caption)});
  }
  ShowTick(CommandId::kIndentWhenAligning, settings_.IndentAsWell == 1);
}

void Editor::ShowTick(CommandId command, bool ticked) {
  ports_.window.SetCommand(command, {.enabled = true,
                                     .checked = ticked,
                                     .caption = std::u16string(FindCommand(command)->caption)});
}

void Editor::ToggleIndentWhenAligning() {
  settings_.IndentAsWell = settings_.IndentAsWell == 1 ? 0 : 1;
  ShowTick(CommandId::kIndentWhenAligning, settings_.IndentAsWell == 1);
}

void Editor::ToggleEnableAfterDownload() {
  ticks_.enableAfterDownload = !ticks_.enableAfterDownload;
  ShowTick(CommandId::kEnableAfterDownload, ticks_.enableAfterDownload);
}

void Editor::ToggleIgnoreRunApp() {
  ticks_.ignoreRunApp = !ticks_.ignoreRunApp;
  ShowTick(CommandId::kIgnoreRunApp, ticks_.ignoreRunApp);
}

void Editor::ShowEditCommands() {
  const bool enabled = edit_.HasSelection();
  for (const CommandId command : {CommandId::kCut, CommandId::kCopy, CommandId::kDelete}) {
    ports_.window.SetCommand(command, {.enabled = enabled,
                                       .caption = std::u16string(FindCommand(command)->caption),
                                       .menuItemOnly = true});
  }
}

void Editor::Execute(CommandId command) {
  if (!IsLoaded()) return;
  if (IsRecentFile(command)) {
    OpenRecentFile(static_cast<std::size_t>(command) -
                   static_cast<std::size_t>(CommandId::kRecentFile1));
    return;
  }
  if (const auto found = handlers_.find(command); found != handlers_.end()) found->second();
}

void Editor::OpenRecentFile(std::size_t index) {
  if (index >= recentFiles_.RecentFiles().size()) return;
  // A copy: opening the file moves the list.
  const std::u16string path = recentFiles_.RecentFiles()[index];
  if (FileExists(ports_.files, path)) {
    Open({path});
    return;
  }
  ports_.prompts.Show({u"There's a problem here ... I couldn't find " + path +
                           u" which probably means you've deleted it or moved it. Sorry!",
                       u"Can't find file", BoxStyle::kExclamation});
}

void Editor::OpenChosenFiles() {
  const RecentFileList::OneWrite together(recentFiles_);
  files_.FileOpen();
}

void Editor::Open(const std::vector<std::u16string>& paths) {
  const RecentFileList::OneWrite together(recentFiles_);
  for (const std::u16string& path : paths) files_.OpenPreviouslySavedFiles(path);
}

void Editor::ShowInfoPage(int index) {
  quickHelp_.ShowInfoPage(index, ports_.window.ScreenSize());
}

// ---- Events of the window.

void Editor::OnTabClicked(int position) {
  if (position >= 1 && position <= documents_.Count()) documents_.Select(position - 1);
}

void Editor::OnTabMiddleClicked(int position) {
  if (position < 1 || position > documents_.Count()) return;
  documents_.Select(position - 1);
  files_.FileClose();
}

void Editor::OnTabHovered(int position) {
  documents_.OnHoverTab(position - 1);
}

void Editor::OnToolbarHovered(CommandId command) {
  const CommandRow* row = FindCommand(command);
  if (row != nullptr && !row->hint.empty()) status_.Hint(row->hint);
}

void Editor::OnStatusBarHovered() {
  if (status_.Message() != kGreeting) status_.Say(std::u16string(kGreeting));
}

void Editor::OnFilesDropped(const std::vector<std::u16string>& paths) {
  if (IsLoaded()) Open(paths);
}

void Editor::OnFileHandedOver(const std::u16string& path) {
  if (IsLoaded() && FileExists(ports_.files, path)) Open({path});
}

void Editor::OnMenuOpening(Menu menu) {
  if (menu == Menu::kEdit && IsLoaded()) ShowEditCommands();
}

void Editor::OnTimer(TimerId timer) {
  switch (timer) {
    case TimerId::kDownloadTimer:
      wait_.DownloadTimer_Timer();
      break;
    case TimerId::kStatusModeTimer:
      modeSwitch_.StatusModeTimer_Timer();
      break;
    case TimerId::kTimer1:
      documents_.CompilerBusy = 0;
      ports_.events.StopTimer(TimerId::kTimer1);
      break;
    case TimerId::kRecoveryTimer:
      KeepUnsavedTexts();
      break;
  }
}

void Editor::OnMinimised() {
  quickHelp_.Minimise();
}

void Editor::OnLookedAt(bool lookedAt) {
  runAndReport_.Work().OnLookedAt(lookedAt);
  // A wait for the compiler needs its text and its message as they are.
  if (lookedAt && IsLoaded() && !wait_.IsInCommand()) diskChanges_.Look();
}

void Editor::OnFocus() {
  if (IsLoaded()) documents_.GetCurrentTextBox().Focus();
}

void Editor::OnKeysAndClock(bool insertMode, const std::u16string& clock) {
  const auto show = [this](int panel, bool on, std::u16string_view text) {
    status_.Set(panel, on ? std::u16string(text) : u"");
  };
  show(kInsertPanel, insertMode, u"INS");
  show(kCapsPanel, ports_.keyboard.IsOn(ToggleKey::kCapsLock), u"CAPS");
  show(kNumPanel, ports_.keyboard.IsOn(ToggleKey::kNumLock), u"NUM");
  status_.Set(kClockPanel, clock);
}

}  // namespace deck
