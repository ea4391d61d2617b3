#include "tests/model/editor_model.h"

#include <algorithm>
#include <utility>

#include "documents/file_kinds.h"
#include "platform/strings.h"

namespace deck {
namespace {

std::string Plain(std::u16string_view text) {
  std::string plain;
  for (const char16_t unit : text)
    plain += unit < 127 && unit >= 32 ? static_cast<char>(unit) : '?';
  return plain;
}

}  // namespace

EditorModel::EditorModel(Machine& machine, ProgramRun& run) : machine_(machine), run_(run) {
  machine_.files.onWrittenOver = [this](const std::u16string& path, const std::string& old) {
    CheckWrittenOver(path, old);
  };
}

void EditorModel::AllowEdit() {
  edited_ = run_.editor.Documents().Current().id;
}

void EditorModel::OnAnswer(const Message& question, Answer answer) {
  if (answer == Answer::kNo && question.title.starts_with(u"Save ")) {
    known_[run_.editor.Documents().Current().id].givenUp = true;
  }
  if (answer == Answer::kYes && question.title == u"OK to overwrite exisiting file?")
    overwriteAgreed_ = true;
}

void EditorModel::Check(bool idle) {
  CheckGone();
  CheckTexts();
  CheckTabs();
  CheckFlags();
  if (idle) CheckIdle();
  edited_ = 0;
  opening_ = false;
  lookedAtDisk_ = false;
  if (idle) overwriteAgreed_ = false;
  for (auto& [id, known] : known_) known.givenUp = known.givenUp && !idle;
}

void EditorModel::CheckWrittenOver(const std::u16string& path, const std::string& old) {
  if (!path.starts_with(kFilesFolder + u"\\") || overwriteAgreed_) return;
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    if (documents[index].path == path && documents[index].file.bytes == old) return;
  }
  for (const std::u16string& name : machine_.files.FilesIn(kFilesFolder)) {
    if (name.starts_with(std::u16string(FileNameOf(path)) + u".bak") &&
        machine_.files.Content(kFilesFolder + u"\\" + name) == old) {
      return;
    }
  }
  Complain("the text of others in " + Plain(path) + " was written over: " + old);
}

bool EditorModel::IsOnDisk(const std::u16string& path, const std::u16string& text) const {
  const Result<DecodedText> onDisk = DecodeFile(machine_.files.Content(path), machine_.codePage);
  return onDisk && onDisk->text == text;
}

// In the file, or in a copy that was made when another document was saved over it.
bool EditorModel::IsKept(const std::u16string& path, const std::u16string& text) const {
  if (IsOnDisk(path, text)) return true;
  const std::u16string copy = std::u16string(FileNameOf(path)) + u".bak";
  for (const std::u16string& name : machine_.files.FilesIn(kFilesFolder)) {
    if (name.starts_with(copy) && IsOnDisk(kFilesFolder + u"\\" + name, text)) return true;
  }
  return false;
}

// The other tab may have read this text before it was edited there and saved.
bool EditorModel::IsOpenTwice(const Document& document) const {
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    if (documents[index].id != document.id && documents[index].path == document.path) return true;
  }
  return false;
}

// A tab may go in the same step in which its text got a name.
bool EditorModel::IsSomewhere(const std::u16string& text) const {
  return std::ranges::any_of(machine_.files.FilesIn(kFilesFolder), [&](const auto& name) {
    return IsOnDisk(kFilesFolder + u"\\" + name, text);
  });
}

void EditorModel::CheckGone() {
  DocumentSet& documents = run_.editor.Documents();
  for (auto known = known_.begin(); known != known_.end();) {
    if (documents.IndexOf(known->first) >= 0) {
      ++known;
      continue;
    }
    const Known& gone = known->second;
    Require(!gone.modified || gone.givenUp || IsSomewhere(gone.text),
            "an unsaved text went with its tab: " + Plain(gone.text));
    known = known_.erase(known);
  }
}

void EditorModel::CheckTexts() {
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    const Document& document = documents[index];
    const auto found = known_.find(document.id);
    if (found == known_.end()) {
      CheckNew(document);
    } else if (const std::u16string text = document.text1->Text(); text != found->second.text) {
      const bool wasEmpty = found->second.path.empty() && found->second.text.empty();
      const bool showsDisk = document.modifiedFlag == 0 && IsOnDisk(document.path, text);
      Require(document.id == edited_ || (wasEmpty && opening_ && showsDisk) ||
                  (lookedAtDisk_ && !found->second.modified && showsDisk),
              "the text of " + Plain(document.caption) + " changed by itself");
    }
    Known& known = known_[document.id];
    Require(found == known_.end() || document.path == known.path || document.modifiedFlag == 0,
            Plain(document.caption) + " has a new path without having been saved there");
    // What was written reads as the text, whatever happens to the file later.
    if (document.modifiedFlag == 0 && known.modified) {
      Require(overwriteAgreed_ || IsOpenTwice(document) ||
                  IsKept(document.path, document.text1->Text()),
              Plain(document.caption) + " counts as saved and is not on disk: " +
                  Plain(document.text1->Text()) + " <> " + machine_.files.Content(document.path));
    }
    known = {document.text1->Text(), document.path, document.modifiedFlag == 1, known.givenUp};
  }
}

