// The port to the user for messages and questions, both modal.
#pragma once

#include <string_view>

namespace pricedown {

enum class MessageIcon { None, Information, Question };

class UserQuestions {
 public:
  virtual ~UserQuestions() = default;
  // Shows a message with an OK button; returns when the user has closed it.
  virtual void ShowMessage(std::u16string_view text, std::u16string_view title,
                           MessageIcon icon) = 0;
  // Asks with the buttons Yes and No; true for Yes only.
  virtual bool Confirm(std::u16string_view text, std::u16string_view title, MessageIcon icon) = 0;
};

}  // namespace pricedown
