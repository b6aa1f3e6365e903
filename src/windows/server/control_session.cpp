// Construction and end of a session.
#include "windows/server/control_session.h"

#include "platform/skip.h"

namespace pricedown::windows {

ControlSession::ControlSession(Module& module, ContainerWindow& container,
                               std::function<std::shared_ptr<void>()> hold,
                               std::shared_ptr<HostEvents> events)
    : window_(module.instance),
      questions_(window_),
      screen_(window_),
      editor_(module, window_),
      printOutput_(module.instance, window_, lifetime_) {
  core_.emplace(PriceDownPorts{module.factory, module.ThisThread().state, questions_, screen_,
                               container, window_, window_, window_, ProgramName(), window_.Form(),
                               editor_, printOutput_, std::move(hold), lifetime_,
                               std::move(events)});
  window_.Attach(&*core_);
}

ControlSession::~ControlSession() {
  Terminate();
  SkipFailing([&] { window_.Attach(nullptr); });
}

void ControlSession::Initialize() {
  if (initialized_ || lifetime_.HasEnded()) return;
  initialized_ = true;
  try {
    core_->Initialize();
  } catch (...) {
    failure_ = CurrentFailure();
    throw;
  }
}

void ControlSession::Terminate() noexcept {
  SkipFailing([&] { core_->Terminate(); });
  printOutput_.Close();
}

}  // namespace pricedown::windows
