// The control between its container and the core: site, sizes, creation and end. The COM interfaces
// forward to it.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include <memory>

#include "platform/first_failure.h"
#include "windows/com/boundary.h"
#include "windows/server/control_session.h"
#include "windows/server/event_source.h"
#include "windows/server/in_place_activation.h"
#include "windows/server/site_container.h"

namespace pricedown::windows {

// Lengths of 0.01 mm as OLE counts them, and pixels of the screen.
SIZE ToPixels(const SIZEL& himetric);

class HostedControl {
 public:
  // Creates the window; does not call the suite. `self` is the COM object; adds no reference.
  HostedControl(IUnknown& self, IOleInPlaceActiveObject& activeObject);
  HostedControl(const HostedControl&) = delete;
  HostedControl& operator=(const HostedControl&) = delete;

  // Whether the calling thread is the control's. Methods return RPC_E_WRONG_THREAD on any other.
  bool IsOnItsThread() const noexcept { return GetCurrentThreadId() == thread_; }

  // Wraps a COM method: keeps the object alive and turns exceptions into codes.
  template <typename Body>
  HRESULT Run(Body&& body, const IID& interfaceId = IID{}) noexcept {
    if (!IsOnItsThread()) return RefuseThread();
    const auto hold = ComPtr<IUnknown>::Share(&self_);
    return AtBoundary(std::forward<Body>(body), interfaceId);
  }

  // Runs a member of the core and returns its result. Without a container the core's creation runs
  // first; when that fails, the member still runs and the failure is thrown afterwards. Throws
  // AutomationError in design mode.
  template <typename Member>
  Value RunMember(Member&& member) {
    const auto session = RunningSession();
    FirstFailure steps;
    if (!site_) steps.Run([&] { session->Initialize(); });
    Value answer;
    steps.Run([&] { answer = member(session->Core()); });
    steps.Rethrow();
    return answer;
  }

  // Null leaves the container and ends the session. In run mode the core's creation runs; here and
  // below its failure is thrown once everything else is done. `userMode` is for a site that does
  // not say.
  void SetSite(IOleClientSite* site, bool userMode = true);
  ComPtr<IOleClientSite> Site() const { return site_.Copy(); }
  // The container's user mode may have changed.
  void AmbientChanged(DISPID property);

  // Starts a new session after an end, and activates. UI activation moves the focus to the first
  // child in tab order, or to the last one. Throws AutomationError.
  void Activate(bool ui, bool atLast = false);
  void DeactivateUi() { activation_.DeactivateUi(); }
  // Hides the window of the active control; showing it again activates nothing.
  void Hide();
  void Deactivate();
  const InPlaceActivation& Activation() const { return activation_; }
  // False in design mode.
  bool AcceptsInput() const { return userMode_; }
  void SetRects(const RECT& position, const RECT& clip);

  // Ends the session; a container may use the object again.
  void Close();

  const SIZEL& Extent() const { return extent_; }
  // The extent as a COM method returns it.
  HRESULT CopyExtent(SIZEL& extent) noexcept;
  // Throws AutomationError when a length is negative.
  void SetExtent(const SIZEL& himetric);

  ControlWindow& Window() { return session_->Window(); }
  ControlSession& Session() { return *session_; }
  EventSource& Events() { return *events_; }

 private:
  // Throws AutomationError in design mode.
  std::shared_ptr<ControlSession> RunningSession();
  void NewSession();
  void Start();
  void End() noexcept;
  void FitParkedWindow();

  const DWORD thread_ = GetCurrentThreadId();
  IUnknown& self_;
  IOleInPlaceActiveObject& activeObject_;
  const std::shared_ptr<EventSource> events_ = std::make_shared<EventSource>();
  SiteContainer container_;
  std::shared_ptr<ControlSession> session_;
  InPlaceActivation activation_;
  ComPtr<IOleClientSite> site_;
  bool userMode_ = true;
  SIZEL extent_;
};

}  // namespace pricedown::windows
