// What the cases need of the place they run in, next to the port itself. fake_worlds.cpp makes them
// of the stand-ins, win32/ of the real system; a program is linked to one of the two.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/help_system.h"
#include "platform/keyboard.h"
#include "platform/profile_files.h"
#include "platform/programs.h"
#include "platform/prompts.h"
#include "platform/system_info.h"

namespace deck {

// Windows code page 1252; null where the system has another one.
std::unique_ptr<CodePage> MakeWesternCodePage();

class FilesWorld {
 public:
  virtual ~FilesWorld() = default;
  virtual Files& Port() = 0;
  // An empty folder of the test's own, without "\" at the end. The current folder is another one.
  virtual std::u16string Folder() const = 0;
  virtual void SetReadOnly(const std::u16string& path, bool readOnly) = 0;
  virtual int CountFiles() const = 0;  // in Folder()
};
std::unique_ptr<FilesWorld> MakeFilesWorld();

class ProfileWorld {
 public:
  virtual ~ProfileWorld() = default;
  virtual ProfileFiles& Port() = 0;
  // Of a file that is not there yet.
  virtual std::u16string Path() const = 0;
  // A path at which no file can be made.
  virtual std::u16string UnwritablePath() = 0;
  virtual void SetContent(const std::u16string& text) = 0;
  virtual std::u16string Content() const = 0;
};
std::unique_ptr<ProfileWorld> MakeProfileWorld();

class ProgramsWorld {
 public:
  // What a program knows about its own start.
  struct Report {
    std::u16string argument;
    std::u16string currentFolder;
    int window = 0;

    friend bool operator==(const Report&, const Report&) = default;
  };

  virtual ~ProgramsWorld() = default;
  virtual Programs& Port() = 0;
  virtual Files& FilesPort() = 0;
  // Existing folders with no program in them, without "\" at the end.
  virtual std::u16string Folder() const = 0;
  // Starts a program that reports.
  virtual std::u16string ReportingCommand(const std::u16string& argument) const = 0;
  // Puts the program that reports into Folder(), under this name, and gives its path, which is
  // empty when that failed.
  virtual std::u16string MakeProgram(const std::u16string& name) = 0;
  // What makes it report, behind its name in a command line.
  virtual std::u16string ReportingArguments(const std::u16string& argument) const = 0;
  // Waits for the report of the last program; nothing when none came.
  virtual std::optional<Report> WaitForReport() = 0;
  // Names a program that the system does not start.
  virtual std::u16string ImpossibleCommand() = 0;
};
std::unique_ptr<ProgramsWorld> MakeProgramsWorld();

class EventLoopWorld {
 public:
  virtual ~EventLoopWorld() = default;
  virtual EventLoop& Port() = 0;
  virtual void OnTimer(std::function<void(TimerId)> tick) = 0;
  // Leaves the action to be run by a pump.
  virtual void Post(std::function<void()> action) = 0;
  // Lets the time pass without a pump.
  virtual void Wait(int milliseconds) = 0;
  virtual int Now() const = 0;  // milliseconds
};
std::unique_ptr<EventLoopWorld> MakeEventLoopWorld();

class KeyboardWorld {
 public:
  virtual ~KeyboardWorld() = default;
  virtual Keyboard& Port() = 0;
  virtual void Switch(ToggleKey key, bool on) = 0;
};
std::unique_ptr<KeyboardWorld> MakeKeyboardWorld();

class PromptsWorld {
 public:
  virtual ~PromptsWorld() = default;
  virtual Prompts& Port() = 0;
  // How the user answers the next box.
  virtual void WillAnswer(Answer answer) = 0;
  // The box as it was seen by the user.
  virtual std::u16string SeenText() const = 0;
  virtual std::u16string SeenTitle() const = 0;
};
std::unique_ptr<PromptsWorld> MakePromptsWorld();

class ClipboardWorld {
 public:
  virtual ~ClipboardWorld() = default;
  virtual Clipboard& Port() = 0;
  // As another program would.
  virtual void PutByOthers(std::u16string_view text) = 0;
  virtual void PutPicture() = 0;
  virtual std::u16string SeenByOthers() const = 0;
  virtual void KeepOpen(bool open) = 0;
};
std::unique_ptr<ClipboardWorld> MakeClipboardWorld();

class FileDialogsWorld {
 public:
  virtual ~FileDialogsWorld() = default;
  virtual FileDialogs& Port() = 0;
  // A folder that holds the files a.tmj and b.tmj and no others, without "\" at the end.
  virtual std::u16string Folder() const = 0;
  // How the user answers the next dialog: one or more names in that folder, or by cancelling.
  virtual void WillChoose(const std::vector<std::u16string>& names) = 0;
  virtual void WillCancel() = 0;
};
std::unique_ptr<FileDialogsWorld> MakeFileDialogsWorld();

class HelpSystemWorld {
 public:
  virtual ~HelpSystemWorld() = default;
  virtual HelpSystem& Port() = 0;
  // Of this process, shown or not.
  virtual int HelpWindows() const = 0;
};
std::unique_ptr<HelpSystemWorld> MakeHelpSystemWorld();

std::unique_ptr<SystemInfo> MakeSystemInfo();

}  // namespace deck
