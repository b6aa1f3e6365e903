// Messages and questions as the system's message boxes, and the report of failed commands.
#pragma once

#include <windows.h>

#include "platform/failure.h"
#include "platform/questions.h"
#include "windows/base/command_window.h"

namespace pricedown::windows {

class MessageBoxQuestions final : public UserQuestions {
 public:
  // The boxes belong to the top-level window around `window`, which must outlive this object.
  explicit MessageBoxQuestions(const CommandWindow& window) : window_(window) {}

  void ShowMessage(std::u16string_view text, std::u16string_view title, MessageIcon icon) override;
  bool Confirm(std::u16string_view text, std::u16string_view title, MessageIcon icon) override;

 private:
  int Show(std::u16string_view text, std::u16string_view title, UINT type) const;

  const CommandWindow& window_;
};

// Shows the failure of a command that a window of ours has started. `owner` may be null.
void ReportFailure(HWND owner, const Failure& failure) noexcept;

}  // namespace pricedown::windows
