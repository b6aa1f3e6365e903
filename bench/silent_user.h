// A user who agrees to everything; counts messages. A measured command shows none, so a message
// means that it was refused.
#pragma once

#include <stdexcept>
#include <string_view>

#include "platform/questions.h"

namespace bench {

class SilentUser final : public pricedown::UserQuestions {
 public:
  void ShowMessage(std::u16string_view, std::u16string_view, pricedown::MessageIcon) override {
    ++messages_;
  }
  bool Confirm(std::u16string_view, std::u16string_view, pricedown::MessageIcon) override {
    return true;
  }

  // Throws std::runtime_error if a message was shown: the figures are then wrong.
  void RequireNoMessages() const {
    if (messages_ > 0) throw std::runtime_error("a command was refused: the figures are wrong");
  }

 private:
  int messages_ = 0;
};

}  // namespace bench
