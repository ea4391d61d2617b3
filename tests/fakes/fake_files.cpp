#include "tests/fakes/fake_files.h"

#include <algorithm>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::size_t kLongestPath = 259;

constexpr char16_t kAccessDenied[] = u"Access is denied.";
constexpr char16_t kNoSuchFile[] = u"The system cannot find the file specified.";
constexpr char16_t kNoSuchFolder[] = u"The system cannot find the path specified.";
constexpr char16_t kFileExists[] = u"The file exists.";
constexpr char16_t kBadName[] =
    u"The filename, directory name, or volume label syntax is incorrect.";
constexpr char16_t kNameTooLong[] = u"The filename or extension is too long.";

bool IsRoot(std::u16string_view path) {
  return path.size() == 3 && path[1] == u':';
}

bool HasEndingSeparator(std::u16string_view path) {
  return !path.empty() && path.back() == u'\\';
}

// Without the "\" at the end, except for the root of a drive.
std::u16string WithoutEndingSeparator(std::u16string path) {
  while (!IsRoot(path) && HasEndingSeparator(path)) path.pop_back();
  return path;
}

std::u16string KeyOf(const std::u16string& absolute) {
  std::u16string key = WithoutEndingSeparator(absolute);
  for (char16_t& character : key) character = ToUpper(character);
  return key;
}

std::u16string ParentOf(const std::u16string& absolute) {
  return WithoutEndingSeparator(std::u16string(FolderOf(WithoutEndingSeparator(absolute))));
}

bool HasBadCharacter(std::u16string_view absolute) {
  return absolute.substr(std::min<std::size_t>(absolute.size(), 2)).find_first_of(u"*?<>|\":") !=
         std::u16string_view::npos;
}

std::vector<std::u16string> Parts(std::u16string_view path) {
  std::vector<std::u16string> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(u'\\'), path.size());
    const std::u16string part(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part == u"..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != u".") {
      parts.push_back(part);
    }
  }
  return parts;
}

}  // namespace

FakeFiles::FakeFiles() {
  Add(u"C:\\", true);
}

void FakeFiles::AddFile(const std::u16string& path, std::string_view bytes) {
  const std::u16string absolute = Absolute(path);
  AddFolder(ParentOf(absolute));
  SetContent(Add(absolute, false), bytes);
}

void FakeFiles::AddFolder(const std::u16string& path) {
  const std::u16string absolute = Absolute(path);
  if (Find(absolute)) return;
  if (!IsRoot(absolute) && !ParentOf(absolute).empty()) AddFolder(ParentOf(absolute));
  Add(absolute, true);
}

void FakeFiles::SetReadOnly(const std::u16string& path, bool readOnly) {
  if (Node* node = Find(path)) node->attributes.readOnly = readOnly;
}

bool FakeFiles::Exists(const std::u16string& path) const {
  return Find(path) != nullptr;
}

std::string FakeFiles::Content(const std::u16string& path) const {
  const Node* node = Find(path);
  return node ? node->bytes : std::string();
}

std::vector<std::u16string> FakeFiles::AllFiles() const {
  std::vector<std::u16string> paths;
  for (const auto& [key, node] : nodes_)
    if (!node.attributes.folder) paths.push_back(node.path);
  return paths;
}

void FakeFiles::Fail(FileOperation operation, const std::u16string& path,
                     const std::u16string& reason) {
  failures_[{operation, KeyOf(Absolute(path))}] = reason;
}

void FakeFiles::StopFailing() {
  failures_.clear();
}

std::optional<FileAttributes> FakeFiles::Attributes(const std::u16string& path) const {
  asked_.insert(path);
  const Node* node = Find(path);
  return node ? std::optional(node->attributes) : std::nullopt;
}

Result<std::string> FakeFiles::Read(const std::u16string& path) const {
  asked_.insert(path);
  if (const auto problem = Injected(FileOperation::kRead, path)) return *problem;
  const Node* node = Find(path);
  if (!node) return Problem{Find(ParentOf(Absolute(path))) ? kNoSuchFile : kNoSuchFolder};
  if (node->attributes.folder) return Problem{kAccessDenied};
  return node->bytes;
}

Result<void> FakeFiles::ReplaceWhole(const std::u16string& path, std::string_view bytes) {
  if (const auto problem = Injected(FileOperation::kReplaceWhole, path)) return *problem;
  return Replace(path, bytes);
}

Result<void> FakeFiles::Replace(const std::u16string& path, std::string_view bytes) {
  if (const auto problem = WhyNotWritable(FileOperation::kReplace, path)) return *problem;
  Node* node = Find(path);
  SetContent(node ? *node : Add(Absolute(path), false), bytes);
  return {};
}

Result<void> FakeFiles::Create(const std::u16string& path, std::string_view bytes) {
  if (const auto problem = WhyNotWritable(FileOperation::kCreate, path)) return *problem;
  if (Find(path)) return Problem{kFileExists};
  SetContent(Add(Absolute(path), false), bytes);
  return {};
}

bool FakeFiles::Delete(const std::u16string& path) {
  const std::u16string absolute = Absolute(path);
  if (absolute.empty() || HasBadCharacter(absolute) || Injected(FileOperation::kDelete, path))
    return false;
  const Node* node = Find(path);
  if (!node) return true;
  if (node->attributes.folder || node->attributes.readOnly) return false;
  nodes_.erase(KeyOf(absolute));
  return true;
}

