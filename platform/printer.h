// The printer that Print uses: the system's default one until the setup dialog chooses another,
// with the copies and the orientation chosen there. Text is set in a fixed-pitch font.
#pragma once

#include <string>
#include <vector>

#include "platform/result.h"

namespace deck {

// What one page takes of the text, inside the margins and above the page number.
struct PageSize {
  int columns = 80;  // characters of a line
  int rows = 60;     // lines
};

class Printer {
 public:
  virtual ~Printer() = default;
  virtual int InstalledPrinters() const = 0;
  // Begins a job under that name in the printer's queue.
  virtual Result<PageSize> BeginJob(const std::u16string& name) = 0;
  // `footer` stands below the text.
  virtual Result<void> PrintPage(const std::vector<std::u16string>& lines,
                                 const std::u16string& footer) = 0;
  // Hands the job over. A job that failed is dropped by AbortJob instead.
  virtual Result<void> EndJob() = 0;
  virtual void AbortJob() = 0;
  // Shows the setup dialog; cancelling changes nothing.
  virtual void Setup() = 0;
  // Today in the short form of the user's locale.
  virtual std::u16string ShortDate() const = 0;
};

}  // namespace deck
