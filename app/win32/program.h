// The whole program: the real side of every port, the windows and the editor, connected. Made by
// the program's entry, and by what wants to drive the program from inside; one at a time.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "app/editor.h"
#include "app/win32/main_window.h"
#include "find/win32/find_and_replace_window.h"
#include "help/win32/info_window.h"
#include "keytest/win32/key_test_form.h"
#include "platform/background_thread.h"
#include "platform/win32/box_owner.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/ole.h"
#include "platform/win32/win32_clipboard.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_dialogs.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_help_system.h"
#include "platform/win32/win32_keyboard.h"
#include "platform/win32/win32_printer.h"
#include "platform/win32/win32_profile_files.h"
#include "platform/win32/win32_programs.h"
#include "platform/win32/win32_prompts.h"
#include "platform/win32/win32_system_info.h"

namespace deck {

class Program {
 public:
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // As Editor::Load.
  [[nodiscard]] bool Load(const std::u16string& applicationFolder, std::u16string_view commandLine);
  // Listens to later starts, which may hand over their files.
  void TakeHandedOverFiles();
  // Shows the window and runs until it is closed; gives the exit code.
  int Run();

  MainWindow& Window() { return window_; }
  MessageLoop& Loop() { return loop_; }
  Editor& TheEditor() { return editor_; }

 private:
  // What windows need before the first of them is made.
  class WindowSystem {
   public:
    WindowSystem();

   private:
    Ole ole_;
  };

  void FilterMessages();
  void ConnectWindow();
  void ConnectMacroPanel();
  void ConnectInfoWindow();

  // The order is that of making: what stands below uses what stands above.
  WindowSystem windowSystem_;
  MainWindow window_;
  MessageLoop loop_;
  KeyTestForm keyTest_{loop_};  // the first to see a key, since every key may be one to be tested
  Win32CodePage codePage_;
  Win32Files files_;
  Win32ProfileFiles profiles_{codePage_};
  BackgroundThread background_;
  Win32FileDialogs dialogs_{[this] { return OwnerOfBoxes(window_.Handle()); }};
  Win32Prompts prompts_{[this] { return OwnerOfBoxes(window_.Handle()); }};
  Win32Programs programs_;
  Win32EventLoop eventLoop_{window_.Handle(), loop_};
  Win32Keyboard keyboard_;
  Win32SystemInfo system_;
  Win32HelpSystem help_{window_.Handle()};
  InfoWindow infoWindow_{window_.Handle(), loop_};
  FindAndReplaceWindow findDialog_{window_.Handle(), loop_};
  Win32Printer printer_{[this] { return OwnerOfBoxes(window_.Handle()); }};
  Win32Clipboard clipboard_{[this] { return window_.Handle(); }};
  Editor editor_;
};

}  // namespace deck
