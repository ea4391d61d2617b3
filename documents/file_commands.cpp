#include "documents/file_commands.h"

#include <utility>

#include "documents/file_kinds.h"
#include "documents/multi_select.h"
#include "platform/scope_value.h"
#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kOpenFilter =
    u"Cougar files |*.tmj;*.tmm|TM original files |*.f22;*.m22;*.b50;*.m50|All files (*.*)|*.*";
constexpr std::u16string_view kSaveFilter =
    u"Cougar joystick file (*.tmj)|*.tmj|Cougar macro file (*.tmm)|*.tmm|All files (*.*)|*.*";
constexpr int kSaveFilterMacro = 2;
constexpr std::u16string_view kExtensionByFilter[] = {u".tmj", u".tmm", u""};

constexpr std::u16string_view kOpening = u"Opening file";
constexpr std::u16string_view kSaving = u"Saving file";

// How long the message of a save is safe from hover texts.
constexpr int kMessageHoldMilliseconds = 3000;
constexpr int kMostOldCopies = 9999;

// A text of progress must not stand for ever when the command was cancelled.
class ProgressText {
 public:
  ProgressText(StatusBar& status, std::u16string_view text)
      : status_(status), before_(status.Message()), text_(text) {
    status_.Say(text_);
  }
  ~ProgressText() {
    if (status_.Message() == text_ && before_ != text_) status_.Say(before_);
  }
  ProgressText(const ProgressText&) = delete;
  ProgressText& operator=(const ProgressText&) = delete;

 private:
  StatusBar& status_;
  std::u16string before_;
  std::u16string text_;
};

std::u16string WithDefaultExtension(const SaveChoice& choice) {
  const bool known = choice.filterIndex >= 1 && choice.filterIndex <= 3;
  if (!known || FileNameOf(choice.path).find(u'.') != std::u16string_view::npos) {
    return choice.path;
  }
  return choice.path + std::u16string(kExtensionByFilter[choice.filterIndex - 1]);
}

bool IsMacroAnalysisText(std::u16string_view message) {
  return message == u"Done" || message.starts_with(u"Analysing ") ||
         (message.starts_with(u"Opening ") && message.ends_with(u" file for analysis "));
}

}  // namespace

FileCommands::FileCommands(DocumentSet& documents, StatusBar& status, const Settings& settings,
                           Ports ports)
    : documents_(documents), status_(status), settings_(settings), ports_(ports) {}

void FileCommands::FileNew() {
  documents_.Add();
  documents_.Select(documents_.CurrentIndex());
  status_.Say(u"New file created for editing");
  EditBox& box = documents_.GetCurrentTextBox();
  box.Select({0, 0});
  documents_.ShowCaretLine();
  box.Focus();
}

void FileCommands::FileOpen() {
  const ProgressText progress(status_, kOpening);
  const FileDialogRequest request = RequestInFilesFolder(kOpenFilter);
  if (const auto selection = ports_.dialogs.Open(request)) OpenSelection(*selection);
}

FileDialogRequest FileCommands::RequestInFilesFolder(std::u16string_view filter) {
  FileDialogRequest request{.filter = std::u16string(filter)};
  if (!settings_.FilesFolder.empty()) {
    ChangeDriveAndFolder(ports_.files, settings_.FilesFolder);
    request.initialFolder = settings_.FilesFolder;
  }
  return request;
}

void FileCommands::OpenSelection(const std::u16string& selection) {
  if (FileExists(ports_.files, selection)) {
    const std::u16string path = ports_.files.Absolute(selection);
    if (OpenAgain(path)) Load(path, BoxInView::kFollows);
    return;
  }
  for (const std::u16string& path : ExtractFilePathsOnMultiOpen(selection)) {
    OpenPreviouslySavedFiles(path);
  }
}

bool FileCommands::OpenPreviouslySavedFiles(const std::u16string& startupFile) {
  return Open(startupFile, BoxInView::kFollows);
}

bool FileCommands::OpenBehind(const std::u16string& path) {
  return Open(path, BoxInView::kStays);
}

