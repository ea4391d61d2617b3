#include "tests/model/editor_walk.h"

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <utility>

#include "app/command_table.h"
#include "documents/file_kinds.h"
#include "platform/strings.h"
#include "tests/model/editor_model.h"
#include "tests/model/program_world.h"

namespace deck {
namespace {

const std::u16string kHost = u"C:\\Host";
const std::u16string kHotasIni = kHost + u"\\HOTAS.ini";
constexpr int kDeepestWait = 2;

const std::vector<std::u16string> kNames = {u"a.tmj", u"b.tmj",   u"m.tmm",
                                            u"n.tmm", u"Ü&x.tmj", u"note.txt"};

// One walk under way.
class Walker {
 public:
  Walker(WalkKind kind, CommandsDuringWaits* chosen) : kind_(kind), chosen_(chosen) {
    for (const char16_t* name : {u"Wren.exe", u"Wren.ini", u"HOTASCompiler.exe", u"Starter.exe"})
      machine_.files.AddFile(kHost + u"\\" + name, "");
    machine_.files.AddFolder(kHost + u"\\Temp");
    machine_.files.AddFolder(kFilesFolder);
    machine_.profiles.SetText(kHost + u"\\Wren.ini",
                              u"[Unsupported]\r\nCheckForCompletionTime=100\r\n"
                              u"RegainControlAfter=1000\r\n");
    StartProgram();
  }

  void Step(std::uint32_t number) {
    random_.seed(number);
    if (kind_ == WalkKind::kWaits && !OneIn(4)) {
      trail_.emplace_back("wait");
      Wait();
    } else {
      DoStep();
    }
    model_->Check(true);
    if (ended_ && Complaints().empty()) StartProgram();
  }
  const std::vector<std::string>& Complaints() const { return model_->Complaints(); }
  const std::vector<std::string>& Trail() const { return trail_; }

 private:
  using Action = void (Walker::*)();
  struct Choice {
    const char* name;
    Action action;
    int weight;
  };
  static const std::vector<Choice> kChoices;

  // ---- Chance.

