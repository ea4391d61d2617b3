// A machine that outlives the programs on it, and the whole program on the fakes, which can be
// ended and started again.
#pragma once

#include <memory>
#include <string>

#include "app/editor.h"
#include "tests/fakes/fake_background_work.h"
#include "tests/fakes/fake_clipboard.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_find_dialog_view.h"
#include "tests/fakes/fake_help_system.h"
#include "tests/fakes/fake_info_window_view.h"
#include "tests/fakes/fake_key_test_view.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_macro_panel_view.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_printer.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_prompts.h"
#include "tests/fakes/fake_system_info.h"
#include "tests/model/model_files.h"

namespace deck {

struct Machine {
  ModelFiles files;
  FakeProfileFiles profiles;
  FakeCodePage codePage;
  FakeClipboard clipboard;
  FakeKeyboard keyboard;
  FakeSystemInfo system;
};

// One run of the program, from its start until it ends or is killed (which is going out of scope).
class ProgramRun {
 public:
  explicit ProgramRun(Machine& machine)
      : prompts(), programs(machine.files), findDialog(prompts), editor(PortsOn(machine)) {
    view.makeEditBox = [](EditBox::Events boxEvents) {
      return std::make_unique<FakeEditBox>(std::move(boxEvents));
    };
    events.onTimer = [this](TimerId timer) { editor.OnTimer(timer); };
    events.pumpStep = 250;
  }

  FakeEditBox& Box(int index) {
    return dynamic_cast<FakeEditBox&>(*editor.Documents()[index].text1);
  }

  FakeMainWindowView view;
  FakeMacroPanelView panel;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakePrograms programs;
  FakeEventLoop events;
  FakeHelpSystem help;
  FakeInfoWindowView infoWindow;
  FakePrinter printer;
  FakeKeyTestView keyTest;
  FakeFindDialogView findDialog;
  FakeBackgroundWork background;
  Editor editor;

 private:
  EditorPorts PortsOn(Machine& machine) {
    return {view,       panel,   machine.files,     machine.profiles, dialogs,        prompts,
            programs,   events,  machine.keyboard,  machine.codePage, machine.system, help,
            infoWindow, printer, machine.clipboard, keyTest,          findDialog,     background};
  }
};

}  // namespace deck