void EditorModel::CheckNew(const Document& document) {
  if (document.path.empty()) {
    Require(document.text1->Length() == 0 || document.modifiedFlag == 1,
            "an untitled document came with text and without the flag");
  } else if (document.modifiedFlag == 0) {
    Require(opening_, "a file was opened by itself");
    Require(IsOnDisk(document.path, document.text1->Text()),
            "a file was opened with another text: " + Plain(document.path));
  }
}

void EditorModel::CheckTabs() {
  DocumentSet& documents = run_.editor.Documents();
  Require(documents.Count() >= 1, "no document is open");
  std::vector<std::u16string> captions;
  for (int index = 0; index < documents.Count(); ++index) {
    const Document& document = documents[index];
    captions.push_back(document.caption);
    const bool named = document.path.empty() ? document.caption == kUntitled
                                             : document.caption == FileNameOf(document.path);
    Require(named, "a caption does not fit its path: " + Plain(document.path));
    Require(run_.view.TabAt(index + 1).toolTip == document.path || document.path.empty(),
            "a tool tip does not fit its path");
    const bool current = index == documents.CurrentIndex();
    Require(run_.Box(index).visible() == current, "another box than the current one is visible");
  }
  Require(run_.view.Captions() == captions, "tabs and documents differ");
  Require(run_.view.selectedTab == documents.CurrentIndex() + 1,
          "the selected tab is not the current document's");
}

void EditorModel::CheckFlags() {
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    const Document& document = documents[index];
    Require(document.modifiedFlag == 0 || document.modifiedFlag == 1, "a flag is neither 0 nor 1");
    if (document.modifiedFlag == 0) {
      Require(document.text1->Text() == document.file.text,
              Plain(document.caption) + " was edited and has no flag");
    }
  }
}

void EditorModel::CheckIdle() {
  DocumentSet& documents = run_.editor.Documents();
  Require(documents.SkipMacroRefresh == 0, "macro refresh stays suppressed");
  Require(documents.CompilerBusy == 0 || run_.events.IsRunning(TimerId::kTimer1),
          "CompilerBusy stays set");
  Require(!run_.events.IsRunning(TimerId::kDownloadTimer), "DownloadTimer still runs");
  const bool modified = documents.Current().modifiedFlag == 1;
  Require((run_.view.Panel(kStatePanel) == u"Modified") == modified,
          "panel 3 does not show the flag: " + Plain(run_.view.Panel(kStatePanel)));
}

void EditorModel::CheckEnd() {
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    const Document& document = documents[index];
    Require(document.modifiedFlag == 0 || known_[document.id].givenUp,
            "the program ended with an unsaved text: " + Plain(document.text1->Text()));
  }
}

EditorModel::Texts EditorModel::UnsavedTexts() {
  Texts texts;
  DocumentSet& documents = run_.editor.Documents();
  for (int index = 0; index < documents.Count(); ++index) {
    const Document& document = documents[index];
    const std::u16string text = document.text1->Text();
    const bool nothing = document.path.empty() && text.empty();
    if (document.modifiedFlag != 1 || nothing) continue;
    texts.emplace_back(document.path, text);
  }
  std::ranges::sort(texts);
  return texts;
}

void EditorModel::CheckCameBack(Texts lost) {
  Texts back = UnsavedTexts();
  // Asked of the disk as it is now: the kill may have torn a file that held one of them.
  for (Texts* texts : {&lost, &back}) {
    std::erase_if(*texts, [this](const auto& text) {
      return !text.first.empty() && IsOnDisk(text.first, text.second);
    });
  }
  for (const auto& [path, text] : lost) {
    Require(std::ranges::find(back, std::pair(path, text)) != back.end(),
            "a text did not come back: " + Plain(path) + ": " + Plain(text));
  }
  for (const auto& [path, text] : back) {
    Require(std::ranges::find(lost, std::pair(path, text)) != lost.end(),
            "a text came back that was not lost: " + Plain(path) + ": " + Plain(text));
  }
  Require(back.size() == lost.size(), "a text came back twice");
}

}  // namespace deck
