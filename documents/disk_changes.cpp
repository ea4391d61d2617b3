#include "documents/disk_changes.h"

#include <utility>

#include "documents/file_kinds.h"

namespace deck {
namespace {

void Append(std::u16string& list, std::u16string_view separator, const std::u16string& item) {
  if (!list.empty()) list += separator;
  list += item;
}

}  // namespace

DiskChanges::DiskChanges(DocumentSet& documents, StatusBar& status, const Files& files,
                         const CodePage& codePage)
    : documents_(documents), status_(status), files_(files), codePage_(codePage) {}

void DiskChanges::Look() {
  std::u16string readAgain;
  std::u16string leftAlone;
  bool macrosChanged = false;
  for (int index = 0; index < documents_.Count(); ++index) {
    const Change change = LookAt(documents_[index]);
    const std::u16string& caption = documents_[index].caption;
    if (change == Change::kReadAgain) {
      Append(readAgain, u", ", caption);
      macrosChanged = macrosChanged || IsMacroFile(caption);
    }
    if (change == Change::kLeftAlone) Append(leftAlone, u", ", caption);
  }
  if (macrosChanged && documents_.refreshMacros) documents_.refreshMacros(documents_.Current());
  std::u16string message;
  if (!readAgain.empty()) Append(message, u". ", u"Changed on disk and read again: " + readAgain);
  if (!leftAlone.empty()) Append(message, u". ", u"Changed on disk: " + leftAlone);
  if (message.empty()) return;
  documents_.ShowCaretLine();
  status_.Say(message);
}

DiskChanges::Change DiskChanges::LookAt(Document& document) {
  if (document.path.empty()) return Change::kNone;
  const auto attributes = files_.Attributes(document.path);
  if (!attributes || attributes->folder || attributes->stamp == document.file.stamp)
    return Change::kNone;
  Result<FileContent> content = ReadFileContent(files_, codePage_, document.path);
  if (!content) return Change::kNone;  // perhaps it is being written: the next look finds it again
  document.file.stamp = content->stamp;
  if (content->bytes == document.file.bytes) return Change::kNone;
  if (document.modifiedFlag == 1) return Change::kLeftAlone;
  ReadAgain(document, std::move(*content));
  return Change::kReadAgain;
}

void DiskChanges::ReadAgain(Document& document, FileContent content) {
  EditBox& box = *document.text1;
  const int line = box.LineOf(box.Selection().start);
  ShowFileContent(document, std::move(content));
  int start = box.StartOfLine(line);
  if (start < 0) start = box.StartOfLine(box.LineOf(box.Length()));
  box.Select({start, 0});
}

}  // namespace deck