bool FileCommands::Open(const std::u16string& file, BoxInView box) {
  const std::u16string path = ports_.files.Absolute(file);
  if (!OpenAgain(path)) return false;
  Load(path, box);
  return true;
}

bool FileCommands::OpenAgain(const std::u16string& path) {
  if (documents_.IndexOfPath(path) < 0) return true;
  return ports_.prompts.Show(
             {path + u" is already open. Do you still want me to open it up onto a different tab?",
              u"File already open", BoxStyle::kYesNo}) == Answer::kYes;
}

void FileCommands::Load(const std::u16string& path, BoxInView box) {
  const bool inView = box == BoxInView::kFollows;
  status_.Say(std::u16string(kOpening));
  // A long file takes its time, and a slow disk even more. Behind its joystick file a macro file
  // finds the text there from before.
  if (inView) status_.PaintNow();
  // Everything that can fail comes before anything is touched.
  Result<FileContent> content = ReadFileContent(ports_.files, ports_.codePage, path);
  if (!content) return CannotOpen(path, content.problem().reason);

  const int index = documents_.TargetForLoading();
  const DocumentId id = documents_[index].id;
  ShowFileContent(documents_[index], std::move(*content));
  documents_.Rename(index, path);

  const ScopeValue skip(documents_.SkipMacroRefresh, std::int16_t{1});
  documents_.Select(index, box);
  links.addRecentFile(path);
  if (IsMacroFile(path)) links.showMacrosOf(path);
  if (inView) documents_.HideTextBoxes();
  status_.Say(std::u16string(Trim(FileNameOf(path))) + u" successfully opened");
  if (IsJoystickFile(path)) {
    links.detectMacroFile(ExtensionOf(path), std::u16string(FolderOf(path)));
  }

  // The macro file may have come onto a tab of its own.
  const int opened = documents_.IndexOf(id);
  if (opened < 0) {
    if (inView) documents_.HideTextBoxes();
    return;
  }
  if (documents_.CurrentIndex() != opened) documents_.Select(opened, box);
  EditBox& text = documents_.GetCurrentTextBox();
  text.Select({0, 0});
  documents_.ShowCaretLine();
  if (inView) text.Focus();
}

void FileCommands::CannotOpen(const std::u16string& path, const std::u16string& reason) {
  status_.Say(std::u16string(Trim(FileNameOf(path))) + u" could not be opened");
  ports_.prompts.Show(
      {path + u" could not be opened.\r\n" + reason, u"Can't open file", BoxStyle::kExclamation});
}

bool FileCommands::FileSave() {
  const ProgressText progress(status_, kSaving);
  const Document& document = documents_.Current();
  if (document.path.empty()) return FileSaveAs();
  const auto attributes = ports_.files.Attributes(document.path);
  if (attributes && attributes->readOnly && !attributes->folder) {
    ports_.prompts.Show({document.path +
                             u" is read only. You'll need to save it elsewhere using the Save As "
                             u"routine. I'll run this for you now.",
                         u"Can't save Read Only file", BoxStyle::kInformation});
    return FileSaveAs();
  }
  return WriteCurrent();
}

bool FileCommands::WriteCurrent() {
  Document& document = documents_.Current();
  const std::u16string caption = document.caption;
  if (const Result<void> written = Write(document); !written) {
    status_.Say(caption + u" could not be saved");
    ports_.prompts.Show({document.path + u" could not be saved.\r\n" + written.problem().reason,
                         u"Can't save file", BoxStyle::kExclamation});
    return false;
  }
  documents_.CompilerBusy = 1;
  document.modifiedFlag = 0;
  links.addRecentFile(document.path);
  ports_.events.StartTimer(TimerId::kTimer1, kMessageHoldMilliseconds);

  const std::u16string saved = caption + u" successfully saved";
  status_.Say(saved);
  if (IsMacroFile(document.path)) links.updateMacroList();
  documents_.Select(documents_.CurrentIndex());
  if (IsMacroAnalysisText(status_.Message())) status_.Say(saved);
  return true;
}

