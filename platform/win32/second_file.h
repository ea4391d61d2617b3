// Writing a file by a second one beside it, in which the new content stands until it takes the old
// one's place. A process that dies in between leaves the second file behind. Its name tells whose
// it is - "C:\a.tmj~1234-56789.tmp", of process 1234 - so that a later write takes it away.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace deck {

// Lets `write` make the second file, under the name that it is given, and puts it in the place of
// the file `path`, with MoveFileEx's flags besides "replace". Both give the system's error, 0 for
// none; after one the old file stands and the second is gone.
//
// First goes what processes that live no longer left beside the file: only names of that very form,
// and no file that somebody has open. Somebody who reads the old file keeps the system from putting
// another in its place, most often for a moment only - a virus scanner, an index, another editor -
// so that a few more tries within two tenths of a second come before the error.
DWORD ReplaceBySecondFile(const std::u16string& path,
                          const std::function<DWORD(const std::u16string& second)>& write,
                          DWORD flags = 0);

}  // namespace deck
