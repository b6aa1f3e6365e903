// The Windows host: controls of the built library, made by ProgID in the system's container, beside
// plain windows of the same number. It merges no tools.
#include "bench/host.h"

#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "bench/windows/ole.h"
#include "bench/windows/plain_windows.h"
#include "platform/text.h"
#include "windows/base/system_functions.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/com_ptr.h"
#include "windows/com/system_error.h"
#include "windows/com/variant_value.h"

namespace bench {
namespace {

using namespace pricedown;
namespace win = pricedown::windows;

constexpr wchar_t kProgId[] = L"ZEPPriceDownPrepare.PriceDown";
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;

BOOL CALLBACK FindTree(HWND window, LPARAM found) {
  wchar_t name[32] = {};
  GetClassNameW(window, name, 32);
  if (lstrcmpiW(name, WC_TREEVIEWW) != 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

class WindowsHost final : public Host {
 public:
  explicit WindowsHost(const std::string& path) {
    LoadLibraryW(L"atl.dll");
    win::SystemFunction<BOOL(WINAPI*)()>(L"atl.dll", "AtlAxWinInit")();
    frame_ = CreateWindowExW(0, L"STATIC", L"物料类别维护",
                             WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 820, 640,
                             nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (frame_ == nullptr) win::ThrowLastError();
    factory_.Create(u"ZEPWorkbench.Settings")->Call(u"Open", {FromUtf8(path)});
  }
  ~WindowsHost() override {
    EndShown();
    DestroyWindow(frame_);
  }
  WindowsHost(const WindowsHost&) = delete;
  WindowsHost& operator=(const WindowsHost&) = delete;

  ObjectFactory& Factory() override { return factory_; }

  void MakeControls(int count) override {
    std::vector<ObjectPtr> controls;
    for (int i = 0; i < count; ++i) {
      controls.push_back(factory_.Create(u"ZEPPriceDownPrepare.PriceDown"));
      // Without a container the first call completes the control.
      controls.back()->Call(u"ModelCurrent");
    }
  }
  void MakePlain(int count) override {
    std::vector<std::unique_ptr<PlainWindows>> sets;
    for (int i = 0; i < count; ++i) sets.push_back(std::make_unique<PlainWindows>(nullptr));
  }

  std::size_t ShowControl() override {
    container_ = CreateWindowExW(0, L"AtlAxWin", kProgId, kChild, 0, 0, 800, 600, frame_, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
    if (container_ == nullptr) win::ThrowLastError();
    win::ComPtr<IUnknown> object;
    win::ThrowIfFailed(win::SystemFunction<HRESULT(WINAPI*)(HWND, IUnknown**)>(
        L"atl.dll", "AtlAxGetControl")(container_, object.put()));
    control_ = win::FromDispatch(object.As<IDispatch>().get());
    control_->Call(u"Show", {Value(ObjectPtr())});
    return Paint();
  }
  std::size_t ShowPlain(const std::vector<std::u16string>& nodes) override {
    plain_.emplace(frame_);
    plain_->FillTree(nodes);
    return Paint();
  }
  void EndShown() override {
    control_.reset();
    if (container_ != nullptr) DestroyWindow(std::exchange(container_, nullptr));
    plain_.reset();
  }

 private:
  // Of all windows at once. The number of nodes in the shown tree.
  std::size_t Paint() {
    RedrawWindow(frame_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    HWND tree = nullptr;
    EnumChildWindows(frame_, FindTree, reinterpret_cast<LPARAM>(&tree));
    return static_cast<std::size_t>(SendMessageW(tree, TVM_GETCOUNT, 0, 0));
  }

  Ole ole_;
  win::ComObjectFactory factory_;
  HWND frame_ = nullptr;
  HWND container_ = nullptr;
  ObjectPtr control_;
  std::optional<PlainWindows> plain_;
};

}  // namespace

std::unique_ptr<Host> MakeHost(const std::string& path) {
  return std::make_unique<WindowsHost>(path);
}

}  // namespace bench
