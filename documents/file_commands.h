// The six commands of the File menu. Files are read and written whole; what was typed outlives
// every failure: a document's flag, path and caption change only after the file is on disk.
// Owned by app/editor.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

// How file commands reach what other folders own; set by app/editor.
struct FileCommandLinks {
  // Keeps the text for the case that the program dies while it writes over the document's file.
  std::function<void(const Document& document)> keepText;
  std::function<void(const std::u16string& path)> addRecentFile;
  // Shows the macro panel and analyses the macro file at `path`.
  std::function<void(const std::u16string& path)> showMacrosOf;
  // Finds and opens the macro file of the joystick file that is the current document.
  std::function<void(std::u16string_view extension, const std::u16string& folder)> detectMacroFile;
  std::function<void()> clearMacros;
  // The macro file in the current tab was saved.
  std::function<void()> updateMacroList;
};

class FileCommands {
 public:
  struct Ports {
    Files& files;
    FileDialogs& dialogs;
    Prompts& prompts;
    EventLoop& events;
    const CodePage& codePage;
  };

  FileCommands(DocumentSet& documents, StatusBar& status, const Settings& settings, Ports ports);

  FileCommandLinks links;

  void FileNew();
  void FileOpen();
  // Both: false when the text did not reach the disk, cancelled or failed.
  bool FileSave();
  bool FileSaveAs();
  void FileSaveAll();
  void FileClose();

  // Opens the file on a tab, asking first when a document with this very path is open already.
  // False when the user said No to that question.
  bool OpenPreviouslySavedFiles(const std::u16string& startupFile);
  // The same for the macro file that detectMacroFile found: its joystick file stays in view.
  bool OpenBehind(const std::u16string& path);

 private:
  // The files folder, when there is one, becomes the current one.
  FileDialogRequest RequestInFilesFolder(std::u16string_view filter);
  bool Open(const std::u16string& file, BoxInView box);
  bool OpenAgain(const std::u16string& path);
  void OpenSelection(const std::u16string& selection);
  void Load(const std::u16string& path, BoxInView box);
  void CannotOpen(const std::u16string& path, const std::u16string& reason);
  bool WriteCurrent();
  Result<void> Write(Document& document);
  Result<void> KeepNewerText(const Document& document, std::string_view bytesToWrite);

  DocumentSet& documents_;
  StatusBar& status_;
  const Settings& settings_;
  Ports ports_;
  // The user has agreed that the file which stands under the chosen name may be lost.
  bool overwriteAgreed_ = false;
};

}  // namespace deck