bool FakeFiles::Copy(const std::u16string& from, const std::u16string& to) {
  const Node* source = Find(from);
  if (!source || source->attributes.folder || Find(to)) return false;
  if (WhyNotWritable(FileOperation::kCopy, to)) return false;
  Node& target = Add(Absolute(to), false);
  target.bytes = source->bytes;
  target.attributes = source->attributes;
  return true;
}

bool FakeFiles::CreateFolder(const std::u16string& path) {
  if (path.empty() || Find(path) || Injected(FileOperation::kCreateFolder, path)) return false;
  const std::u16string absolute = Absolute(path);
  const Node* parent = Find(ParentOf(absolute));
  if (!parent || !parent->attributes.folder || HasBadCharacter(absolute)) return false;
  Add(absolute, true);
  return true;
}

std::vector<std::u16string> FakeFiles::FilesIn(const std::u16string& folder) const {
  std::vector<std::u16string> names;
  const std::u16string key = KeyOf(Absolute(folder));
  for (const auto& [path, node] : nodes_) {
    if (!node.attributes.folder && KeyOf(ParentOf(path)) == key)
      names.emplace_back(FileNameOf(node.path));
  }
  return names;
}

std::unique_ptr<FileLock> FakeFiles::Lock(const std::u16string& path) {
  class Lock : public FileLock {
   public:
    Lock(std::shared_ptr<std::set<std::u16string>> locked, std::u16string key)
        : locked_(std::move(locked)), key_(std::move(key)) {}
    ~Lock() override { locked_->erase(key_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    std::shared_ptr<std::set<std::u16string>> locked_;
    std::u16string key_;
  };
  if (WhyNotWritable(FileOperation::kLock, path)) return nullptr;
  const std::u16string key = KeyOf(Absolute(path));
  if (!locked_->insert(key).second) return nullptr;
  return std::make_unique<Lock>(locked_, key);
}

std::u16string FakeFiles::Absolute(const std::u16string& path) const {
  if (path.empty()) return {};
  std::u16string full = deck::ReplaceAll(path, u'/', u'\\');
  const bool hasDrive = full.size() >= 2 && full[1] == u':';
  if (StartsWithIgnoringCase(full, u"\\\\")) {
    // A network path is taken to be complete.
    return full;
  }
  if (hasDrive && (full.size() == 2 || full[2] != u'\\')) {
    const bool isCurrentDrive = EqualsIgnoringCase(full.substr(0, 2), currentFolder_.substr(0, 2));
    const std::u16string start = isCurrentDrive ? currentFolder_ : full.substr(0, 2) + u"\\";
    full = WithoutEndingSeparator(start) + (full.size() == 2 ? u"" : u"\\" + full.substr(2));
  } else if (full[0] == u'\\') {
    full = currentFolder_.substr(0, 2) + full;
  } else if (!hasDrive) {
    full = currentFolder_ + u"\\" + full;
  }

  std::u16string absolute = full.substr(0, 2);
  const std::vector<std::u16string> parts = Parts(std::u16string_view(full).substr(2));
  for (const std::u16string& part : parts) absolute += u"\\" + part;
  if (parts.empty() || HasEndingSeparator(full)) absolute += u"\\";
  return absolute;
}

bool FakeFiles::SetCurrentFolder(const std::u16string& path) {
  const Node* node = Find(path);
  if (!node || !node->attributes.folder) return false;
  currentFolder_ = WithoutEndingSeparator(Absolute(path));
  return true;
}

const FakeFiles::Node* FakeFiles::Find(const std::u16string& path) const {
  const std::u16string absolute = Absolute(path);
  const auto found = nodes_.find(KeyOf(absolute));
  if (found == nodes_.end()) return nullptr;
  const Node& node = found->second;
  return HasEndingSeparator(absolute) && !node.attributes.folder ? nullptr : &node;
}

FakeFiles::Node* FakeFiles::Find(const std::u16string& path) {
  const bool exists = std::as_const(*this).Find(path) != nullptr;
  return exists ? &nodes_.at(KeyOf(Absolute(path))) : nullptr;
}

FakeFiles::Node& FakeFiles::Add(const std::u16string& path, bool folder) {
  Node& node = nodes_[KeyOf(path)];
  node = Node{WithoutEndingSeparator(path), {.folder = folder}, {}};
  return node;
}

void FakeFiles::SetContent(Node& node, std::string_view bytes) {
  node.bytes = bytes;
  node.attributes.stamp = ++lastStamp_;
}

std::optional<Problem> FakeFiles::WhyNotWritable(FileOperation operation,
                                                 const std::u16string& path) const {
  if (auto problem = Injected(operation, path)) return problem;
  const std::u16string absolute = Absolute(path);
  if (absolute.size() > kLongestPath) return Problem{kNameTooLong};
  if (absolute.empty() || HasBadCharacter(absolute)) return Problem{kBadName};
  const Node* parent = Find(ParentOf(absolute));
  if (!parent || !parent->attributes.folder || HasEndingSeparator(absolute))
    return Problem{kNoSuchFolder};
  const Node* node = Find(absolute);
  if (node && (node->attributes.folder || node->attributes.readOnly)) return Problem{kAccessDenied};
  return std::nullopt;
}

std::optional<Problem> FakeFiles::Injected(FileOperation operation,
                                           const std::u16string& path) const {
  const auto failure = failures_.find({operation, KeyOf(Absolute(path))});
  if (failure == failures_.end()) return std::nullopt;
  return Problem{failure->second};
}

}  // namespace deck
