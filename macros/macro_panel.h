// The macro panel (`FrameMacros`): which macro file is analysed, what it defines, what the panel
// beside the tabs shows of it, and how macros get from there into the text. Decides everything; the
// two controls behind MacroPanelView only show lists and report events. Owned by app/editor.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "macros/extract_macros.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/macro_panel_view.h"
#include "platform/main_window_view.h"
#include "platform/profile_files.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

// How the macro panel reaches the file commands; set by app/editor.
struct MacroPanelLinks {
  // Opens the macro file on a tab behind its joystick file, asking first when it is open already.
  // False when the answer was No.
  std::function<bool(const std::u16string& path)> openBehind;
  // Saves the current document. False when it was not saved.
  std::function<bool()> save;
};

class MacroPanel {
 public:
  struct Ports {
    const Files& files;
    const CodePage& codePage;
    Prompts& prompts;
    ProfileFiles& profiles;
    MainWindowView& window;
    MacroPanelView& view;
  };

  MacroPanel(DocumentSet& documents, StatusBar& status, Settings& settings, Ports ports);

  MacroPanelLinks links;

  // Finds the macro file that the joystick file in the current tab names and opens it. `extension`
  // (lower case, no dot) and `folder` (with its trailing "\") are the joystick file's. Leaves the
  // selection on the name. Silent when no file is named or the named one does not exist.
  void DetectMacroFile(std::u16string_view extension, std::u16string_view folder);
  // Brings the panel up to date for a document whose tab was just selected. Never asks, opens or
  // moves a selection.
  void RefreshFor(const Document& document);

  // Reads the macro file from disk and shows its macros. A file that is missing or cannot be read
  // leaves empty lists and says nothing.
  void Analyse(const std::u16string& path);
  // As Analyse, in a panel that is shown from now on.
  void ShowMacrosOf(const std::u16string& path);
  // Forgets the analysed file and empties headings and lists.
  void ClearAllForNewMacroFile();
  // No macro file is analysed, at start-up or since it was closed.
  void Clear();

  // Shows or hides the panel and lays the window out again.
  void ViewMacros(bool show);
  void ToggleViewMacros() { ViewMacros(!shown_); }
  // Builds the list anew from the macro file in the current tab, asking first to save what was
  // typed; "All" is chosen again. Does nothing on a tab with any other file.
  void UpdateMacroList();

  // Events of the two controls; indexes count from 0 and others than those shown do nothing.
  void OnHeadingChosen(int index);
  void OnHeadingPointer();  // any other pointer event
  void OnMacroClicked(int index);
  void OnListKey();
  void OnListPointer();
  void OnMacroDoubleClicked(int index);
  // The text that a drag out of the list carries; empty when there is no such macro.
  std::u16string OnDragStarted(int index);
  // The panel's edge was dragged; the width is in pixels at 96 dpi.
  void OnSplitterDragged(int width);

  bool IsShown() const { return shown_; }
  // What the layout reserves for the panel, in pixels at 96 dpi; 0 while it is hidden.
  int FrameWidth() const;
  const std::u16string& MacroFilePath() const { return macroFilePath_; }
  const MacroList& List() const { return list_; }
  // Empty when none is.
  const std::u16string& ChosenMacro() const { return chosenMacro_; }
  const std::u16string& DraggedMacro() const { return draggedMacro_; }

 private:
  // What a click on a macro did to the selection of the current document.
  struct Click {
    DocumentId document = 0;
    std::u16string macro;
    TextSpan before;
    TextSpan after;
  };

  std::u16string PathOf(std::u16string_view name, std::u16string_view macroExtension,
                        std::u16string_view folder) const;
  bool ReadMacroFile(const std::u16string& path);
  void ShowPanel();
  const std::u16string* MacroAt(int index) const;
  void Forget();
  void ShowMacroKeys();
  void FindMacroInJF();
  bool SelectionIsAsLeftByClick();
  void InsertChosenMacro();

  DocumentSet& documents_;
  StatusBar& status_;
  Settings& settings_;
  Ports ports_;

  std::u16string macroFilePath_;
  std::string analysedBytes_;
  MacroLines lines_;
  MacroList list_;
  int heading_ = 0;
  std::u16string chosenMacro_;
  std::u16string draggedMacro_;
  std::optional<Click> lastClick_;
  bool shown_ = false;
};

}  // namespace deck
