// The steps of a host.
#include "tests/windows/server/control_host.h"

#include "windows/com/wide_text.h"

namespace pricedown::testing {

using windows::ComPtr;

LRESULT CALLBACK HostFrame::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* host = reinterpret_cast<HostFrame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_CLOSE && host != nullptr) {
    host->log_.Add("host WM_CLOSE " + std::to_string(wParam) + " " + std::to_string(lParam));
    if (host->onClose) host->onClose();
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

HostFrame::HostFrame(CallLog log, std::u16string_view caption) : log_(std::move(log)) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"ControlHostFrame";
  RegisterClassW(&windowClass);  // Fails from the second time on.
  handle_ = CreateWindowExW(0, L"ControlHostFrame", windows::ToWide(caption).c_str(),
                            WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 800, 600, nullptr, nullptr,
                            windowClass.hInstance, nullptr);
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostFrame::~HostFrame() { Destroy(); }

void HostFrame::Destroy() {
  if (IsWindow(handle_) != FALSE) DestroyWindow(handle_);
}

ControlHost::ControlHost(std::u16string_view caption, Company company)
    : world(std::move(company)),
      frame(world.log, caption),
      site(windows::MakeCom<RecordingSite>(world.log, frame.Handle(), RECT{10, 20, 710, 520})),
      control(library.NewPriceDown()) {}

ControlHost::~ControlHost() {
  Release();
  EXPECT_EQ(world.factory.LiveObjects(), 0);
  EXPECT_TRUE(library.CanUnload());
}

HRESULT ControlHost::SetSite() { return As<IOleObject>()->SetClientSite(site.get()); }

HRESULT ControlHost::LeaveSite() { return As<IOleObject>()->SetClientSite(nullptr); }

HRESULT ControlHost::DoVerb(LONG verb) {
  const RECT position{};
  return As<IOleObject>()->DoVerb(verb, nullptr, site.get(), 0, frame.Handle(), &position);
}

HRESULT ControlHost::Close() { return As<IOleObject>()->Close(OLECLOSE_NOSAVE); }

void ControlHost::Open() {
  EXPECT_EQ(SetSite(), S_OK);
  EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
  IDispatch* parent = nullptr;
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(As<_PriceDown>()->Show(&parent, &shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
}

HWND ControlHost::Window() const {
  return FindWindowExW(frame.Handle(), nullptr, L"PriceDown.Control", nullptr);
}

}  // namespace pricedown::testing
