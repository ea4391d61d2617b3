// What the benchmarks with windows work with: an application folder with files to open, the program
// running in this process, and a window with bare rich edit controls to compare it with.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "app/win32/program.h"
#include "tests/contract/win32/temporary_folder.h"

namespace deck {

// Entries of a full list of recent files.
inline constexpr std::int16_t kLongestRecentList = 30;

// The program's folder. Files are written with CR LF and in ASCII.
class ApplicationFolder {
 public:
  ApplicationFolder();

  const std::u16string& Path() const { return folder_.Path(); }
  std::u16string In(const std::u16string& name) const { return folder_.In(name); }
  // Gives the path of the file.
  std::u16string AddFile(const std::u16string& name, const std::u16string& text) const;
  // A joystick file and its macro file, each of so many lines; gives the path of the first.
  std::u16string AddPair(const std::u16string& name, int lines, int macroLines) const;
  // As long a list of recent files as the program keeps, of files that are not there.
  void FillRecentFiles() const;

 private:
  TemporaryFolder folder_;
};

// Dispatches with `loop` until nothing is pending, all painting included; gives the milliseconds
// that the longest message took.
double PumpUntilIdle(MessageLoop& loop);
// The same without a program.
void Pump();

// The program, started and shown at a fixed size.
class Session {
 public:
  explicit Session(const ApplicationFolder& folder);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Program& TheProgram() { return *program_; }
  Editor& TheEditor() { return program_->TheEditor(); }
  HWND Window() { return program_->Window().Handle(); }
  // Of the tab in front.
  HWND TextControl();
  double Pump() { return PumpUntilIdle(program_->Loop()); }
  // Opens without a dialog, as a file dropped on the window is.
  void Open(const std::u16string& path) { TheEditor().OnFilesDropped({path}); }
  // Until one empty untitled tab is left. Nothing may have been edited.
  void CloseAll();

 private:
  std::unique_ptr<Program> program_;
};

// A visible window for controls that are measured without the program.
class BenchWindow {
 public:
  BenchWindow();
  ~BenchWindow() { DestroyWindow(window_); }
  BenchWindow(const BenchWindow&) = delete;
  BenchWindow& operator=(const BenchWindow&) = delete;

  HWND Handle() const { return window_; }

 private:
  HWND window_;
};

// Rich edit controls, as the editor makes them, in a window with nothing else in it.
class BareControls {
 public:
  // `place` as in the editor's window.
  explicit BareControls(const RECT& place);

  // An empty control, hidden.
  HWND Add();

 private:
  BenchWindow window_;
  RECT place_;
  FontHandle font_;
};

}  // namespace deck
