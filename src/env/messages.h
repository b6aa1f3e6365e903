// The library's messages and questions: text and title through the translation hook.
#pragma once

#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/questions.h"

namespace pricedown {

inline constexpr std::u16string_view kMessageTitle = u"岚禾提示";

// The text of a failure for the user: its description, or that something unexpected has happened.
std::u16string FailureText(const Failure& failure);

class Messages {
 public:
  explicit Messages(UserQuestions& questions) : questions_(questions) {}

  // A message with an OK button and the information icon. `text` is complete; its built-in pieces
  // have passed the translation hook.
  void Inform(std::u16string_view text);
  // A question with Yes and No; true for Yes only.
  bool Ask(std::u16string_view text, MessageIcon icon);
  // A message with an OK button and no icon.
  void Report(std::u16string_view text);

 private:
  UserQuestions& questions_;
};

}  // namespace pricedown
