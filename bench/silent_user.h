// A user who agrees to everything and is counted when told something.
// What is measured tells nothing, so that a message means that a command was refused.
#pragma once

#include <stdexcept>
#include <string_view>

#include "platform/questions.h"

namespace bench {

class SilentUser final : public pricedown::UserQuestions {
 public:
  void Tell(std::u16string_view, std::u16string_view, pricedown::MessageIcon) override { ++told_; }
  bool Confirm(std::u16string_view, std::u16string_view, pricedown::MessageIcon) override {
    return true;
  }

  // Throws std::runtime_error when the user was told something: then the figures are wrong.
  void RequireUntold() const {
    if (told_ > 0) throw std::runtime_error("a command was refused: the figures are wrong");
  }

 private:
  int told_ = 0;
};

}  // namespace bench
