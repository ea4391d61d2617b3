// Find, replace and goto line on the fakes, with one document that is called a.tmj.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "find/find_and_replace.h"
#include "tests/fakes/fake_edit_box.h"
#include "tests/fakes/fake_find_dialog_view.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {

class FindFixture : public testing::Test {
 protected:
  FindFixture() {
    window.makeEditBox = [](EditBox::Events boxEvents) {
      return std::make_unique<FakeEditBox>(std::move(boxEvents));
    };
    documents.Add();
    documents.Rename(0, u"C:\\a.tmj");
    documents.Select(0);
  }

  // Another document, selected.
  FakeEditBox& AddDocument(const std::u16string& path, std::u16string_view text) {
    documents.Add();
    documents.Rename(documents.Count() - 1, path);
    documents.Select(documents.Count() - 1);
    Box().Load(text);
    return Box();
  }

  FakeEditBox& Box() { return dynamic_cast<FakeEditBox&>(documents.GetCurrentTextBox()); }
  const std::u16string& Line() const { return window.Panel(kLinePanel); }
  std::u16string Caption(FindControl button) const { return dialog.Text(button); }

  // The dialog on its Find page with a text to search for.
  void OpenFind(const std::u16string& text) {
    find.mnuFRGArray(0);
    dialog.Type(FindControl::kComboTextFind, text);
  }
  void OpenReplace(const std::u16string& text, const std::u16string& with) {
    find.mnuFRGArray(1);
    dialog.Type(FindControl::kComboTextReplaceFind, text);
    dialog.Type(FindControl::kComboTextReplaceWith, with);
  }
  void GoTo(const std::u16string& line) {
    find.mnuFRGArray(2);
    dialog.Type(FindControl::kLineToFind, line);
    dialog.Click(FindControl::kCommand7);
  }
  // The texts that were told since the last call.
  std::vector<Message> Told() { return std::exchange(prompts.shown, {}); }

  FakeMainWindowView window;
  FakeKeyboard keyboard;
  FakePrompts prompts;
  FakeFindDialogView dialog{prompts};
  Settings settings;
  StatusBar status{window};
  DocumentSet documents{window, status, keyboard, settings};
  FindAndReplace find{documents, status, dialog};
};

}  // namespace deck
