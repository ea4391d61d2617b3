// The open documents, one tab and one edit box each, and everything that follows from which one is
// selected. Owned by app/editor; every command on the current document begins with
// GetCurrentTextBox and never keeps the box.
//
// A document's index counts from 0, its tab's position is index + 1.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "documents/status_bar.h"
#include "platform/code_page.h"
#include "platform/edit_box.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/main_window_view.h"
#include "platform/result.h"
#include "platform/settings.h"
#include "platform/text_encoding.h"

namespace deck {

// What the file looked like when this program last read or wrote it.
struct FileImage {
  std::string bytes;
  std::u16string text;  // of the box, right after `bytes` were loaded or written
  FileFormat format;
  std::uint64_t stamp = 0;  // of FileAttributes, when `bytes` or newer ones were on the disk
};

// Names one document for its whole life, also while tabs move. Never used twice.
using DocumentId = std::uint64_t;

struct Document {
  DocumentId id = 0;
  std::unique_ptr<EditBox> text1;  // element of `Text1`
  std::u16string path;             // of `DocumentPaths`: absolute; empty for an untitled document
  std::int16_t modifiedFlag = 0;   // of `ModifiedFlags`: only 1 means modified
  std::u16string caption;          // the file's name, or "Untitled"
  FileImage file;
  std::uint64_t revision = 0;  // counts the texts that the box has held
};

// The bytes of a file and what they say, or why there is nothing to show.
struct FileContent {
  std::string bytes;
  DecodedText decoded;
  std::uint64_t stamp = 0;
};
Result<FileContent> ReadFileContent(const Files& files, const CodePage& codePage,
                                    const std::u16string& path);
// Puts the file's text into the box; the document is unmodified afterwards.
void ShowFileContent(Document& document, FileContent content);

inline constexpr std::u16string_view kUntitled = u"Untitled";

// What becomes of the box that the user sees when another tab is selected.
enum class BoxInView {
  kFollows,
  // Whoever asks for this selects a tab with kFollows before the user sees anything: showing a box
  // paints it, which takes longer than loading a short file.
  kStays,
};

class DocumentSet {
 public:
  DocumentSet(MainWindowView& view, StatusBar& status, Keyboard& keyboard,
              const Settings& settings);

  // Brings the macro list up to date for the document just selected; set by app/editor.
  std::function<void(Document&)> refreshMacros;

  // While 1, selecting a tab does not analyse macro files.
  std::int16_t SkipMacroRefresh = 0;
  // While 1, hovering and tab switches leave the message panel alone.
  std::int16_t CompilerBusy = 0;

  int Count() const { return static_cast<int>(documents_.size()); }
  int CurrentIndex() const { return current_; }
  Document& operator[](int index) { return documents_[static_cast<std::size_t>(index)]; }
  Document& Current() { return (*this)[current_]; }
  // Index of the document, or -1 when it has been closed.
  int IndexOf(DocumentId id) const;
  // Index of the first document with exactly this path, or -1.
  int IndexOfPath(const std::u16string& path) const;

  // Makes the selected tab's document the current one and gives its box.
  EditBox& GetCurrentTextBox() { return *Current().text1; }
  // Only the current box is visible.
  void HideTextBoxes();

  // Adds an untitled document behind the last one and makes it current, without messages.
  Document& Add();
  // The index where a file's text goes: an untitled document without text that is current, or a new
  // one at the end, which becomes current.
  int TargetForLoading();
  // Takes the document and its tab away. The caller selects another; the last one must stay.
  void Remove(int index);
  // Puts a new untitled document in the place of this one; its tab stays.
  void Empty(int index);
  // The document's file has another name, or none when `path` is empty.
  void Rename(int index, const std::u16string& path);

  // Selects the tab and runs everything that follows from it.
  void Select(int index, BoxInView box = BoxInView::kFollows);
  // Ctrl+Tab; wraps round.
  void SelectNext();
  void SelectPrevious();
  // What a click on a tab, or code that selects one, brings up to date.
  void TabSwitchRefresh(BoxInView box = BoxInView::kFollows);

  void ShowState();
  void ShowCaretLine();
  // Keeps the keyboard layout of the start while the user's programs change it.
  void ForeignKeyBSupport();
  void SetKeyboardLayoutName(std::u16string name) { keyboardLayoutName_ = std::move(name); }

  // Events of tabs and boxes.
  void OnChanged(DocumentId id);
  void OnHoverTab(int index);
  void OnHoverText(DocumentId id);

 private:
  Document NewDocument();
  EditBox::Events EventsFor(DocumentId id);
  void ShowCompileCommands();

  MainWindowView& view_;
  StatusBar& status_;
  Keyboard& keyboard_;
  const Settings& settings_;
  std::vector<Document> documents_;
  int current_ = 0;
  DocumentId lastId_ = 0;
  std::u16string keyboardLayoutName_;
};

}  // namespace deck
