// What the user reads who clicks on `LBL_ModeWarning`.
#pragma once

#include <string_view>

#include "platform/prompts.h"

namespace deck {

// `status` is what the controllers reported when they were asked to change their mode.
Message ModeWarning(std::u16string_view status);

}  // namespace deck
