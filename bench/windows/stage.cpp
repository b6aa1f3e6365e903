// The Windows stage: the core with the control's real window, the suite's objects behind COM.
#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "bench/no_editor.h"
#include "bench/silent_output.h"
#include "bench/stage.h"
#include "bench/windows/ole.h"
#include "bench/windows/raw_tree.h"
#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/base/ui_automation.h"
#include "windows/base/windows_screen.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/system_error.h"
#include "windows/control/control_window.h"

namespace bench {
namespace {

using namespace pricedown;
namespace win = pricedown::windows;

class NoContainer final : public ContainerWindow {
 public:
  std::u16string Caption() const override { return u"物料类别维护"; }
  void Close() override {}
};

// Clients that ask for providers and listen to no events.
class NobodyListens final : public win::UiAutomation {
 public:
  LRESULT ReturnProvider(HWND, WPARAM, LPARAM, IRawElementProviderSimple*) override { return 0; }
  win::ComPtr<IRawElementProviderSimple> HostProvider(HWND) override { return {}; }
  bool ClientsAreListening() override { return false; }
  void RaiseEvent(IRawElementProviderSimple*, EVENTID) override {}
  void RaisePropertyChanged(IRawElementProviderSimple*, PROPERTYID, const VARIANT&) override {}
  void RaiseChildrenInvalidated(IRawElementProviderSimple*) override {}
  void RaiseNotification(IRawElementProviderSimple*, std::u16string_view) override {}
  void Disconnect(IRawElementProviderSimple*) override {}
};

class WindowsStage final : public Stage {
 public:
  explicit WindowsStage(const std::string& path) {
    frame_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700,
                             nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    const HWND tree = CreateWindowExW(0, WC_TREEVIEWW, L"", WS_CHILD | WS_VISIBLE, 800, 0, 200, 600,
                                      frame_, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (frame_ == nullptr || tree == nullptr) win::ThrowLastError();
    raw_.emplace(tree);
    factory_.Create(u"ZEPWorkbench.Settings")->Call(u"Open", {FromUtf8(path)});
    control_ = std::make_unique<PriceDown>(
        PriceDownPorts{factory_, state_, user_, screen_, container_, window_, window_, window_,
                       u"pricedown_bench", nullptr, editor_, output_});
    window_.Attach(control_.get());
    window_.MoveInto(frame_, RECT{0, 0, 800, 600});
    control_->Initialize();
    control_->Show(nullptr);
  }
  ~WindowsStage() override {
    window_.Attach(nullptr);
    control_.reset();
    DestroyWindow(frame_);
  }

  ObjectFactory& Factory() override { return factory_; }
  const SilentUser& User() const override { return user_; }
  PriceDown& Control() override { return *control_; }

  void BeginRawTree() override { raw_->Begin(); }
  void InsertRaw(std::u16string_view text) override { raw_->Insert(text); }
  void EndRawTree() override { raw_->End(); }

  void AskAsClient() override { SendMessageW(Grid(), WM_GETOBJECT, 0, UiaRootObjectId); }
  void MoveDown(int rows) override {
    const HWND grid = Grid();
    for (int i = 0; i < rows; ++i) {
      SendMessageW(grid, WM_KEYDOWN, VK_DOWN, 1);
      UpdateWindow(grid);
    }
  }

 private:
  HWND Grid() const {
    return GetDlgItem(GetDlgItem(window_.Handle(), win::control_ids::kGridPane),
                      win::control_ids::kGrid);
  }

  Ole ole_;
  win::ComObjectFactory factory_;
  ThreadState state_;
  NobodyListens automation_;
  SilentUser user_;
  NoContainer container_;
  win::ControlWindow window_{GetModuleHandleW(nullptr), automation_};
  win::WindowsScreen screen_{window_};
  NoEditor editor_;
  SilentOutput output_;
  std::unique_ptr<PriceDown> control_;
  HWND frame_ = nullptr;
  std::optional<RawTree> raw_;
};

}  // namespace

std::unique_ptr<Stage> MakeStage(const std::string& path) {
  return std::make_unique<WindowsStage>(path);
}

}  // namespace bench
