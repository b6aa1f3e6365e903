// The log lines of messages and questions.
#include "tests/support/recording_questions.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

std::string IconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::None:
      return "no icon";
    case MessageIcon::Information:
      return "information";
    case MessageIcon::Question:
      return "question";
  }
  return "unknown icon";
}

std::string Shown(std::u16string_view text, std::u16string_view title, MessageIcon icon) {
  return IconName(icon) + " " + Quoted(title) + ": " + Quoted(text);
}

}  // namespace

RecordingQuestions::~RecordingQuestions() {
  if (!answers_.empty()) ADD_FAILURE() << answers_.size() << " answers without a question";
}

void RecordingQuestions::WillAnswer(std::initializer_list<bool> answers) {
  answers_.insert(answers_.end(), answers);
}

void RecordingQuestions::ShowMessage(std::u16string_view text, std::u16string_view title,
                                     MessageIcon icon) {
  log_.Add("message " + Shown(text, title, icon));
  if (whileShown) whileShown();
}

bool RecordingQuestions::Confirm(std::u16string_view text, std::u16string_view title,
                                 MessageIcon icon) {
  const std::string line = "ask " + Shown(text, title, icon);
  if (answers_.empty()) {
    log_.Add(line);
    ADD_FAILURE() << "no answer scripted: " << line;
    return false;
  }
  const bool answer = answers_.front();
  answers_.pop_front();
  log_.Add(line + (answer ? " -> yes" : " -> no"));
  if (whileAsked) whileAsked();
  return answer;
}

}  // namespace pricedown::testing
