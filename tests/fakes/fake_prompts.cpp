#include "tests/fakes/fake_prompts.h"

#include <optional>

namespace deck {
namespace {

bool IsQuestion(BoxStyle style) {
  return style == BoxStyle::kYesNoCancel || style == BoxStyle::kYesNo ||
         style == BoxStyle::kYesNoExclamationDefaultNo;
}

bool HasButton(BoxStyle style, Answer answer) {
  if (answer == Answer::kCancel) return style == BoxStyle::kYesNoCancel;
  return answer == Answer::kYes || answer == Answer::kNo;
}

std::optional<Answer> TakeFirst(std::deque<Answer>& answers) {
  if (answers.empty()) return std::nullopt;
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

}  // namespace

Answer FakePrompts::Show(const Message& message) {
  shown.push_back(message);
  if (onShow) onShow(message);
  if (!IsQuestion(message.style)) return Answer::kOk;

  std::optional<Answer> answer;
  const auto ofTitle = answersByTitle.find(message.title);
  if (ofTitle != answersByTitle.end()) answer = TakeFirst(ofTitle->second);
  if (!answer) answer = TakeFirst(answers);
  if (answer && HasButton(message.style, *answer)) return *answer;
  unexpected.push_back(message);
  return message.style == BoxStyle::kYesNoCancel ? Answer::kCancel : Answer::kNo;
}

}  // namespace deck
