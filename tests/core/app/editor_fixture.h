// The whole program on the fakes, in the host's folder C:\Host.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/editor.h"
#include "platform/strings.h"
#include "tests/fakes/fake_background_work.h"
#include "tests/fakes/fake_clipboard.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
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

namespace deck {

inline const std::u16string kHostFolder = u"C:\\Host";
inline const std::u16string kOwnIni = u"C:\\Host\\WrenDeck.ini";
inline const std::u16string kHostIni = u"C:\\Host\\Wren.ini";
inline const std::u16string kHotasIni = u"C:\\Host\\HOTAS.ini";

class EditorFixture : public testing::Test {
 protected:
  EditorFixture() {
    files.AddFile(u"C:\\Host\\Wren.exe", "");
    files.AddFile(u"C:\\Host\\Wren.ini", "");
    files.AddFile(u"C:\\Host\\HOTASCompiler.exe", "");
    files.AddFolder(u"C:\\Host\\Files");
    view.makeEditBox = [](EditBox::Events boxEvents) {
      return std::make_unique<FakeEditBox>(std::move(boxEvents));
    };
    events.onTimer = [this](TimerId timer) { editor.OnTimer(timer); };
    events.pumpStep = 100;
  }

  ~EditorFixture() override {
    EXPECT_TRUE(prompts.unexpected.empty()) << "a question came that the test did not foresee";
    EXPECT_EQ(dialogs.unexpected, 0);
  }

  void Start(std::u16string_view commandLine = u"WrenDeck.exe") {
    ASSERT_TRUE(editor.Load(kHostFolder, commandLine));
  }
  // A file whose path holds no blank, named on the command line.
  void StartWith(const std::u16string& path, const std::string& bytes) {
    files.AddFile(path, bytes);
    Start(u"WrenDeck.exe " + path);
  }
  void Open(const std::u16string& path) {
    dialogs.openResults.push_back(path);
    editor.Execute(CommandId::kFileOpen);
  }
  FakeEditBox& Box() { return dynamic_cast<FakeEditBox&>(editor.Documents().GetCurrentTextBox()); }
  const std::u16string& Panel(int number) const { return view.Panel(number); }
  std::u16string Own(std::u16string_view section, std::u16string_view key) const {
    return profiles.Value(kOwnIni, section, key);
  }
  // The compiler's report appears with the next pump.
  void CompilerReports(const std::u16string& status, int line, int memory,
                       const std::u16string& error) {
    events.actions.push_back([this, status, line, memory, error] {
      const auto write = [this](std::u16string_view key, const std::u16string& value) {
        EXPECT_TRUE(profiles.WriteText(kHotasIni, u"Compiler", key, value));
      };
      write(u"LineNumber", Decimal(line));
      write(u"Memory", Decimal(memory));
      write(u"ErrorCode", error);
      write(u"Status", status);
    });
  }

  FakeMainWindowView view;
  FakeMacroPanelView panel;
  FakeFiles files;
  FakeProfileFiles profiles;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakePrograms programs{files};
  FakeEventLoop events;
  FakeKeyboard keyboard;
  FakeCodePage codePage;
  FakeSystemInfo system;
  FakeHelpSystem help;
  FakeInfoWindowView infoWindow;
  FakePrinter printer;
  FakeClipboard clipboard;
  FakeKeyTestView keyTest;
  FakeFindDialogView findDialog{prompts};
  FakeBackgroundWork background;
  EditorPorts ports{view,       panel,   files,     profiles, dialogs,    prompts,
                    programs,   events,  keyboard,  codePage, system,     help,
                    infoWindow, printer, clipboard, keyTest,  findDialog, background};
  Editor editor{ports};
};

}  // namespace deck
