#include "tests/fakes/fake_file_dialogs.h"

#include <utility>

namespace deck {
namespace {

template <class T>
std::optional<T> TakeFirst(std::deque<std::optional<T>>& results, int& unexpected) {
  if (results.empty()) {
    ++unexpected;
    return std::nullopt;
  }
  std::optional<T> result = std::move(results.front());
  results.pop_front();
  return result;
}

std::u16string WithSeparator(const std::u16string& folder) {
  return folder.ends_with(u'\\') ? folder : folder + u'\\';
}

}  // namespace

std::optional<std::u16string> FakeFileDialogs::Open(const FileDialogRequest& request) {
  openRequests.push_back(request);
  if (onShow) onShow();
  return TakeFirst(openResults, unexpected);
}

std::optional<SaveChoice> FakeFileDialogs::Save(const FileDialogRequest& request) {
  saveRequests.push_back(request);
  if (onShow) onShow();
  return TakeFirst(saveResults, unexpected);
}

std::u16string FakeFileDialogs::Selection(const std::u16string& folder,
                                          const std::vector<std::u16string>& names) {
  if (names.size() == 1) return WithSeparator(folder) + names[0];
  std::u16string selection = folder;
  for (const std::u16string& name : names) selection += u'\0' + name;
  return selection;
}

}  // namespace deck
