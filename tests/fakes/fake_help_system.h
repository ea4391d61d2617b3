// Help viewers that only remember what they were asked for.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/help_system.h"

namespace deck {

class FakeHelpSystem : public HelpSystem {
 public:
  void Prepare() override { ++prepared; }
  void ShowTopic(const std::u16string& file, unsigned contextNumber) override {
    topics.emplace_back(file, contextNumber);
  }
  void OpenWithShell(const std::u16string& file, const std::u16string& folder) override {
    opened.emplace_back(file, folder);
  }
  void CloseAll() override {
    ++closed;
    if (onCloseAll) onCloseAll();
  }

  int prepared = 0;
  int closed = 0;
  std::function<void()> onCloseAll;
  std::vector<std::pair<std::u16string, unsigned>> topics;
  std::vector<std::pair<std::u16string, std::u16string>> opened;
};

}  // namespace deck
