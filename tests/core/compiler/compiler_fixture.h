// The compiler link on the fakes: the host's folder is C:\HOTAS, and two joystick files and a macro
// file are open on tabs of their own, the first one selected. What the commands do is logged in the
// order in which a user could notice it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/compile_command.h"
#include "compiler/hotas_ini.h"
#include "compiler/run_and_report.h"
#include "compiler/run_and_wait.h"
#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/strings.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {

using Log = std::vector<std::u16string>;

class LoggingView : public FakeMainWindowView {
 public:
  explicit LoggingView(Log& log) : log_(log) {}
  void SetPanel(int panel, const std::u16string& text) override {
    FakeMainWindowView::SetPanel(panel, text);
    if (panel == kMessagePanel) log_.push_back(u"status: " + text);
  }
  void Refresh() override {
    FakeMainWindowView::Refresh();
    log_.push_back(u"refresh");
  }

 private:
  Log& log_;
};

class LoggingFiles : public FakeFiles {
 public:
  explicit LoggingFiles(Log& log) : log_(log) {}
  bool SetCurrentFolder(const std::u16string& path) override {
    log_.push_back(u"folder: " + path);
    return FakeFiles::SetCurrentFolder(path);
  }

 private:
  Log& log_;
};

class LoggingProfiles : public FakeProfileFiles {
 public:
  explicit LoggingProfiles(Log& log) : log_(log) {}
  bool WriteText(const std::u16string& file, std::u16string_view section, std::u16string_view key,
                 std::u16string_view value) override {
    log_.push_back(u"ini: " + std::u16string(key) + u"=" + std::u16string(value));
    return FakeProfileFiles::WriteText(file, section, key, value);
  }

 private:
  Log& log_;
};

class CompilerFixture : public testing::Test {
 protected:
  static constexpr char16_t kReportFile[] = u"C:\\HOTAS\\HOTAS.ini";
  static constexpr char16_t kHostFile[] = u"C:\\HOTAS\\Wren.ini";
  static constexpr char16_t kCompiler[] = u"C:\\HOTAS\\HOTASCompiler.exe";

  CompilerFixture() {
    settings.applicationFolder = u"C:\\HOTAS";
    settings.HostPath = kHostFile;
    settings.CompilerFolder = u"C:\\HOTAS\\";
    settings.CompilerPath = kCompiler;
    files.AddFile(kCompiler, "");
    JoinPorts();
    JoinCommands();
    AddFile(u"first.tmj", u"rem first\nbtn s1 a\nbtn s2 b\n");
    AddFile(u"second.tmj", u"rem second\nbtn s1 c");
    AddFile(u"macros.tmm", u"FIRE = x\n");
    documents.Select(0);
    log.clear();
  }

  ~CompilerFixture() override {
    EXPECT_TRUE(prompts.unexpected.empty()) << "a question came that the test did not foresee";
  }

  // Opens a saved file on a new tab.
  void AddFile(const std::u16string& name, std::u16string_view text) {
    const std::u16string path = u"C:\\Files\\" + name;
    files.AddFile(path, "saved");
    documents.Add();
    documents.Rename(documents.CurrentIndex(), path);
    Box().Load(text);
  }

  // What the compiler leaves in the file that many milliseconds after its start; -1 for never.
  void CompilerReports(int milliseconds, const std::u16string& lines) {
    reportAfter_ = milliseconds;
    report_ = u"[Compiler]\n" + lines;
  }
  void CompilerSucceeds() { CompilerReports(0, u"Status=OK\nMemory=34\n"); }
  void CompilerFailsAtLine(int line) {
    CompilerReports(0,
                    u"Status=ERROR\nLineNumber=" + Decimal(line) + u"\nErrorCode=no such macro\n");
  }
  void CompilerNeverReports() { CompilerReports(-1, u""); }

