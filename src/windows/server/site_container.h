// The window that contains the control, found through the control's site: by the names that the
// host offers, else by the document window of the container's frame, else by the window handles.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "control/views.h"
#include "platform/automation.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

class SiteContainer final : public ContainerWindow {
 public:
  // Adds a reference; null when the control has left its container.
  void SetSite(IOleClientSite* site) { site_ = ComPtr<IOleClientSite>::Share(site); }

  std::u16string Caption() const override;
  void Close() override;

 private:
  // The object that the host names as the control's parent; null when there is none.
  ObjectPtr Parent() const;
  // Null when there is none.
  HWND ParentWindow() const;

  ComPtr<IOleClientSite> site_;
};

// The first window from `window` up that has a caption bar or a text, or the top-level one. The
// texts of the system's container, of group boxes and of labels do not count.
HWND DocumentWindow(HWND window);

}  // namespace pricedown::windows
