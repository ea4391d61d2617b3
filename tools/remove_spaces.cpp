#include "tools/remove_spaces.h"

#include "platform/text_encoding.h"
#include "tools/align_slashes.h"

namespace deck {

void SlashAlignment::RemoveSpaces() {
  EditBox& box = documents_.GetCurrentTextBox();
  const std::u16string text = box.Text();
  if (text.empty()) return;
  status_.Say(u" Hang on - this could take time ...");
  // Nothing is painted by itself until the command ends.
  ports_.window.Refresh();
  const std::u16string aligned =
      AlignSlashes(text, {settings_.IndentAsWell == 1, settings_.IndentSpaces});
  LeaveTemporaryFile(u"DeckAlign.txt", text);
  LeaveTemporaryFile(u"DeckAlign2.txt", aligned);
  box.Apply(BlankEdits(text, aligned));
  // The whole text was written anew, even where it reads the same.
  documents_.OnChanged(documents_.Current().id);
}

void SlashAlignment::LeaveTemporaryFile(std::u16string_view name, std::u16string_view text) {
  const std::u16string folder = settings_.applicationFolder + u"\\Temp";
  const auto attributes = ports_.files.Attributes(folder);
  if (!attributes || !attributes->folder) return;
  const std::u16string path = folder + u"\\" + std::u16string(name);
  // A file of an earlier run must not pass for one of this run when writing fails.
  static_cast<void>(ports_.files.Delete(path));
  FileFormat format = documents_.Current().file.format;
  static_cast<void>(ports_.files.Replace(path, EncodeFile(text, format, ports_.codePage)));
}

}  // namespace deck
