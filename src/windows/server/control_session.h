// One life of the control: its window, its ports and the core's PriceDown. A container that uses
// the object again after its end starts a new session.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "control/price_down.h"
#include "windows/base/message_box_questions.h"
#include "windows/base/windows_screen.h"
#include "windows/control/control_window.h"
#include "windows/print/windows_print_output.h"
#include "windows/server/module.h"
#include "windows/server/shared_editor.h"

namespace pricedown::windows {

class ControlSession {
 public:
  // `container` must outlive the session; the result of `hold` keeps both alive.
  // Throws AutomationError when there is no window.
  ControlSession(Module& module, ContainerWindow& container,
                 std::function<std::shared_ptr<void>()> hold, std::shared_ptr<HostEvents> events);
  ~ControlSession();
  ControlSession(const ControlSession&) = delete;
  ControlSession& operator=(const ControlSession&) = delete;

  ControlWindow& Window() { return window_; }
  PriceDown& Core() { return *core_; }

  // Runs the core's creation once. Throws what the creation throws; the session is usable all the
  // same.
  void Initialize();
  // Whether the creation has run without a failure and the session has not ended.
  bool IsReady() const { return initialized_ && !failure_ && !lifetime_.HasEnded(); }
  // Why the creation failed; nothing when it did not, or has not run.
  const std::optional<Failure>& CreationFailure() const { return failure_; }

  // Runs the core's termination once.
  void Terminate() noexcept;
  bool HasEnded() const { return lifetime_.HasEnded(); }
  // Whether the session can still be shown.
  bool IsUsable() const { return !lifetime_.HasEnded() && window_.Handle() != nullptr; }

 private:
  ControlWindow window_;
  MessageBoxQuestions questions_;
  WindowsScreen screen_;
  SharedEditor editor_;
  Lifetime lifetime_;
  WindowsPrintOutput printOutput_;
  std::optional<PriceDown> core_;
  bool initialized_ = false;
  std::optional<Failure> failure_;
};

}  // namespace pricedown::windows
