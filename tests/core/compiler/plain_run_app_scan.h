// The rules of the RUN_APP statement once more, step by step and without a thought for speed: what
// FindAppsToRun must agree with on any text.
#pragma once

#include <string>
#include <vector>

#include "compiler/run_app_scan.h"

namespace deck {

std::vector<AppToRun> PlainFindAppsToRun(const std::u16string& text);

}  // namespace deck
