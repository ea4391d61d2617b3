// KeyCodes.txt in the host's folder, and its backup copy in the folder Info, which takes its place
// when it is missing.
#pragma once

#include <optional>
#include <string>

#include "keytest/key_code_table.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/prompts.h"

namespace deck {

struct KeyCodeFilePorts {
  Files& files;
  Prompts& prompts;
  EventLoop& events;
  const CodePage& codePage;
};

// `hostFolder` comes without a trailing "\". Restores a missing table from its backup, telling the
// user; a table that is there is never written over. Nothing when there is no table even then: the
// user has been told. A table that cannot be read is an empty one.
std::optional<KeyCodeTable> GetMappedCharacters(const std::u16string& hostFolder,
                                                const KeyCodeFilePorts& ports);

}  // namespace deck
