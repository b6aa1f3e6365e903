// The control's window inside its container: in-place and UI activation and the way back.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_ptr.h"
#include "windows/control/control_window.h"

namespace pricedown::windows {

// Which child receives the focus, unless one has it.
enum class FocusMove { None, ToFirst, ToLast };

class InPlaceActivation {
 public:
  bool IsActive() const { return site_.get() != nullptr; }

  // Moves the window into the container. A no-op when it is there already. Throws
  // AutomationError when the container refuses; nothing is active then.
  void Activate(IOleClientSite& client, ControlWindow& window);
  // Makes the control the container's active one. Requires: active.
  void ActivateUi(IOleInPlaceActiveObject& self, ControlWindow& window, FocusMove focusMove);
  // Every step runs even when the container refuses one.
  void DeactivateUi();
  // In both a focus inside the window goes to the container.
  void Hide(ControlWindow& window);
  void Deactivate(ControlWindow& window);
  // Notifies the container that the focus was gained or lost, once for each change.
  void NotifyFocus(bool focused);

  // Moves the window; what lies outside `clip` is cut off.
  void SetRects(ControlWindow& window, const RECT& position, const RECT& clip);

 private:
  ComPtr<IOleInPlaceSite> site_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  bool uiActive_ = false;
  bool focused_ = false;  // as last reported to the container
  bool deactivates_ = false;
};

}  // namespace pricedown::windows
