// A recording user: logs messages and returns scripted answers.
// A question without a scripted answer fails the test and counts as No. An answer that no
// question asks for fails it, too.
#pragma once

#include <deque>
#include <functional>
#include <initializer_list>

#include "platform/questions.h"
#include "tests/support/call_log.h"

namespace pricedown::testing {

// Log lines: message information "title": "text", and ask question "title": "text" -> yes.
class RecordingQuestions : public UserQuestions {
 public:
  explicit RecordingQuestions(CallLog log) : log_(std::move(log)) {}
  ~RecordingQuestions();
  RecordingQuestions(const RecordingQuestions&) = delete;
  RecordingQuestions& operator=(const RecordingQuestions&) = delete;

  // The answers to the next questions, in turn; true is Yes.
  void WillAnswer(std::initializer_list<bool> answers);
  // Drops the unused answers.
  void ForgetAnswers() { answers_.clear(); }
  // Runs while a question or message is open; may be empty.
  std::function<void()> whileAsked;
  std::function<void()> whileShown;

  void ShowMessage(std::u16string_view text, std::u16string_view title, MessageIcon icon) override;
  bool Confirm(std::u16string_view text, std::u16string_view title, MessageIcon icon) override;

 private:
  CallLog log_;
  std::deque<bool> answers_;
};

}  // namespace pricedown::testing
