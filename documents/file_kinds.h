// Kinds of files by their extension: the last three characters of the name in lower case.
#pragma once

#include <string_view>

namespace deck {

bool IsMacroFile(std::u16string_view nameOrPath);     // tmm, m22, m50
bool IsJoystickFile(std::u16string_view nameOrPath);  // tmj, f22, b50
// Only these can be compiled: tmj.
bool IsCompilable(std::u16string_view nameOrPath);

}  // namespace deck
