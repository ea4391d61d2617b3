#include "app/win32/program.h"

#include <commctrl.h>

#include <vector>

#include "app/win32/running_editor.h"

namespace deck {

Program::WindowSystem::WindowSystem() {
  const INITCOMMONCONTROLSEX controls = {sizeof controls,
                                         ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
}

Program::Program()
    : editor_({window_, window_.MacroPanel(), files_, profiles_, dialogs_, prompts_, programs_,
               eventLoop_, keyboard_, codePage_, system_, help_, infoWindow_, printer_, clipboard_,
               keyTest_, findDialog_, background_}) {
  loop_.SetShortcuts(window_.Handle(), window_.Shortcuts());
  FilterMessages();
  ConnectWindow();
  ConnectMacroPanel();
  ConnectInfoWindow();
}

Program::~Program() {
  // The windows outlive the editor.
  window_.events = {};
  window_.MacroPanel().events = {};
  infoWindow_.events = {};
}

bool Program::Load(const std::u16string& applicationFolder, std::u16string_view commandLine) {
  return editor_.Load(applicationFolder, commandLine);
}

void Program::TakeHandedOverFiles() {
  window_.events.isWaiting = [this] { return loop_.IsWaiting(); };
  window_.events.fileHandedOver = [this](const std::u16string& path) {
    editor_.OnFileHandedOver(path);
  };
  LetItBeFound(window_.Handle());
}

int Program::Run() {
  window_.Show();
  return loop_.Run();
}

// Behind the key tester, which has signed itself on.
void Program::FilterMessages() {
  loop_.AddFilter([this](MSG& message) { return window_.Watch(message); });
  loop_.AddFilter([this](MSG& message) { return help_.Translate(message); });
  loop_.AddFilter([this](MSG& message) { return findDialog_.TakeKey(message); });
}

void Program::ConnectWindow() {
  window_.events = {
      .execute = [this](CommandId command) { editor_.Execute(command); },
      .menuOpening = [this](Menu menu) { editor_.OnMenuOpening(menu); },
      .tabClicked = [this](int position) { editor_.OnTabClicked(position); },
      .tabMiddleClicked = [this](int position) { editor_.OnTabMiddleClicked(position); },
      .tabHovered = [this](int position) { editor_.OnTabHovered(position); },
      .statusBarHovered = [this] { editor_.OnStatusBarHovered(); },
      .toolbarHovered = [this](CommandId command) { editor_.OnToolbarHovered(command); },
      .filesDropped =
          [this](const std::vector<std::u16string>& paths) { editor_.OnFilesDropped(paths); },
      .timer = [this](TimerId timer) { editor_.OnTimer(timer); },
      .focused = [this] { editor_.OnFocus(); },
      .keysAndClock =
          [this](bool insertMode, const std::u16string& clock) {
            editor_.OnKeysAndClock(insertMode, clock);
          },
      .minimised =
          [this](bool minimised) {
            if (minimised) editor_.OnMinimised();
          },
      .lookedAt = [this](bool lookedAt) { editor_.OnLookedAt(lookedAt); },
      .queryUnload = [this] { return editor_.QueryUnload(); },
      .unload = [this] { editor_.Unload(); },
      .isWaiting = {},  // TakeHandedOverFiles
      .fileHandedOver = {},
      .stayOpen = [this] { editor_.StayOpen(); },
  };
}

// One by one: the main window has set some of its own.
void Program::ConnectMacroPanel() {
  MacroPanelWindow::Events& events = window_.MacroPanel().events;
  MacroPanel& panel = editor_.Macros();
  events.headingChosen = [&panel](int index) { panel.OnHeadingChosen(index); };
  events.headingPointer = [&panel] { panel.OnHeadingPointer(); };
  events.macroClicked = [&panel](int index) { panel.OnMacroClicked(index); };
  events.macroDoubleClicked = [&panel](int index) { panel.OnMacroDoubleClicked(index); };
  events.listKey = [&panel] { panel.OnListKey(); };
  events.listPointer = [&panel] { panel.OnListPointer(); };
  events.dragStarted = [&panel](int index) { return panel.OnDragStarted(index); };
  events.splitterDragged = [&panel](int width) { panel.OnSplitterDragged(width); };
}

void Program::ConnectInfoWindow() {
  QuickHelp& pages = editor_.InfoPages();
  infoWindow_.events = {
      .closeWanted = [&pages] { pages.Close(); },
      .overOk = [&pages] { pages.OnHoverOk(); },
      .overText = [&pages] { pages.OnHoverText(); },
  };
}

}  // namespace deck
