// The system's help viewers. The library of the compiled help is loaded when it is first needed; a
// system without it shows nothing.
#pragma once

#include <string>

namespace deck {

class HelpSystem {
 public:
  virtual ~HelpSystem() = default;
  // Prepares the viewer of compiled help for this process; once, before the first topic.
  virtual void Prepare() = 0;
  virtual void ShowTopic(const std::u16string& file, unsigned contextNumber) = 0;
  // Opens the file with the program that the system knows for it.
  virtual void OpenWithShell(const std::u16string& file, const std::u16string& folder) = 0;
  // Closes every help window of this process.
  virtual void CloseAll() = 0;
};

}  // namespace deck
