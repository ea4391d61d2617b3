// The second file beside a file, in which new content stands until it takes the old one's place. A
// process that dies in between leaves it behind. Its name tells whose it is, so that a later write
// of the same file can take it away.
#pragma once

#include <windows.h>

#include <string>

namespace deck {

// Of this process, and like no other one: "C:\a.tmj~1234-56789.tmp" for "C:\a.tmj".
std::u16string SecondName(const std::u16string& path);

// Moves the second file into the place of the file `path`, with MoveFileEx's flags besides
// "replace"; the system's error, 0 for none. Somebody who reads the old file keeps the system from
// it, most often for a moment only - a virus scanner, an index, another editor - so that a few more
// tries within two tenths of a second come before the error.
DWORD PutSecondInPlace(const std::u16string& second, const std::u16string& path, DWORD flags = 0);

// Deletes what processes that live no longer left beside the file `path`: only names of that very
// form, and no file that somebody has open.
void DeleteLeftSecondFiles(const std::u16string& path);

}  // namespace deck
