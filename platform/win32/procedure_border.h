// What every window procedure runs in: the system calls it and knows no exceptions. A message that
// ran out of memory half-way does nothing more; the user's text is still there to be saved.
#pragma once

#include <windows.h>

namespace deck {

template <class Body>
LRESULT InProcedure(Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return 0;
  }
}

}  // namespace deck
