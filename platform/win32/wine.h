// Whether the program runs under Wine, for the few things that Wine has to leave to the desktop
// around it.
#pragma once

namespace deck {

bool RunsUnderWine();

}  // namespace deck
