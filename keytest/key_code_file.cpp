#include "keytest/key_code_file.h"

namespace deck {
namespace {

void AnnounceRestore(Prompts& prompts) {
  prompts.Show(
      {u"You're missing a critical file, called KeyCodes.txt which should be located in "
       u"Wren's directory. A backup copy is in your Info subdirectory. I shall attempt to "
       u"copy this across and restore the file. Please wait ...",
       u"KeyCodes.txt is missing !!!", BoxStyle::kCritical});
}

// Whether there is a table afterwards.
bool Restore(const std::u16string& hostFolder, const std::u16string& path,
             const KeyCodeFilePorts& ports) {
  AnnounceRestore(ports.prompts);
  // What counts is whether the file is there afterwards, whoever put it there.
  static_cast<void>(ports.files.Copy(hostFolder + u"\\Info\\KeyCodes.txt", path));
  ports.events.PumpEvents();
  if (FileExists(ports.files, path)) {
    ports.prompts.Show({path + u" has been successfully restored. Please stop misbehaving with my "
                               u"file system!",
                        u"Well I saved your butt!", BoxStyle::kInformation});
    return true;
  }
  ports.prompts.Show({u"I was unable to restore " + path +
                          u" - please close down the Key Tester and restore the file manually.",
                      u"It didn't work :(", BoxStyle::kCritical});
  return false;
}

// In bytes that the code page does not know, each byte stands for the character of its number.
std::u16string Decoded(std::string_view bytes, const CodePage& codePage) {
  if (auto text = codePage.Decode(bytes)) return *std::move(text);
  std::u16string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += static_cast<char16_t>(static_cast<unsigned char>(byte));
  return text;
}

}  // namespace

std::optional<KeyCodeTable> GetMappedCharacters(const std::u16string& hostFolder,
                                                const KeyCodeFilePorts& ports) {
  const std::u16string path = hostFolder + u"\\KeyCodes.txt";
  if (!FileExists(ports.files, path) && !Restore(hostFolder, path, ports)) return std::nullopt;
  const Result<std::string> bytes = ports.files.Read(path);
  return bytes ? ParseKeyCodes(Decoded(*bytes, ports.codePage)) : KeyCodeTable();
}

}  // namespace deck
