// The small window of a job that takes long: which page is being printed, and a button to cancel.
#pragma once

#include <windows.h>

#include <optional>

#include "windows/base/bound_window.h"
#include "windows/base/fonts.h"
#include "windows/base/image_list.h"
#include "windows/base/modal_showing.h"
#include "windows/base/plain_control.h"
#include "windows/base/visual_styles.h"
#include "windows/print/print_job.h"

namespace pricedown::windows {

// While it is shown the thread's other windows are disabled, and their messages are handled before
// each sheet.
class PrintProgress final : public PrintWatcher, private BoundWindow {
 public:
  // Over `owner`, which may be null, once a job has run for `patience` milliseconds.
  PrintProgress(HINSTANCE module, HWND owner, DWORD patience = 700);
  ~PrintProgress() override;

  // PrintWatcher. Throws AutomationError when the window cannot be created.
  bool Continue(std::int64_t sheet, std::int64_t count) override;

 private:
  void Show();
  void LayOut();
  // Handles the messages of the thread's windows.
  void HandleMessages();
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  HINSTANCE module_;
  HWND owner_;
  ULONGLONG showAt_;
  bool shown_ = false;
  bool cancelled_ = false;
  VisualStyles styles_;
  FontHandle font_;
  IconHandle icon_;
  PlainControl text_;
  PlainControl bar_;
  PlainControl button_;
  std::optional<ModalShowing> modal_;
};

}  // namespace pricedown::windows
