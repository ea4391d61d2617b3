#include "documents/disk_changes.h"

#include <utility>
#include <vector>

#include "documents/file_kinds.h"
#include "platform/strings.h"

namespace deck {
DiskChanges::DiskChanges(DocumentSet& documents, StatusBar& status, const Files& files,
                         const CodePage& codePage)
    : documents_(documents), status_(status), files_(files), codePage_(codePage) {}

void DiskChanges::Look() {
  std::vector<std::u16string> readAgain;
  std::vector<std::u16string> leftAlone;
  bool macrosChanged = false;
  for (int index = 0; index < documents_.Count(); ++index) {
    const Change change = LookAt(documents_[index]);
    const std::u16string& caption = documents_[index].caption;
    if (change == Change::kReadAgain) {
      readAgain.push_back(caption);
      macrosChanged = macrosChanged || IsMacroFile(caption);
    }
    if (change == Change::kLeftAlone) leftAlone.push_back(caption);
  }
  if (macrosChanged && documents_.refreshMacros) documents_.refreshMacros(documents_.Current());
  std::vector<std::u16string> messages;
  const auto tell = [&](const std::u16string& what, const std::vector<std::u16string>& captions) {
    if (!captions.empty()) messages.push_back(what + Join(captions, u", "));
  };
  tell(u"Changed on disk and read again: ", readAgain);
  tell(u"Changed on disk: ", leftAlone);
  if (messages.empty()) return;
  documents_.ShowCaretLine();
  status_.Say(Join(messages, u". "));
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