  // Wren.ini's values; empty for none.
  void SetWait(const std::u16string& limit, const std::u16string& interval) {
    profiles.SetText(kHostFile, u"[Unsupported]\nRegainControlAfter=" + limit +
                                    u"\nCheckForCompletionTime=" + interval + u"\n");
    wait.ReadWaitSettings();
  }

  // Runs while the command waits: `action` at the pump of that number, from 1.
  void AtPump(std::size_t number, std::function<void()> action) {
    while (events.actions.size() < number) events.actions.emplace_back([] {});
    events.actions[number - 1] = std::move(action);
  }

  FakeEditBox& Box(int index) { return dynamic_cast<FakeEditBox&>(*documents[index].text1); }
  FakeEditBox& Box() { return Box(documents.CurrentIndex()); }
  std::u16string SelectedText(int index) {
    const TextSpan span = Box(index).Selection();
    return Box(index).Text().substr(static_cast<std::size_t>(span.start),
                                    static_cast<std::size_t>(span.length));
  }
  const std::u16string& Status() const { return view.Panel(kMessagePanel); }
  std::vector<std::u16string> BoxTitles() const {
    std::vector<std::u16string> titles;
    for (const Message& message : prompts.shown) titles.push_back(message.title);
    return titles;
  }
  std::vector<std::u16string> CommandLines() const {
    std::vector<std::u16string> lines;
    for (const auto& program : programs.started) lines.push_back(program.commandLine);
    return lines;
  }

  Log log;
  LoggingView view{log};
  LoggingFiles files{log};
  LoggingProfiles profiles{log};
  FakeKeyboard keyboard;
  FakePrompts prompts;
  FakeEventLoop events;
  FakePrograms programs{files};
  Settings settings;

  StatusBar status{view};
  DocumentSet documents{view, status, keyboard, settings};
  HotasIni hotasIni{profiles, settings};
  RunAndWait wait{hotasIni, documents, settings, {profiles, files, programs, events}};
  RunAndReport runAndReport{hotasIni, wait, documents, status, settings, {view, prompts, events}};
  CompileCommand compile{documents, settings, wait, runAndReport, {files, prompts}};

  bool closing = false;
  std::function<void()> onSave;  // of the current document
  std::vector<std::u16string> refreshedMacrosOf;
  int ticks = 0;     // of DownloadTimer
  int lastTick = 0;  // time in milliseconds

 private:
  void JoinPorts() {
    prompts.onShow = [this](const Message& message) { log.push_back(u"box: " + message.title); };
    programs.onStart = [this](const FakePrograms::Started& program) {
      log.push_back(u"start: " + program.commandLine);
      if (!program.commandLine.starts_with(kCompiler)) return;
      reportDue_ = reportAfter_ < 0 ? -1 : events.now + reportAfter_;
    };
    events.onTimer = [this](TimerId timer) {
      if (timer == TimerId::kTimer1) {
        events.StopTimer(timer);
        documents.CompilerBusy = 0;
      }
      if (timer != TimerId::kDownloadTimer) return;
      ++ticks;
      lastTick = events.now;
      if (reportDue_ >= 0 && events.now >= reportDue_) profiles.SetText(kReportFile, report_);
      wait.DownloadTimer_Timer();
    };
  }

  void JoinCommands() {
    wait.closing = [this] { return closing; };
    compile.links.saveCurrentDocument = [this] {
      log.push_back(u"save");
      if (onSave) onSave();
    };
    compile.links.minimiseFind = [this] { log.push_back(u"minimise find"); };
    compile.links.minimiseQuickHelp = [this] { log.push_back(u"minimise quick help"); };
    compile.links.unloadKeyTester = [this] { log.push_back(u"unload key tester"); };
    documents.refreshMacros = [this](Document& document) {
      refreshedMacrosOf.push_back(document.caption);
    };
  }

  int reportAfter_ = 0;
  int reportDue_ = -1;
  std::u16string report_ = u"[Compiler]\nStatus=OK\nMemory=34\n";
};

}  // namespace deck
