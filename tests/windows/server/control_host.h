// A control from the built DLL on a scripted suite, in a recording container inside a real window.
// Tests change the script and the container before they use the control.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tests/control/control_fixture.h"
#include "tests/windows/server/library.h"
#include "tests/windows/server/recording_site.h"
#include "tests/windows/suite_scope.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {

// An overlapped window with that caption that logs "host WM_CLOSE" and stays open.
class HostFrame {
 public:
  HostFrame(CallLog log, std::u16string_view caption);
  ~HostFrame();
  HostFrame(const HostFrame&) = delete;
  HostFrame& operator=(const HostFrame&) = delete;

  HWND Handle() const { return handle_; }
  // Destroys the window now; no-op if it has been destroyed.
  void Destroy();
  // Runs at each WM_CLOSE, once it is logged.
  std::function<void()> onClose;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  CallLog log_;
  HWND handle_;
};

class ControlHost {
 public:
  explicit ControlHost(std::u16string_view caption = u"物料类别维护", Company company = {});
  ~ControlHost();

  // The steps of a host.
  HRESULT SetSite();
  HRESULT LeaveSite();
  HRESULT DoVerb(LONG verb);
  HRESULT Close();
  // SetSite, DoVerb(show) and Show without a parent window.
  void Open();
  // Releases the last reference.
  void Release() { control.attach(nullptr); }

  template <typename Interface>
  windows::ComPtr<Interface> As() const {
    return control.As<Interface>();
  }
  // The control's window inside the frame; null if there is none.
  HWND Window() const;
  // The calls to the suite since the last call, without those to the container.
  bool SuiteWasCalled() const { return world.factory.CallCount() > 0; }

  ControlWorld world;
  SuiteScope suite{world.factory};
  HostFrame frame;
  windows::ComPtr<RecordingSite> site;
  Library library;
  windows::ComPtr<IDispatch> control;
};

}  // namespace pricedown::testing
