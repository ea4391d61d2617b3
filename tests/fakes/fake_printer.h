// A printer that keeps its pages.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/printer.h"

namespace deck {

class FakePrinter : public Printer {
 public:
  struct PrintedPage {
    std::vector<std::u16string> lines;
    std::u16string footer;

    friend bool operator==(const PrintedPage&, const PrintedPage&) = default;
  };
  struct Job {
    std::u16string name;
    std::vector<PrintedPage> pages;
  };

  int InstalledPrinters() const override { return installed; }
  Result<PageSize> BeginJob(const std::u16string& name) override {
    if (failsAtPage == 0 || installed == 0) return Problem{u"The printer is off."};
    open = Job{name, {}};
    inJob = true;
    return size;
  }
  Result<void> PrintPage(const std::vector<std::u16string>& lines,
                         const std::u16string& footer) override {
    if (!inJob) return Problem{u"There is no job."};
    if (static_cast<int>(open.pages.size()) + 1 == failsAtPage) {
      return Problem{u"The printer is out of paper."};
    }
    open.pages.push_back({lines, footer});
    return {};
  }
  Result<void> EndJob() override {
    if (!std::exchange(inJob, false)) return Problem{u"There is no job."};
    if (failsAtEnd) return Problem{u"The queue is full."};
    finished.push_back(open);
    return {};
  }
  void AbortJob() override {
    ++aborted;
    inJob = false;
  }
  void Setup() override { ++setups; }
  std::u16string ShortDate() const override { return date; }

  int installed = 1;
  PageSize size{80, 60};
  std::u16string date = u"2/28/2026";
  int failsAtPage = -1;  // from 1; 0: the job does not even begin
  bool failsAtEnd = false;
  int setups = 0;
  int aborted = 0;
  bool inJob = false;
  Job open;
  std::vector<Job> finished;
};

}  // namespace deck
