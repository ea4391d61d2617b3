// Errors of the system in its own words.
#pragma once

#include <windows.h>

#include "platform/result.h"

namespace deck {

// The system's sentence for an error code, without the line break at its end.
Problem ProblemOf(DWORD error);

}  // namespace deck
