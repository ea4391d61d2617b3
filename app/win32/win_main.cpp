// The program's entry: makes the real side of every port, the editor and its window, and runs until
// the window is closed.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <string>
#include <vector>

#include "app/editor.h"
#include "app/win32/main_window.h"
#include "find/win32/find_and_replace_window.h"
#include "help/win32/info_window.h"
#include "keytest/win32/key_test_form.h"
#include "platform/background_thread.h"
#include "platform/strings.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/wide_text.h"
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
namespace {

// Libraries come from the system's folder only: one that lies beside a document or beside the
// program must not be taken for the system's.
void NarrowLibrarySearch() {
  SetDllDirectoryW(L"");
  using Function = BOOL WINAPI(DWORD);
  auto* setDirectories = reinterpret_cast<Function*>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
  if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

class Ole {
 public:
  Ole() : result_(OleInitialize(nullptr)) {}
  ~Ole() {
    if (SUCCEEDED(result_)) OleUninitialize();
  }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;

 private:
  HRESULT result_;
};

void PrepareControls() {
  const INITCOMMONCONTROLSEX controls = {sizeof controls,
                                         ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
}

// Without a trailing "\".
std::u16string ApplicationFolder() {
  std::vector<wchar_t> path(MAX_PATH);
  DWORD length = 0;
  while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) >=
         path.size()) {
    path.resize(2 * path.size());
  }
  std::u16string folder(FolderOf(FromWide({path.data(), length})));
  if (folder.ends_with(u'\\')) folder.pop_back();
  return folder;
}

// The window and the panel report to the editor as long as this object lives.
class Connection {
 public:
  Connection(MainWindow& window, Editor& editor) : window_(window) {
    ConnectWindow(editor);
    ConnectMacroPanel(editor.Macros());
  }
  ~Connection() {
    window_.events = {};
    window_.MacroPanel().events = {};
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  void ConnectWindow(Editor& editor) {
    MainWindow::Events& events = window_.events;
    events.execute = [&editor](CommandId command) { editor.Execute(command); };
    events.menuOpening = [&editor](Menu menu) { editor.OnMenuOpening(menu); };
    events.tabClicked = [&editor](int position) { editor.OnTabClicked(position); };
    events.tabMiddleClicked = [&editor](int position) { editor.OnTabMiddleClicked(position); };
    events.tabHovered = [&editor](int position) { editor.OnTabHovered(position); };
    events.toolbarHovered = [&editor](CommandId command) { editor.OnToolbarHovered(command); };
    events.statusBarHovered = [&editor] { editor.OnStatusBarHovered(); };
    events.filesDropped = [&editor](const std::vector<std::u16string>& paths) {
      editor.OnFilesDropped(paths);
    };
    events.timer = [&editor](TimerId timer) { editor.OnTimer(timer); };
    events.focused = [&editor] { editor.OnFocus(); };
    events.keysAndClock = [&editor](bool insertMode, const std::u16string& clock) {
      editor.OnKeysAndClock(insertMode, clock);
    };
    events.lookedAt = [&editor](bool lookedAt) { editor.OnLookedAt(lookedAt); };
    events.queryUnload = [&editor] { return editor.QueryUnload(); };
    events.unload = [&editor] { editor.Unload(); };
    events.stayOpen = [&editor] { editor.StayOpen(); };
    events.minimised = [&editor](bool minimised) {
      if (minimised) editor.OnMinimised();
    };
  }

  void ConnectMacroPanel(MacroPanel& panel) {
    MacroPanelWindow::Events& events = window_.MacroPanel().events;
    events.headingChosen = [&panel](int index) { panel.OnHeadingChosen(index); };
    events.headingPointer = [&panel] { panel.OnHeadingPointer(); };
    events.macroClicked = [&panel](int index) { panel.OnMacroClicked(index); };
    events.macroDoubleClicked = [&panel](int index) { panel.OnMacroDoubleClicked(index); };
    events.listKey = [&panel] { panel.OnListKey(); };
    events.listPointer = [&panel] { panel.OnListPointer(); };
    events.dragStarted = [&panel](int index) { return panel.OnDragStarted(index); };
    events.splitterDragged = [&panel](int width) { panel.OnSplitterDragged(width); };
  }

  MainWindow& window_;
};

int RunEditor() {
  MainWindow window;
  // Boxes of the start stand alone: nobody has seen the window yet.
  const auto owner = [&window]() -> HWND {
    return IsWindowVisible(window.Handle()) ? window.Handle() : nullptr;
  };
  MessageLoop loop;
  KeyTestForm keyTest(loop);  // the first to see a key, since every key may be one to be tested
  loop.SetShortcuts(window.Handle(), window.Shortcuts());
  Win32CodePage codePage;
  Win32Files files;
  BackgroundThread background;
  Win32ProfileFiles profiles(codePage);
  Win32FileDialogs dialogs(owner);
  Win32Prompts prompts(owner);
  Win32Programs programs;
  Win32EventLoop eventLoop(window.Handle(), loop);
  Win32Keyboard keyboard;
  Win32SystemInfo system;
  Win32HelpSystem help(window.Handle());
  loop.AddFilter([&window](MSG& message) { return window.Watch(message); });
  loop.AddFilter([&help](MSG& message) { return help.Translate(message); });

  InfoWindow infoWindow(window.Handle(), loop);
  FindAndReplaceWindow findDialog(window.Handle(), loop);
  loop.AddFilter([&findDialog](MSG& message) { return findDialog.TakeKey(message); });
  Win32Printer printer(owner);
  Win32Clipboard clipboard([&window] { return window.Handle(); });

  Editor editor({window, window.MacroPanel(), files, profiles, dialogs, prompts, programs,
                 eventLoop, keyboard, codePage, system, help, infoWindow, printer, clipboard,
                 keyTest, findDialog, background});
  infoWindow.events = {
      .closeWanted = [&editor] { editor.InfoPages().Close(); },
      .overOk = [&editor] { editor.InfoPages().OnHoverOk(); },
      .overText = [&editor] { editor.InfoPages().OnHoverText(); },
  };
  const Connection connection(window, editor);
  if (!editor.Load(ApplicationFolder(), FromWide(GetCommandLineW()))) return 1;
  // After an update or a crash Windows starts the program again, and unsaved texts come back. Where
  // it cannot, the user starts it.
  static_cast<void>(RegisterApplicationRestart(L"", 0));
  window.Show();
  return loop.Run();
}

}  // namespace
}  // namespace deck

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  deck::NarrowLibrarySearch();
  const deck::Ole ole;
  deck::PrepareControls();
  return deck::RunEditor();
}
