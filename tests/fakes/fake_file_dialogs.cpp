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

}  // namespace deck
