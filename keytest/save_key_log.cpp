#include "keytest/save_key_log.h"

#include "platform/strings.h"
#include "platform/text_edits.h"
#include "platform/text_encoding.h"

namespace deck {
namespace {

constexpr std::u16string_view kFilter = u"Text files (*.txt)|*.txt|All files (*.*)|*.*";
constexpr int kTextFilter = 1;

std::u16string PathOf(const SaveChoice& choice) {
  const bool hasExtension = FileNameOf(choice.path).find(u'.') != std::u16string_view::npos;
  return choice.filterIndex == kTextFilter && !hasExtension ? choice.path + u".txt" : choice.path;
}

bool MayReplace(const std::u16string& path, Prompts& prompts) {
  return prompts.Show({std::u16string(FileNameOf(path)) +
                           u" already exists. Do you want me to overwrite this file?",
                       u"Save key log", BoxStyle::kYesNo}) == Answer::kYes;
}

}  // namespace

void SaveKeyLog(std::u16string_view text, const std::u16string& folder,
                const SaveKeyLogPorts& ports) {
  const auto choice = ports.dialogs.Save(
      {.filter = std::u16string(kFilter), .initialFolder = folder, .fileName = u"Keys.txt"});
  if (!choice) return;
  const std::u16string path = ports.files.Absolute(PathOf(*choice));
  if (FileExists(ports.files, path) && !MayReplace(path, ports.prompts)) return;
  FileFormat format;
  const std::string bytes = EncodeFile(BoxText(text), format, ports.codePage);
  if (const Result<void> written = ports.files.Replace(path, bytes); !written) {
    ports.prompts.Show({path + u" could not be saved.\r\n" + written.problem().reason,
                        u"Save key log", BoxStyle::kExclamation});
  }
}

}  // namespace deck
