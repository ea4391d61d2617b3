// Message boxes that answer by script. Boxes with OK alone need no script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/prompts.h"

namespace deck {

class FakePrompts : public Prompts {
 public:
  Answer Show(const Message& message) override;

  // Answers to questions: those for the title first, then those for any title. Each is used once.
  std::map<std::u16string, std::deque<Answer>> answersByTitle;
  std::deque<Answer> answers;

  std::vector<Message> shown;
  // Questions without a scripted answer, or with one that the box has no button for. They were
  // answered with kCancel where there is such a button and with kNo elsewhere.
  std::vector<Message> unexpected;
  // Runs while the box is open.
  std::function<void(const Message&)> onShow;
};

}  // namespace deck