Result<void> FileCommands::Write(Document& document) {
  std::u16string text = document.text1->Text();
  FileFormat format = document.file.format;
  std::string bytes =
      text == document.file.text ? document.file.bytes : EncodeFile(text, format, ports_.codePage);
  if (Result<void> kept = KeepNewerText(document, bytes); !kept) return kept;
  Result<void> written = ports_.files.ReplaceWhole(document.path, bytes);
  if (!written) {
    links.keepText(document);
    written = ports_.files.Replace(document.path, bytes);
  }
  if (!written) return written;
  const auto attributes = ports_.files.Attributes(document.path);
  document.file = {std::move(bytes), std::move(text), format, attributes ? attributes->stamp : 0};
  return {};
}

Result<void> FileCommands::KeepNewerText(const Document& document, std::string_view bytesToWrite) {
  if (overwriteAgreed_ || !FileExists(ports_.files, document.path)) return {};
  const Result<std::string> onDisk = ports_.files.Read(document.path);
  if (!onDisk) return onDisk.problem();
  if (*onDisk == document.file.bytes || *onDisk == bytesToWrite) return {};
  const std::u16string copy = document.path + u".bak";
  for (int number = 1; number <= kMostOldCopies; ++number) {
    const std::u16string name = number == 1 ? copy : copy + Decimal(number);
    if (ports_.files.Attributes(name)) continue;
    return ports_.files.Create(name, *onDisk);
  }
  return Problem{u"The text on disk is newer, and there is no free name left to keep it under."};
}

bool FileCommands::FileSaveAs() {
  FileDialogRequest request = RequestInFilesFolder(kSaveFilter);
  const DocumentId id = documents_.Current().id;
  const std::u16string oldPath = documents_.Current().path;
  if (!oldPath.empty()) request.fileName = documents_.Current().caption;
  if (IsMacroFile(oldPath)) request.filterIndex = kSaveFilterMacro;

  const auto choice = ports_.dialogs.Save(request);
  if (!choice) return false;
  const std::u16string path = ports_.files.Absolute(WithDefaultExtension(*choice));
  const bool exists = FileExists(ports_.files, path);
  if (exists &&
      ports_.prompts.Show({std::u16string(FileNameOf(path)) +
                               u" already exists. Do you want me to overwrite this file?",
                           u"OK to overwrite exisiting file?", BoxStyle::kYesNo}) != Answer::kYes) {
    return false;
  }
  const ScopeValue agreed(overwriteAgreed_, exists);
  documents_.Rename(documents_.CurrentIndex(), path);
  if (FileSave()) return true;
  if (const int index = documents_.IndexOf(id); index >= 0) documents_.Rename(index, oldPath);
  return false;
}

void FileCommands::FileSaveAll() {
  const DocumentId before = documents_.Current().id;
  for (int index = 0; index < documents_.Count(); ++index) {
    documents_.Select(index);
    FileSave();
  }
  const std::u16string message = status_.Message();
  if (const int index = documents_.IndexOf(before); index >= 0) documents_.Select(index);
  if (IsMacroAnalysisText(status_.Message())) status_.Say(message);
}

void FileCommands::FileClose() {
  const Document& document = documents_.Current();
  const std::u16string caption = document.caption;
  if (document.modifiedFlag == 1) {
    const Answer answer =
        ports_.prompts.Show({caption + u" isn't saved. Do you want to save it now?",
                             u"Save " + caption + u"?", BoxStyle::kYesNoCancel});
    if (answer != Answer::kYes && answer != Answer::kNo) return;
    if (answer == Answer::kYes && !FileSave()) return;
  }
  const int index = documents_.CurrentIndex();
  if (IsMacroFile(documents_.Current().caption)) links.clearMacros();
  if (documents_.Count() == 1) {
    documents_.Empty(index);
  } else {
    documents_.Remove(index);
  }
  documents_.Select(documents_.CurrentIndex());
  documents_.GetCurrentTextBox().Focus();
}

}  // namespace deck
