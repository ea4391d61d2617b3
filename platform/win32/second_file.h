// The second file beside a file, in which new content stands until it takes the old one's place. A
// process that dies in between leaves it behind. Its name tells whose it is, so that a later write
// of the same file can take it away.
#pragma once

#include <string>

namespace deck {

// Of this process, and like no other one: "C:\a.tmj~1234-56789.tmp" for "C:\a.tmj".
std::u16string SecondName(const std::u16string& path);

// Deletes what processes that live no longer left beside the file `path`: only names of that very
// form, and no file that somebody has open.
void DeleteLeftSecondFiles(const std::u16string& path);

}  // namespace deck
