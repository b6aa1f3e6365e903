// The calls between the control and its container around activation. Any of them may reenter the
// control, so each state is set before the container is notified.
#include "windows/server/in_place_activation.h"

#include <utility>

#include "platform/error.h"
#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

constexpr wchar_t kActiveName[] = L"PriceDown";

}  // namespace

void InPlaceActivation::Activate(IOleClientSite& client, ControlWindow& window) {
  if (IsActive()) {
    ShowWindow(window.Handle(), SW_SHOW);
    return;
  }
  const auto site = ComPtr<IOleClientSite>::Share(&client).As<IOleInPlaceSite>();
  if (!site) ThrowIfFailed(E_NOINTERFACE);
  if (site->CanInPlaceActivate() != S_OK) {
    throw AutomationError(OLE_E_NOT_INPLACEACTIVE, u"容器拒绝激活控件");
  }
  HWND parent = nullptr;
  ThrowIfFailed(site->GetWindow(&parent));
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  site_ = site.Copy();
  if (const HRESULT result = site->OnInPlaceActivate(); FAILED(result)) {
    site_.attach(nullptr);
    ThrowIfFailed(result);
  }
  if (!IsActive()) return;
  const HRESULT context =
      site->GetWindowContext(frame_.put(), document_.put(), &position, &clip, &info);
  if (!IsActive()) {
    frame_.attach(nullptr);
    document_.attach(nullptr);
    return;
  }
  if (FAILED(context)) {
    Deactivate(window);
    ThrowIfFailed(context);
  }
  window.MoveInto(parent, position);
  SetRects(window, position, clip);
}

void InPlaceActivation::ActivateUi(IOleInPlaceActiveObject& self, ControlWindow& window,
                                   FocusMove focusMove) {
  // A container may return the leaving focus to the control.
  if (deactivates_) return;
  if (!uiActive_) {
    uiActive_ = true;
    const auto site = site_.Copy();
    if (FAILED(site->OnUIActivate())) {
      uiActive_ = false;
      return;
    }
    const auto frame = frame_.Copy();
    const auto document = document_.Copy();
    if (frame) {
      frame->SetActiveObject(&self, kActiveName);
      // The control adds no tools around the document.
      frame->SetBorderSpace(nullptr);
    }
    if (document) document->SetActiveObject(&self, kActiveName);
  }
  const HWND focus = GetFocus();
  if (focusMove != FocusMove::None && uiActive_ && focus != window.Handle() &&
      !IsChild(window.Handle(), focus)) {
    window.SetFocusFirst(focusMove == FocusMove::ToLast);
  }
}

void InPlaceActivation::NotifyFocus(bool focused) {
  // The focus leaves again when it returns to a window that is being hidden.
  if (focused && deactivates_) return;
  if (std::exchange(focused_, focused) == focused) return;
  if (const auto site = site_.As<IOleControlSite>()) site->OnFocus(focused ? TRUE : FALSE);
}

void InPlaceActivation::DeactivateUi() {
  if (!std::exchange(uiActive_, false)) return;
  const auto site = site_.Copy();
  const auto frame = frame_.Copy();
  const auto document = document_.Copy();
  if (frame) frame->SetActiveObject(nullptr, nullptr);
  if (document) document->SetActiveObject(nullptr, nullptr);
  if (site) site->OnUIDeactivate(FALSE);
}

void InPlaceActivation::Hide(ControlWindow& window) {
  deactivates_ = true;
  DeactivateUi();
  window.Hide();
  deactivates_ = false;
}

void InPlaceActivation::Deactivate(ControlWindow& window) {
  if (!IsActive()) return;
  deactivates_ = true;
  DeactivateUi();
  window.Park();
  deactivates_ = false;
  const auto site = std::exchange(site_, {});
  frame_.put();
  document_.put();
  uiActive_ = focused_ = false;
  if (site) site->OnInPlaceDeactivate();
}

void InPlaceActivation::SetRects(ControlWindow& window, const RECT& position, const RECT& clip) {
  window.MoveTo(position);
  RECT visible{};
  IntersectRect(&visible, &position, &clip);
  HRGN region = nullptr;
  if (!EqualRect(&visible, &position)) {
    OffsetRect(&visible, -position.left, -position.top);
    region = CreateRectRgnIndirect(&visible);
  }
  // The window now owns the region.
  if (SetWindowRgn(window.Handle(), region, TRUE) == 0 && region != nullptr) DeleteObject(region);
}

}  // namespace pricedown::windows
