#include "documents/print_command.h"

#include <utility>

#include "documents/page_layout.h"
#include "platform/strings.h"

namespace deck {
namespace {

Message NoPrinter(const std::u16string& caption) {
  return {u"Sorry - I couldn't detect a printer connected to your system, so I can't print out " +
              caption +
              u". If you do have a printer connected, check your driver's settings from the "
              u"Control panel.",
          u"No printer detected", BoxStyle::kExclamation};
}

std::u16string Footer(std::size_t page, std::size_t pages) {
  return u"Page " + Decimal(static_cast<std::int64_t>(page)) + u" of " +
         Decimal(static_cast<std::int64_t>(pages));
}

}  // namespace

PrintCommand::PrintCommand(DocumentSet& documents, StatusBar& status, Prompts& prompts,
                           Printer& printer)
    : documents_(documents), status_(status), prompts_(prompts), printer_(printer) {}

void PrintCommand::mnuPrint() {
  const std::u16string text = documents_.GetCurrentTextBox().Text();
  const std::u16string caption = documents_.Current().caption;
  if (printer_.InstalledPrinters() == 0) {
    prompts_.Show(NoPrinter(caption));
    return;
  }
  status_.Say(u"Printing " + caption);
  if (const Result<void> printed = PrintText(caption, text); !printed) {
    status_.Say(caption + u" could not be printed: " + printed.problem().reason);
    return;
  }
  status_.Say(u"Finished printing " + caption);
}

Result<void> PrintCommand::PrintText(const std::u16string& caption, std::u16string_view text) {
  const Result<PageSize> size = printer_.BeginJob(caption);
  if (!size) return size.problem();
  const std::u16string heading = caption + u"\nDate printed: " + printer_.ShortDate() + u"\n";
  const std::vector<Page> pages = LayOutPages(heading + std::u16string(text), *size);
  std::size_t number = 0;
  for (const Page& page : pages) {
    ++number;
    if (Result<void> printed = printer_.PrintPage(page, Footer(number, pages.size())); !printed) {
      printer_.AbortJob();
      return printed;
    }
  }
  return printer_.EndJob();
}

void PrintCommand::mnuPrinterSetup() {
  printer_.Setup();
}

}  // namespace deck
