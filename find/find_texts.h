// Every text that find, replace and goto line show. The titles are informal on purpose.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/prompts.h"

namespace deck {

// Captions of the find buttons, which are the state of the search.
inline constexpr std::u16string_view kFindFirst = u"Find first";
inline constexpr std::u16string_view kFindNext = u"Find next";

inline constexpr std::u16string_view kFindDialogHint =
    u"Use the Find and Replace window for text searches, edits and to highlight lines in the "
    u"currently selected file.";

Message NothingToSearchFor();
// The two pages call an empty document differently.
Message NoTextInFile(const std::u16string& file);
Message NoTextInJoystickFile(const std::u16string& file);
Message TextNotFound(const std::u16string& text, const std::u16string& file);
Message NoFurtherInstances(const std::u16string& text, const std::u16string& file);
Message ReplacementsMade(std::int16_t count, const std::u16string& file);
Message InvalidLineNumber();
Message GotoLineNotFound();

}  // namespace deck
