#include <utility>

#include "tests/contract/worlds.h"
#include "tests/fakes/fake_clipboard.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_help_system.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_prompts.h"
#include "tests/fakes/fake_system_info.h"

namespace deck {
namespace {

constexpr char16_t kFolder[] = u"C:\\Temp\\deck test";
constexpr std::u16string_view kProgram = u"C:\\report.exe ";

class FakeFilesWorld : public FilesWorld {
 public:
  FakeFilesWorld() { files_.AddFolder(kFolder); }

  Files& Port() override { return files_; }
  std::u16string Folder() const override { return kFolder; }
  void SetReadOnly(const std::u16string& path, bool readOnly) override {
    files_.SetReadOnly(path, readOnly);
  }
  int CountFiles() const override { return static_cast<int>(files_.AllFiles().size()); }

 private:
  FakeFiles files_;
};

class FakeProfileWorld : public ProfileWorld {
 public:
  ProfileFiles& Port() override { return profiles_; }
  std::u16string Path() const override { return u"C:\\Temp\\test.ini"; }
  std::u16string UnwritablePath() override {
    profiles_.writable = false;
    return u"C:\\Temp\\missing\\test.ini";
  }
  void SetContent(const std::u16string& text) override { profiles_.SetText(Path(), text); }
  std::u16string Content() const override { return profiles_.Text(Path()); }

 private:
  FakeProfileFiles profiles_;
};

class FakeProgramsWorld : public ProgramsWorld {
 public:
  FakeProgramsWorld() { files_.AddFolder(kFolder); }

  Programs& Port() override { return programs_; }
  Files& FilesPort() override { return files_; }
  std::u16string Folder() const override { return kFolder; }
  std::u16string ReportingCommand(const std::u16string& argument) const override {
    return std::u16string(kProgram) + argument;
  }
  std::u16string MakeProgram(const std::u16string& name) override {
    files_.AddFile(In(name), "");
    return In(name);
  }
  std::u16string ReportingArguments(const std::u16string& argument) const override {
    return argument;
  }
  std::optional<Report> WaitForReport() override {
    if (programs_.started.empty()) return std::nullopt;
    const FakePrograms::Started& last = programs_.started.back();
    const std::size_t name = last.program.empty() ? kProgram.size() : last.program.size() + 1;
    return Report{last.commandLine.substr(name), last.currentFolder, static_cast<int>(last.window)};
  }
  std::u16string ImpossibleCommand() override {
    programs_.refuses = true;
    return u"C:\\missing.exe";
  }

 private:
  static std::u16string In(const std::u16string& name) {
    return std::u16string(kFolder) + u"\\" + name;
  }

  FakeFiles files_;
  FakePrograms programs_{files_};
};

class FakeEventLoopWorld : public EventLoopWorld {
 public:
  EventLoop& Port() override { return events_; }
  void OnTimer(std::function<void(TimerId)> tick) override { events_.onTimer = std::move(tick); }
  void Post(std::function<void()> action) override { events_.actions.push_back(std::move(action)); }
  void Wait(int milliseconds) override { events_.now += milliseconds; }
  int Now() const override { return events_.now; }

 private:
  FakeEventLoop events_;
};

class FakeKeyboardWorld : public KeyboardWorld {
 public:
  Keyboard& Port() override { return keyboard_; }
  void Switch(ToggleKey key, bool on) override {
    if (on) {
      keyboard_.on.insert(key);
    } else {
      keyboard_.on.erase(key);
    }
  }

 private:
  FakeKeyboard keyboard_;
};

class FakePromptsWorld : public PromptsWorld {
 public:
  Prompts& Port() override { return prompts_; }
  void WillAnswer(Answer answer) override { prompts_.answers = {answer}; }
  std::u16string SeenText() const override { return prompts_.shown.back().text; }
  std::u16string SeenTitle() const override { return prompts_.shown.back().title; }

 private:
  FakePrompts prompts_;
};

class FakeClipboardWorld : public ClipboardWorld {
 public:
  Clipboard& Port() override { return clipboard_; }
  void PutByOthers(std::u16string_view text) override { clipboard_.PutByOthers(text); }
  void PutPicture() override { clipboard_.PutPicture(); }
  std::u16string SeenByOthers() const override { return clipboard_.SeenByOthers().value(); }
  void KeepOpen(bool open) override { clipboard_.busy = open; }

 private:
  FakeClipboard clipboard_;
};

class FakeFileDialogsWorld : public FileDialogsWorld {
 public:
  FileDialogs& Port() override { return dialogs_; }
  std::u16string Folder() const override { return kFolder; }
  void WillChoose(const std::vector<std::u16string>& names) override {
    dialogs_.openResults = {FakeFileDialogs::Selection(kFolder, names)};
    dialogs_.saveResults = {SaveChoice{FakeFileDialogs::Selection(kFolder, names), 2}};
  }
  void WillCancel() override {
    dialogs_.openResults = {std::nullopt};
    dialogs_.saveResults = {std::nullopt};
  }

 private:
  FakeFileDialogs dialogs_;
};

class FakeHelpSystemWorld : public HelpSystemWorld {
 public:
  HelpSystem& Port() override { return help_; }
  int HelpWindows() const override { return 0; }  // the stand-in only remembers

 private:
  FakeHelpSystem help_;
};

}  // namespace

std::unique_ptr<CodePage> MakeWesternCodePage() {
  return std::make_unique<FakeCodePage>();
}
std::unique_ptr<FilesWorld> MakeFilesWorld() {
  return std::make_unique<FakeFilesWorld>();
}
std::unique_ptr<ProfileWorld> MakeProfileWorld() {
  return std::make_unique<FakeProfileWorld>();
}
std::unique_ptr<ProgramsWorld> MakeProgramsWorld() {
  return std::make_unique<FakeProgramsWorld>();
}
std::unique_ptr<EventLoopWorld> MakeEventLoopWorld() {
  return std::make_unique<FakeEventLoopWorld>();
}
std::unique_ptr<KeyboardWorld> MakeKeyboardWorld() {
  return std::make_unique<FakeKeyboardWorld>();
}
std::unique_ptr<PromptsWorld> MakePromptsWorld() {
  return std::make_unique<FakePromptsWorld>();
}
std::unique_ptr<ClipboardWorld> MakeClipboardWorld() {
  return std::make_unique<FakeClipboardWorld>();
}
std::unique_ptr<FileDialogsWorld> MakeFileDialogsWorld() {
  return std::make_unique<FakeFileDialogsWorld>();
}

std::unique_ptr<HelpSystemWorld> MakeHelpSystemWorld() {
  return std::make_unique<FakeHelpSystemWorld>();
}
std::unique_ptr<SystemInfo> MakeSystemInfo() {
  return std::make_unique<FakeSystemInfo>();
}

}  // namespace deck
