// The control between its container and the core: site, sizes, creation and end.
// It is no COM object; the parts of price_down_object.h are the interfaces to it.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include <memory>

#include "platform/first_failure.h"
#include "windows/com/boundary.h"
#include "windows/server/control_session.h"
#include "windows/server/in_place_activation.h"
#include "windows/server/site_container.h"

namespace pricedown::windows {

// Lengths of 0.01 mm as OLE counts them, and pixels of the screen.
SIZE ToPixels(const SIZEL& himetric);

class HostedControl {
 public:
  // Makes the window; asks nothing of the suite. `self` is the COM object, adds no reference.
  HostedControl(IUnknown& self, IOleInPlaceActiveObject& activeObject);
  HostedControl(const HostedControl&) = delete;
  HostedControl& operator=(const HostedControl&) = delete;

  // Wraps a COM method: keeps the object alive and turns exceptions into codes.
  template <typename Body>
  HRESULT Run(Body&& body, const IID& interfaceId = IID{}) noexcept {
    const auto hold = ComPtr<IUnknown>::Share(&self_);
    return AtBoundary(std::forward<Body>(body), interfaceId);
  }

  // Runs a member on the core and answers its answer. Without a container the core's creation runs
  // first; when that fails the member runs all the same, and the failure is thrown after it.
  // Throws AutomationError in design mode.
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

  // Whatever runs the core's creation, here and below, throws what that throws, after it has done
  // all that it does.
  // Null leaves the container and ends the session. In run mode the core's creation runs.
  void SetSite(IOleClientSite* site);
  ComPtr<IOleClientSite> Site() const { return site_.Copy(); }
  // The container's user mode may have changed.
  void AmbientChanged(DISPID property);

  // Makes the session whole again after its end and activates. UI activation gives the focus to
  // the first child in tab order, or to the last one. Throws AutomationError.
  void Activate(bool ui, bool atLast = false);
  void DeactivateUi() { activation_.DeactivateUi(site_.Copy().get()); }
  void Deactivate();
  const InPlaceActivation& Activation() const { return activation_; }
  // False in design mode.
  bool TakesInput() const { return userMode_; }
  void SetRects(const RECT& position, const RECT& clip);

  // Ends the session; the object can be taken up by a container again.
  void Close();

  const SIZEL& Extent() const { return extent_; }
  // Throws AutomationError when a length is negative.
  void SetExtent(const SIZEL& himetric);

  ControlWindow& Window() { return session_->Window(); }

 private:
  // Throws AutomationError in design mode.
  std::shared_ptr<ControlSession> RunningSession();
  void NewSession();
  void Start();
  void End() noexcept;
  void FitParkedWindow();

  IUnknown& self_;
  IOleInPlaceActiveObject& activeObject_;
  SiteContainer container_;
  std::shared_ptr<ControlSession> session_;
  InPlaceActivation activation_;
  ComPtr<IOleClientSite> site_;
  bool userMode_ = true;
  SIZEL extent_;
};

}  // namespace pricedown::windows
