#include "documents/document_set.h"

#include <algorithm>
#include <utility>

#include "documents/file_kinds.h"
#include "platform/strings.h"

namespace deck {

Result<FileContent> ReadFileContent(const Files& files, const CodePage& codePage,
                                    const std::u16string& path) {
  // The stamp first: what is written from now on counts as a change.
  const auto attributes = files.Attributes(path);
  Result<std::string> bytes = files.Read(path);
  if (!bytes) return bytes.problem();
  Result<DecodedText> decoded = DecodeFile(*bytes, codePage);
  if (!decoded) return decoded.problem();
  return FileContent{std::move(*bytes), std::move(*decoded), attributes ? attributes->stamp : 0};
}

void ShowFileContent(Document& document, FileContent content) {
  document.text1->Load(content.decoded.text);
  // The control may hold some characters differently; what counts as unedited is what it holds.
  document.file = {std::move(content.bytes), document.text1->Text(), content.decoded.format,
                   content.stamp};
  document.modifiedFlag = 0;
  ++document.revision;
}

DocumentSet::DocumentSet(MainWindowView& view, StatusBar& status, Keyboard& keyboard,
                         const Settings& settings)
    : view_(view), status_(status), keyboard_(keyboard), settings_(settings) {}

int DocumentSet::IndexOf(DocumentId id) const {
  const auto found = std::ranges::find(documents_, id, &Document::id);
  return found == documents_.end() ? -1 : static_cast<int>(found - documents_.begin());
}

int DocumentSet::IndexOfPath(const std::u16string& path) const {
  const auto found = std::ranges::find(documents_, path, &Document::path);
  return found == documents_.end() ? -1 : static_cast<int>(found - documents_.begin());
}

void DocumentSet::HideTextBoxes() {
  // The current one first: a moment without any box would flicker.
  Current().text1->SetVisible(true);
  for (Document& document : documents_) {
    if (document.id != Current().id) document.text1->SetVisible(false);
  }
}

Document DocumentSet::NewDocument() {
  Document document;
  document.id = ++lastId_;
  document.caption = kUntitled;
  document.text1 = view_.CreateEditBox(EventsFor(document.id));
  ForeignKeyBSupport();
  return document;
}

Document& DocumentSet::Add() {
  documents_.push_back(NewDocument());
  current_ = Count() - 1;
  view_.InsertTab(Count(), Current().caption);
  view_.SelectTab(Count());
  return Current();
}

int DocumentSet::TargetForLoading() {
  const bool unused = Current().caption == kUntitled && GetCurrentTextBox().Length() == 0;
  if (!unused) Add();
  return current_;
}

void DocumentSet::Remove(int index) {
  view_.RemoveTab(index + 1);
  documents_.erase(documents_.begin() + index);
  if (current_ > index || current_ == Count()) --current_;
}

void DocumentSet::Empty(int index) {
  (*this)[index] = NewDocument();
  view_.SetTab(index + 1, (*this)[index].caption, u"");
}

void DocumentSet::Rename(int index, const std::u16string& path) {
  Document& document = (*this)[index];
  document.path = path;
  document.caption = path.empty() ? kUntitled : FileNameOf(path);
  view_.SetTab(index + 1, document.caption, document.path);
}

void DocumentSet::Select(int index, BoxInView box) {
  current_ = index;
  view_.SelectTab(index + 1);
  TabSwitchRefresh(box);
}

void DocumentSet::SelectNext() {
  Select((current_ + 1) % Count());
}

void DocumentSet::SelectPrevious() {
  Select((current_ + Count() - 1) % Count());
}

void DocumentSet::TabSwitchRefresh(BoxInView box) {
  GetCurrentTextBox();
  const std::u16string& message = status_.Message();
  if (CompilerBusy != 1 && !status_.ShowsCompileResult() &&
      message.find(u'=') == std::u16string::npos) {
    status_.Say(u"Editing " + Current().caption);
  }
  if (box == BoxInView::kFollows) HideTextBoxes();
  ShowState();
  ShowCompileCommands();
  ShowCaretLine();
  if (SkipMacroRefresh != 1 && refreshMacros) refreshMacros(Current());
}

void DocumentSet::ShowState() {
  const Document& document = Current();
  if (document.modifiedFlag == 1) {
    status_.Set(kStatePanel, u"Modified");
  } else if (document.caption == kUntitled && document.modifiedFlag == 0) {
    status_.Set(kStatePanel, u"New file");
  } else {
    status_.Set(kStatePanel, u"Saved");
  }
}

void DocumentSet::ShowCompileCommands() {
  const std::u16string& caption = Current().caption;
  const bool available = settings_.AlwaysShowCompileDownload == 1 || IsCompilable(caption);
  const std::u16string suffix = available ? u" " + DoubleAmpersands(caption) : u"";
  view_.SetCommand(CommandId::kCompile, {.enabled = available, .caption = u"&Compile" + suffix});
  view_.SetCommand(CommandId::kDownload, {.enabled = available, .caption = u"&Download" + suffix});
}

void DocumentSet::ShowCaretLine() {
  const EditBox& box = GetCurrentTextBox();
  status_.ShowLine(box.LineOf(box.Selection().start));
}

void DocumentSet::ForeignKeyBSupport() {
  if (settings_.ForeignKeyboardFix == 0) return;
  if (keyboard_.LayoutName() != keyboardLayoutName_) {
    // A refused activation is tried again with the next box.
    static_cast<void>(keyboard_.ActivateLayout(keyboardLayoutName_));
  }
}

void DocumentSet::OnChanged(DocumentId id) {
  const int index = IndexOf(id);
  if (index < 0) return;
  (*this)[index].modifiedFlag = 1;
  ++(*this)[index].revision;
  if (index == current_) status_.Set(kStatePanel, u"Modified");
}

void DocumentSet::OnHoverTab(int index) {
  if (CompilerBusy == 1 || index < 0 || index >= Count()) return;
  status_.Hint(u"Click to select " + (*this)[index].caption + u" for editing.");
}

void DocumentSet::OnHoverText(DocumentId id) {
  const int index = IndexOf(id);
  if (CompilerBusy == 1 || index < 0) return;
  status_.Hint(u"Editing " + (*this)[index].caption);
}

EditBox::Events DocumentSet::EventsFor(DocumentId id) {
  return {
      .changed = [this, id] { OnChanged(id); },
      .keyOrMouseDone = [this] { ShowCaretLine(); },
      .mouseMoved = [this, id] { OnHoverText(id); },
      .entered = {},
  };
}

}  // namespace deck
