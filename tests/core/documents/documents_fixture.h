// Documents and file commands on the fakes, with one empty untitled tab, as after the start.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "documents/document_set.h"
#include "documents/file_commands.h"
#include "documents/status_bar.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {

class DocumentsFixture : public testing::Test {
 protected:
  DocumentsFixture() {
    view.makeEditBox = [](EditBox::Events boxEvents) {
      return std::make_unique<FakeEditBox>(std::move(boxEvents));
    };
    settings.FilesFolder = u"C:\\Host\\Files\\";
    files.AddFolder(u"C:\\Host\\Files");
    documents.refreshMacros = [this](Document& document) {
      refreshedMacrosOf.push_back(document.caption);
    };
    commands.links.keepText = [this](const Document& document) {
      kept.push_back(document.path + u"|" + document.text1->Text());
      keptOver.push_back(files.Content(document.path));
    };
    commands.links.addRecentFile = [this](const std::u16string& path) { recent.push_back(path); };
    commands.links.showMacrosOf = [this](const std::u16string& path) {
      macrosShown.push_back(path);
    };
    commands.links.detectMacroFile = [this](std::u16string_view extension,
                                            const std::u16string& folder) {
      detected.emplace_back(std::u16string(extension) + u"|" + folder);
      if (onDetect) onDetect();
    };
    commands.links.clearMacros = [this] { ++macrosCleared; };
    commands.links.updateMacroList = [this] {
      ++macrosUpdated;
      if (onUpdateMacros) onUpdateMacros();
    };
    documents.Add();
    documents.Select(0);
    refreshedMacrosOf.clear();
  }

  ~DocumentsFixture() override {
    EXPECT_TRUE(prompts.unexpected.empty()) << "a question came that the test did not foresee";
    EXPECT_EQ(dialogs.unexpected, 0);
  }

  FakeEditBox& Box(int index) { return dynamic_cast<FakeEditBox&>(*documents[index].text1); }
  FakeEditBox& Box() { return Box(documents.CurrentIndex()); }
  const std::u16string& Panel(int panel) const { return view.Panel(panel); }

  // Opens through the dialog.
  void Open(const std::u16string& path) {
    dialogs.openResults.push_back(path);
    commands.FileOpen();
  }
  void OpenNew(const std::u16string& path, std::string_view bytes) {
    files.AddFile(path, bytes);
    Open(path);
  }

  FakeMainWindowView view;
  FakeKeyboard keyboard;
  FakeFiles files;
  FakeFileDialogs dialogs;
  FakePrompts prompts;
  FakeEventLoop events;
  FakeCodePage codePage;
  Settings settings;
  StatusBar status{view};
  DocumentSet documents{view, status, keyboard, settings};
  FileCommands commands{documents, status, settings, {files, dialogs, prompts, events, codePage}};

  std::vector<std::u16string> refreshedMacrosOf;
  std::vector<std::u16string> recent;
  // Path and text of what was kept before a file was written over, and the file as it was then.
  std::vector<std::u16string> kept;
  std::vector<std::string> keptOver;
  std::vector<std::u16string> macrosShown;
  std::vector<std::u16string> detected;
  int macrosCleared = 0;
  int macrosUpdated = 0;
  std::function<void()> onDetect;
  std::function<void()> onUpdateMacros;
};

}  // namespace deck
