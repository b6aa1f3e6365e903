// When the core is created and ended, and what the container may change.
#include "windows/server/hosted_control.h"

#include <olectl.h>

#include <utility>

#include "platform/error.h"
#include "windows/base/gdi.h"
#include "windows/server/ambient.h"

namespace pricedown::windows {
namespace {

// 210 x 120 mm.
constexpr SIZEL kFirstExtent{21000, 12000};

}  // namespace

SIZE ToPixels(const SIZEL& himetric) {
  const WindowContext screen(nullptr);
  return {MulDiv(himetric.cx, GetDeviceCaps(screen.Get(), LOGPIXELSX), kHimetricPerInch),
          MulDiv(himetric.cy, GetDeviceCaps(screen.Get(), LOGPIXELSY), kHimetricPerInch)};
}

HostedControl::HostedControl(IUnknown& self, IOleInPlaceActiveObject& activeObject)
    : self_(self), activeObject_(activeObject), extent_(kFirstExtent) {
  NewSession();
}

void HostedControl::NewSession() {
  // An event or a click on the bar may release the last reference; control and session stay alive
  // until it has run.
  const auto hold = [this]() -> std::shared_ptr<void> {
    // This order releases the control last.
    struct Held {
      ComPtr<IUnknown> self;
      std::shared_ptr<ControlSession> session;
    };
    return std::make_shared<Held>(Held{ComPtr<IUnknown>::Share(&self_), session_});
  };
  session_ = std::make_shared<ControlSession>(TheModule(), container_, hold, events_);
  ControlWindow& window = session_->Window();
  window.HoldDuringEvents(hold);
  window.OnFocusChange([this, hold](bool gained) {
    const std::shared_ptr<void> held = hold();
    const auto session = session_;
    if (gained && activation_.IsActive()) {
      activation_.ActivateUi(activeObject_, session->Window(), FocusMove::None);
    }
    if (activation_.IsActive()) activation_.NotifyFocus(gained);
  });
  FitParkedWindow();
}

std::shared_ptr<ControlSession> HostedControl::RunningSession() {
  if (!userMode_) throw AutomationError(E_UNEXPECTED, u"控件处于设计状态");
  return session_;
}

void HostedControl::SetSite(IOleClientSite* site, bool userMode) {
  Deactivate();
  if (site == nullptr) {
    if (site_) {
      End();
      // Some containers have subclassed it and never restore its procedure.
      DestroyWindow(Window().Handle());
    }
    events_->Unfreeze();
    container_.SetSite(nullptr);
    site_.attach(nullptr);
    userMode_ = true;
    return;
  }
  site_ = ComPtr<IOleClientSite>::Share(site);
  container_.SetSite(site);
  userMode_ = AmbientFlag(site, DISPID_AMBIENT_USERMODE, userMode);
  Start();
}

void HostedControl::AmbientChanged(DISPID property) {
  if (!site_ || (property != DISPID_UNKNOWN && property != DISPID_AMBIENT_USERMODE)) return;
  userMode_ = AmbientFlag(site_.Copy().get(), DISPID_AMBIENT_USERMODE, userMode_);
  Start();
}

void HostedControl::Start() {
  // The container hears of it, and may start another session or take its site back.
  if (!session_->IsUsable()) Deactivate();
  if (!site_) return;
  if (!session_->IsUsable()) {
    // A listener that was set after the end stays for the new session.
    if (!session_->HasEnded()) End();
    NewSession();
  }
  // In design mode mouse and keyboard belong to the designer.
  Window().SetAcceptsInput(AcceptsInput());
  if (userMode_) session_->Initialize();
}

void HostedControl::End() noexcept {
  const auto session = session_;
  session->Terminate();
  events_->SetListener(nullptr);
}

void HostedControl::Activate(bool ui, bool atLast) {
  if (!site_) throw AutomationError(OLE_E_NOT_INPLACEACTIVE, u"控件没有容器");
  FirstFailure steps;
  if (!session_->IsUsable()) steps.Run([&] { Start(); });
  steps.Run([&] {
    // The start may have taken it back, or brought another.
    const auto site = site_.Copy();
    if (!site) throw AutomationError(OLE_E_NOT_INPLACEACTIVE, u"控件没有容器");
    const auto session = session_;
    activation_.Activate(*site.get(), session->Window());
    if (!activation_.IsActive()) return;
    site->ShowObject();
    if (ui && activation_.IsActive()) {
      activation_.ActivateUi(activeObject_, session->Window(),
                             atLast ? FocusMove::ToLast : FocusMove::ToFirst);
    }
  });
  steps.Rethrow();
}

void HostedControl::Deactivate() {
  const auto session = session_;
  activation_.Deactivate(session->Window());
}

void HostedControl::Hide() {
  const auto session = session_;
  activation_.Hide(session->Window());
}

void HostedControl::SetRects(const RECT& position, const RECT& clip) {
  const auto session = session_;
  activation_.SetRects(session->Window(), position, clip);
}

void HostedControl::Close() {
  Deactivate();
  End();
}

void HostedControl::SetExtent(const SIZEL& himetric) {
  if (himetric.cx < 0 || himetric.cy < 0) {
    throw AutomationError(ErrorNumber::InvalidArgument, u"大小不能为负");
  }
  extent_ = himetric;
  FitParkedWindow();
}

HRESULT HostedControl::CopyExtent(SIZEL& extent) noexcept {
  return Run([&] { extent = extent_; });
}

// An inactive control has its size from the extent; an active one is placed by its container.
void HostedControl::FitParkedWindow() {
  if (activation_.IsActive()) return;
  const SIZE size = ToPixels(extent_);
  Window().MoveTo(RECT{0, 0, size.cx, size.cy});
}

}  // namespace pricedown::windows