  int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <class T>
  const T& OneOf(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
  }
  std::u16string SomePath() { return kFilesFolder + u"\\" + OneOf(kNames); }
  std::u16string SomeWord() { return u"w" + Decimal(Below(100'000)); }
  std::u16string SomeLine() {
    static const std::vector<std::u16string> kStarts = {
        u"BTN S1 ",   u"rem ",  u"REMARK ", u"  BTN H1U /U ",   u"/I /O ", u"~ ",
        u"X /M a /D", u"M1 = ", u"",        u"USE MDEF m.tmm ", u"\t",     u"\u20AC \u0416 "};
    return OneOf(kStarts) + SomeWord() + (OneIn(3) ? u"" : u"\n");
  }
  std::u16string SomeText(int lines) {
    std::u16string text;
    for (int line = Below(lines + 1); line > 0; --line) text += SomeLine();
    return text;
  }
  std::string SomeBytes() {
    if (OneIn(20)) return std::string("a\0b", 3);
    FileFormat format{OneIn(3) ? Encoding::kUtf16Le : Encoding::kUtf8,
                      OneIn(2) ? LineBreak::kCrLf : LineBreak::kLf};
    std::string bytes = EncodeFile(SomeText(6), format, machine_.codePage);
    if (OneIn(4)) bytes += "last \r line\n";
    return bytes;
  }
  Answer SomeAnswer(BoxStyle style) {
    const int number = Below(style == BoxStyle::kYesNoCancel ? 3 : 2);
    return std::array{Answer::kYes, Answer::kNo, Answer::kCancel}[static_cast<std::size_t>(number)];
  }

  // ---- The program and its questions.

  void StartProgram() {
    ended_ = false;
    run_ = std::make_unique<ProgramRun>(machine_);
    model_ = std::make_unique<EditorModel>(machine_, *run_);
    run_->prompts.onShow = [this](const Message& message) { OnBox(message); };
    run_->dialogs.onShow = [this] { OnFileDialog(); };
    run_->view.onClose = [this] { CloseWindow(); };
    model_->AllowOpening();
    if (!run_->editor.Load(kHost, u"WrenDeck.exe")) model_->Complain("the program did not start");
    model_->Check(true);
  }
  DocumentSet& Documents() { return run_->editor.Documents(); }
  FakeEditBox& Box() { return run_->Box(Documents().CurrentIndex()); }

  void OnBox(const Message& message) {
    // Timers go on under an open box.
    if (OneIn(4)) run_->events.Advance(300);
    const bool question = message.style == BoxStyle::kYesNo ||
                          message.style == BoxStyle::kYesNoCancel ||
                          message.style == BoxStyle::kYesNoExclamationDefaultNo;
    if (!question) return;
    const Answer answer = SomeAnswer(message.style);
    run_->prompts.answers = {answer};
    model_->OnAnswer(message, answer);
  }

  void OnFileDialog() {
    run_->dialogs.openResults.clear();
    run_->dialogs.saveResults.clear();
    if (OneIn(4)) {
      run_->dialogs.openResults.emplace_back(std::nullopt);
      run_->dialogs.saveResults.emplace_back(std::nullopt);
      return;
    }
    std::u16string selection = SomePath();
    if (OneIn(4)) {
      selection = FakeFileDialogs::Selection(kFilesFolder, {OneOf(kNames), OneOf(kNames)});
    }
    run_->dialogs.openResults.emplace_back(selection);
    SaveChoice choice{SomePath(), 1 + Below(3)};
    if (OneIn(5)) choice.path = kFilesFolder + u"\\" + SomeWord();
    run_->dialogs.saveResults.emplace_back(choice);
  }

  // What the main window does when it is asked to close.
  void CloseWindow() {
    if (ended_ || !run_->editor.QueryUnload()) return;
    run_->editor.Unload();
    model_->CheckEnd();
    ended_ = true;
  }

  void Execute(CommandId command) {
    if (depth_ > 0 && chosen_ != nullptr) ++(*chosen_)[command];
    run_->editor.Execute(command);
  }

  // ---- Steps.

  void DoStep() {
    int total = 0;
    for (const Choice& choice : kChoices) total += choice.weight;
    int number = Below(total);
    for (const Choice& choice : kChoices) {
      number -= choice.weight;
      if (number >= 0) continue;
      trail_.emplace_back(std::string(static_cast<std::size_t>(2 * depth_), ' ') + choice.name);
      (this->*choice.action)();
      return;
    }
  }

  void New() { Execute(CommandId::kFileNew); }
  void Open() {
    model_->AllowOpening();
    Execute(CommandId::kFileOpen);
  }
  void Drop() {
    model_->AllowOpening();
    run_->editor.OnFilesDropped({SomePath(), SomePath()});
  }
  void OpenRecent() {
    model_->AllowOpening();
    Execute(static_cast<CommandId>(static_cast<int>(CommandId::kRecentFile1) + Below(4)));
  }
  void Save() { Execute(CommandId::kFileSave); }
  void SaveAs() { Execute(CommandId::kFileSaveAs); }
  void SaveAll() { Execute(CommandId::kFileSaveAll); }
  void Close() { Execute(CommandId::kFileClose); }
  void ClickTab() { run_->editor.OnTabClicked(1 + Below(Documents().Count() + 1)); }
  void MiddleClickTab() { run_->editor.OnTabMiddleClicked(1 + Below(Documents().Count() + 1)); }
  void NextTab() { Execute(OneIn(2) ? CommandId::kNextTab : CommandId::kPreviousTab); }
  void Select() {
    const int length = Box().Length();
    const int start = Below(length + 1);
    Box().MoveCaret({start, OneIn(2) ? 0 : Below(length - start + 1)});
  }
  void Type() {
    model_->AllowEdit();
    if (Box().Length() > 3000) Box().Select({0, Box().Length()});
    Box().Type(SomeText(3));
  }
  void Edit() {
    static const std::vector<CommandId> kCommands = {
        CommandId::kUndo,   CommandId::kUndo,     CommandId::kCut,        CommandId::kPaste,
        CommandId::kDelete, CommandId::kBlockRem, CommandId::kBlockUnRem, CommandId::kAlignSlashes};
    model_->AllowEdit();
    Execute(OneOf(kCommands));
  }
  void NoEdit() {
    static const std::vector<CommandId> kCommands = {CommandId::kCopy,
                                                     CommandId::kSelectAll,
                                                     CommandId::kRefreshFonts,
                                                     CommandId::kViewMacros,
                                                     CommandId::kUpdateMacroList,
                                                     CommandId::kIndentWhenAligning,
                                                     CommandId::kEnableAfterDownload,
                                                     CommandId::kIgnoreRunApp,
                                                     CommandId::kAppWren,
                                                     CommandId::kHelpTopics,
                                                     CommandId::kHelpSyntax,
                                                     CommandId::kHelpVersion,
                                                     CommandId::kKeyTest,
                                                     CommandId::kPrint,
                                                     CommandId::kClearRecentFiles};
    Execute(OneOf(kCommands));
  }
  void Find() {
    static const std::vector<CommandId> kCommands = {CommandId::kFind, CommandId::kReplace,
                                                     CommandId::kGotoLine, CommandId::kFindAgain};
    static const std::vector<FindControl> kButtons = {
        FindControl::kCommand1, FindControl::kCommand3, FindControl::kCommand5,
        FindControl::kCommand6, FindControl::kCommand7, FindControl::kCommand9};
    model_->AllowEdit();
    if (OneIn(3)) Execute(OneOf(kCommands));
    FakeFindDialogView& dialog = run_->findDialog;
    if (OneIn(3)) dialog.Choose(static_cast<FindPage>(Below(3)));
    for (const FindControl field : {FindControl::kComboTextFind, FindControl::kComboTextReplaceFind,
                                    FindControl::kComboTextReplaceWith}) {
      if (OneIn(2)) dialog.Type(field, OneIn(2) ? u"w" : u"rem");
    }
    if (OneIn(2)) dialog.Type(FindControl::kLineToFind, Decimal(Below(9)));
    dialog.Click(OneOf(kButtons));
  }
  void UseMacro() {
    model_->AllowEdit();
    const int count = static_cast<int>(run_->panel.macros.size());
    if (count == 0) return;
    const int index = Below(count);
    run_->editor.Macros().OnMacroClicked(index);
    if (OneIn(2)) run_->editor.Macros().OnMacroDoubleClicked(index);
  }
  void Hover() {
    run_->editor.OnTabHovered(Below(4));
    run_->editor.OnStatusBarHovered();
    run_->editor.OnToolbarHovered(CommandId::kCompile);
  }

  // Whatever the menus offer.
  void AnyCommand() {
    const auto row = static_cast<std::size_t>(Below(static_cast<int>(std::size(kCommands))));
    const CommandId command = kCommands[row].id;
    if (command == CommandId::kCompile || command == CommandId::kDownload) return Run(command);
    model_->AllowEdit();
    model_->AllowOpening();
    Execute(command);
  }

  // Of the joystick file in front, when it is one: others are refused before anything waits.
  void Wait() {
    model_->AllowOpening();
    for (int tries = 0; tries < 5 && !IsJoystickFile(Documents().Current().path); ++tries) {
      run_->editor.OnFilesDropped({SomePath()});
    }
    model_->Check(true);
    Run(OneIn(2) ? CommandId::kCompile : CommandId::kDownload);
  }
  void Compile() { Run(CommandId::kCompile); }
  void Download() { Run(CommandId::kDownload); }
  void Run(CommandId command) {
    if (depth_ >= kDeepestWait) return;
    const int most = kind_ == WalkKind::kWaits ? 8 : 3;
    for (int action = Below(most); action > 0; --action) {
      run_->events.actions.emplace_back([this] { StepDuringWait(); });
    }
    if (!OneIn(4)) {
      run_->events.actions.emplace_back(
          [this, line = Below(12) - 2, good = OneIn(2)] { CompilerReports(line, good); });
    }
    Execute(command);
    // What was to happen while the wait went on happens later, or never.
    if (depth_ == 0) run_->events.actions.clear();
  }
  void StepDuringWait() {
    if (ended_) return;
    model_->Check(false);
    ++depth_;
    if (kind_ == WalkKind::kWaits && OneIn(2)) {
      trail_.emplace_back(std::string(static_cast<std::size_t>(2 * depth_), ' ') + "any command");
      AnyCommand();
    } else {
      DoStep();
    }
    --depth_;
    model_->Check(false);
  }
  void CompilerReports(int line, bool good) {
    const auto write = [this](std::u16string_view key, const std::u16string& value) {
      static_cast<void>(machine_.profiles.WriteText(kHotasIni, u"Compiler", key, value));
    };
    write(u"LineNumber", Decimal(line));
    write(u"Memory", u"10");
    write(u"ErrorCode", good ? u"" : u"what");
    write(u"Status", good ? u"OK" : u"ERROR");
  }

  void OthersWrite() { machine_.files.AddFile(SomePath(), SomeBytes()); }
  void OthersDelete() { machine_.files.Delete(SomePath()); }
  void ReadOnly() { machine_.files.SetReadOnly(SomePath(), OneIn(3)); }
  void DiskFails() {
    static const std::vector<FileOperation> kOperations = {
        FileOperation::kRead, FileOperation::kReplace, FileOperation::kReplace,
        FileOperation::kCreate};
    machine_.files.Fail(OneOf(kOperations), OneIn(4) ? SomePath() + u".bak" : SomePath());
  }
  void DiskWorks() { machine_.files.StopFailing(); }
  void SettingsFail() { machine_.profiles.writable = OneIn(2); }
  void LookedAt() {
    model_->AllowReadingAgain();
    run_->editor.OnLookedAt(OneIn(4));
    run_->editor.OnLookedAt(true);
  }
  void TimePasses() { run_->events.Advance(100 + Below(4000)); }

  void Exit() { Execute(CommandId::kExit); }
  // Windows asks, and goes on running after all.
  void ShutdownCalledOff() {
    if (depth_ == 0 && run_->editor.QueryUnload()) run_->editor.StayOpen();
  }
  void Killed() {
    if (depth_ > 0) return;
    machine_.files.StopFailing();
    run_->events.Advance(5000);
    const auto lost = model_->UnsavedTexts();
    StartProgram();
    model_->CheckCameBack(lost);
  }

  // What was typed long ago is kept by then; what was not is kept before the file is written over.
  void KilledInASave() {
    const std::u16string path = Documents().Current().path;
    if (depth_ > 0 || path.empty()) return;
    machine_.files.StopFailing();
    run_->events.Advance(5000);
    Type();
    machine_.files.inPlace = OneIn(2);
    if (!machine_.files.inPlace) run_->events.Advance(5000);
    auto lost = model_->UnsavedTexts();
    // Also an unmodified document has its text kept before it is written over its file, which may
    // hold another one by now.
    const std::pair written(path, Documents().Current().text1->Text());
    if (machine_.files.inPlace && std::ranges::find(lost, written) == lost.end()) {
      lost.push_back(written);
    }
    machine_.files.killedWriting = path;
    bool killed = false;
    try {
      Save();
    } catch (const KilledInAWrite&) {
      killed = true;
    }
    machine_.files.killedWriting.clear();
    if (!killed) return;
    StartProgram();
    model_->CheckCameBack(lost);
  }

  WalkKind kind_;
  CommandsDuringWaits* chosen_;
  Machine machine_;
  std::unique_ptr<ProgramRun> run_;
  std::unique_ptr<EditorModel> model_;
  std::minstd_rand random_;
  std::vector<std::string> trail_;
  int depth_ = 0;
  bool ended_ = false;
};

const std::vector<Walker::Choice> Walker::kChoices = {
    {"new", &Walker::New, 4},
    {"open", &Walker::Open, 8},
    {"drop files", &Walker::Drop, 2},
    {"open a recent file", &Walker::OpenRecent, 2},
    {"save", &Walker::Save, 8},
    {"save as", &Walker::SaveAs, 4},
    {"save all", &Walker::SaveAll, 3},
    {"close", &Walker::Close, 8},
    {"click a tab", &Walker::ClickTab, 5},
    {"middle click a tab", &Walker::MiddleClickTab, 3},
    {"next tab", &Walker::NextTab, 3},
    {"select", &Walker::Select, 6},
    {"type", &Walker::Type, 20},
    {"edit command", &Walker::Edit, 14},
    {"other command", &Walker::NoEdit, 5},
    {"find", &Walker::Find, 8},
    {"use a macro", &Walker::UseMacro, 3},
    {"hover", &Walker::Hover, 2},
    {"compile", &Walker::Compile, 5},
    {"download", &Walker::Download, 3},
    {"others write", &Walker::OthersWrite, 6},
    {"others delete", &Walker::OthersDelete, 1},
    {"read-only", &Walker::ReadOnly, 1},
    {"the disk fails", &Walker::DiskFails, 3},
    {"the disk works", &Walker::DiskWorks, 3},
    {"settings fail", &Walker::SettingsFail, 1},
    {"looked at", &Walker::LookedAt, 4},
    {"time passes", &Walker::TimePasses, 3},
    {"exit", &Walker::Exit, 1},
    {"shutdown called off", &Walker::ShutdownCalledOff, 1},
    {"killed", &Walker::Killed, 1},
    {"killed in a save", &Walker::KilledInASave, 1},
};

}  // namespace

Walk MakeWalk(std::uint32_t seed, std::size_t steps) {
  std::mt19937 numbers(seed);
  Walk walk(steps);
  for (std::uint32_t& number : walk) number = static_cast<std::uint32_t>(numbers());
  return walk;
}

std::optional<WalkFailure> RunWalk(const Walk& walk, WalkKind kind, CommandsDuringWaits* chosen) {
  Walker walker(kind, chosen);
  for (std::size_t step = 0; step < walk.size(); ++step) {
    walker.Step(walk[step]);
    if (!walker.Complaints().empty())
      return WalkFailure{step, walker.Complaints().front(), walker.Trail()};
  }
  return std::nullopt;
}

Walk Shrink(Walk walk, WalkKind kind) {
  if (const auto failure = RunWalk(walk, kind)) walk.resize(failure->step + 1);
  for (std::size_t piece = walk.size() / 2; piece > 0; piece = piece > 1 ? piece / 2 : 0) {
    for (std::size_t start = 0; start < walk.size();) {
      Walk shorter = walk;
      const auto from = shorter.begin() + static_cast<std::ptrdiff_t>(start);
      shorter.erase(from, from + static_cast<std::ptrdiff_t>(std::min(piece, walk.size() - start)));
      if (!shorter.empty() && RunWalk(shorter, kind)) {
        walk = std::move(shorter);
      } else {
        start += piece;
      }
    }
  }
  return walk;
}

}  // namespace deck
