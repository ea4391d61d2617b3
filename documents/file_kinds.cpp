#include "documents/file_kinds.h"

#include "platform/strings.h"

namespace deck {

bool IsMacroFile(std::u16string_view nameOrPath) {
  const std::u16string extension = ExtensionOf(nameOrPath);
  return extension == u"tmm" || extension == u"m22" || extension == u"m50";
}

bool IsJoystickFile(std::u16string_view nameOrPath) {
  const std::u16string extension = ExtensionOf(nameOrPath);
  return extension == u"tmj" || extension == u"f22" || extension == u"b50";
}

bool IsCompilable(std::u16string_view nameOrPath) {
  return ExtensionOf(nameOrPath) == u"tmj";
}

}  // namespace deck
