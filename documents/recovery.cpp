#include "documents/recovery.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "platform/scope_value.h"
#include "platform/strings.h"

namespace deck {
namespace {

// How far a kept text may be behind what was typed.
constexpr int kIntervalMilliseconds = 2000;
// Far more editors than anybody runs at once.
constexpr int kMostSessions = 1000;

// Without text and without a file there is nothing to come back to.
bool IsWorthKeeping(const Document& document) {
  return document.modifiedFlag == 1 && !(document.path.empty() && document.text1->Length() == 0);
}

// The file as it was before the edits, so that saving over it asks for no second copy. Another
// text, which somebody wrote meanwhile, is not known to the document and will be kept beside it.
void KnowFileBefore(Document& document, FileContent onDisk, std::uint64_t fingerprint) {
  document.file.stamp = onDisk.stamp;
  if (FingerprintOf(onDisk.bytes) != fingerprint) return;
  document.file.bytes = std::move(onDisk.bytes);
  document.file.text = std::move(onDisk.decoded.text);
}

}  // namespace

struct Recovery::File {
  enum class State { kIdle, kWriting, kFailed };

  std::u16string path;
  std::atomic<State> state = State::kIdle;
};

Recovery::Recovery(DocumentSet& documents, Ports ports) : documents_(documents), ports_(ports) {}

bool Recovery::Start(const std::u16string& folder) {
  folder_ = folder;
  if (!ports_.files.Attributes(folder)) static_cast<void>(ports_.files.CreateFolder(folder));
  for (const std::u16string& fileName : ports_.files.FilesIn(folder)) {
    if (const auto name = ParseRecoveryName(fileName)) left_.push_back(*name);
  }
  std::ranges::sort(left_, {},
                    [](const RecoveryName& name) { return std::pair(name.session, name.number); });
  std::erase_if(left_, [this](const RecoveryName& name) { return !Hold(name.session); });
  for (int session = 1; sessions_.empty() && session <= kMostSessions; ++session) Hold(session);
  if (sessions_.empty()) return false;

  last_.session = sessions_.begin()->first;
  for (const RecoveryName& name : left_) {
    if (name.session == last_.session) last_.number = std::max(last_.number, name.number);
  }
  ports_.events.StartTimer(TimerId::kRecoveryTimer, kIntervalMilliseconds);
  return true;
}

bool Recovery::Hold(int session) {
  if (sessions_.contains(session)) return true;
  std::unique_ptr<FileLock> lock = ports_.files.Lock(PathOf(Decimal(session) + u".lock"));
  if (!lock) return false;
  sessions_[session] = std::move(lock);
  return true;
}

std::vector<std::u16string> Recovery::Restore() {
  std::vector<std::u16string> captions;
  if (left_.empty()) return captions;
  const DocumentId selected = documents_.Current().id;
  for (const RecoveryName& name : std::exchange(left_, {})) {
    if (TakeOver(name)) captions.push_back(documents_.Current().caption);
  }
  if (!captions.empty()) documents_.Select(documents_.IndexOf(selected));
  return captions;
}

bool Recovery::TakeOver(const RecoveryName& name) {
  const auto file = std::make_shared<File>();
  file->path = PathOf(FileNameFor(name));
  const Result<std::string> bytes = ports_.files.Read(file->path);
  if (!bytes) return false;
  std::optional<RecoveryText> recovered = DecodeRecoveryFile(*bytes);
  if (!recovered) return false;
  // A relative path would belong to whatever folder is current now.
  if (ports_.files.Absolute(recovered->path) != recovered->path) recovered->path.clear();
  Result<FileContent> onDisk = ReadFileContent(ports_.files, ports_.codePage, recovered->path);
  if (onDisk && onDisk->decoded.text == recovered->text) {
    Drop(file);
    return false;
  }

  const int index = documents_.TargetForLoading();
  Document& document = documents_[index];
  document.text1->Load(recovered->text);
  document.file = {};
  document.file.format = recovered->format;
  if (onDisk) KnowFileBefore(document, std::move(*onDisk), recovered->fingerprint);
  if (!recovered->path.empty()) documents_.Rename(index, recovered->path);
  document.modifiedFlag = 1;
  kept_[document.id] = {file, document.revision, document.path};
  return true;
}

std::shared_ptr<Recovery::File> Recovery::NewFile() {
  ++last_.number;
  auto file = std::make_shared<File>();
  file->path = PathOf(FileNameFor(last_));
  return file;
}

bool Recovery::Update() {
  if (sessions_.empty()) return true;
  for (auto kept = kept_.begin(); kept != kept_.end();) {
    const int index = documents_.IndexOf(kept->first);
    if (index >= 0 && IsWorthKeeping(documents_[index])) {
      ++kept;
    } else {
      Drop(kept->second.file);
      kept = kept_.erase(kept);
    }
  }
  bool kept = true;
  for (int index = 0; index < documents_.Count(); ++index) {
    if (IsWorthKeeping(documents_[index])) kept = Keep(documents_[index]) && kept;
  }
  return kept;
}

void Recovery::KeepNow(const Document& document) {
  if (sessions_.empty()) return;
  // An older text of this document may be on its way to the disk still.
  ports_.background.Finish();
  Keep(document);
  ports_.background.Finish();
}

bool Recovery::Keep(const Document& document) {
  Kept& kept = kept_[document.id];
  bool failed = false;
  if (!kept.file) {
    kept.file = NewFile();
  } else {
    const File::State state = kept.file->state;
    // A slow disk gets the newest text next time, not every text in between.
    if (state == File::State::kWriting) return true;
    failed = state == File::State::kFailed;
    if (!failed && kept.revision == document.revision && kept.path == document.path) return true;
  }
  kept.revision = document.revision;
  kept.path = document.path;
  kept.file->state = File::State::kWriting;
  const RecoveryText recovery{document.path, document.file.format,
                              FingerprintOf(document.file.bytes), document.text1->Text()};
  ports_.background.Start(
      [&files = ports_.files, file = kept.file, bytes = EncodeRecoveryFile(recovery)] {
        const bool written = static_cast<bool>(files.ReplaceWhole(file->path, bytes));
        file->state = written ? File::State::kIdle : File::State::kFailed;
      });
  return !failed;
}

void Recovery::Drop(const std::shared_ptr<File>& file) {
  ports_.background.Start([&files = ports_.files, file] { files.Delete(file->path); });
}

void Recovery::End() {
  if (sessions_.empty()) return;
  ports_.events.StopTimer(TimerId::kRecoveryTimer);
  for (const auto& [id, kept] : kept_) Drop(kept.file);
  kept_.clear();
  // Only when the texts are gone may another editor find the session without an owner.
  ports_.background.Finish();
  sessions_.clear();
}

}  // namespace deck
