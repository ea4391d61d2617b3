#include "documents/multi_select.h"

namespace deck {

std::vector<std::u16string> ExtractFilePathsOnMultiOpen(std::u16string_view selection) {
  std::vector<std::u16string> paths;
  std::size_t end = selection.find(u'\0');
  if (end == std::u16string_view::npos) return paths;
  std::u16string folder(selection.substr(0, end));
  if (!folder.ends_with(u'\\')) folder += u'\\';
  while (end != std::u16string_view::npos) {
    selection.remove_prefix(end + 1);
    end = selection.find(u'\0');
    const std::u16string_view name = selection.substr(0, end);
    // The system closes the list with one more separator.
    if (!name.empty()) paths.push_back(folder + std::u16string(name));
  }
  return paths;
}

}  // namespace deck
