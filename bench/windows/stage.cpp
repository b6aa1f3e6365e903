// The Windows stage: the control's real window, the suite's objects behind COM.
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>

#include "bench/no_editor.h"
#include "bench/silent_ledger.h"
#include "bench/stage.h"
#include "platform/text.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/failure.h"
#include "windows/com/wide_text.h"
#include "windows/ui/control_window.h"
#include "windows/ui/windows_screen.h"

namespace bench {
namespace {

using namespace pricedown;
namespace win = pricedown::windows;

class NoQuestions final : public UserQuestions {
 public:
  void Tell(std::u16string_view, std::u16string_view, MessageIcon) override {}
  bool Confirm(std::u16string_view, std::u16string_view, MessageIcon) override { return false; }
};

class NoContainer final : public ContainerWindow {
 public:
  std::u16string Caption() const override { return u"物料类别维护"; }
  void Close() override {}
};

struct Com {
  Com() { win::ThrowIfFailed(CoInitialize(nullptr)); }
  ~Com() { CoUninitialize(); }
};

class WindowsStage final : public Stage {
 public:
  explicit WindowsStage(const std::string& path) {
    frame_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700,
                             nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    raw_ = CreateWindowExW(0, WC_TREEVIEWW, L"", WS_CHILD | WS_VISIBLE, 800, 0, 200, 600, frame_,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
    if (frame_ == nullptr || raw_ == nullptr) win::ThrowLastError();
    factory_.Create(u"ZEPWorkbench.Settings")->Call(u"Open", {FromUtf8(path)});
    control_ = std::make_unique<PriceDown>(
        PriceDownPorts{factory_, state_, questions_, screen_, container_, window_, window_, window_,
                       u"pricedown_bench", nullptr, editor_, ledger_});
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
  PriceDown& Control() override { return *control_; }

  void BeginRawTree() override {
    SendMessageW(raw_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(raw_, TVM_DELETEITEM, 0, 0);
    root_ = Insert(nullptr, L"root");
  }
  void InsertRaw(std::u16string_view text) override { Insert(root_, win::ToWide(text).c_str()); }
  void EndRawTree() override { SendMessageW(raw_, WM_SETREDRAW, TRUE, 0); }

 private:
  HTREEITEM Insert(HTREEITEM parent, const wchar_t* text) {
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = parent == nullptr ? nullptr : last_;
    if (insertion.hInsertAfter == nullptr) insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT;
    // The message only reads the text.
    insertion.item.pszText = const_cast<wchar_t*>(text);
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageW(raw_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    last_ = parent == nullptr ? nullptr : item;
    return item;
  }

  Com com_;
  win::ComObjectFactory factory_;
  ProcessState state_;
  NoQuestions questions_;
  NoContainer container_;
  win::ControlWindow window_{GetModuleHandleW(nullptr)};
  win::WindowsScreen screen_{window_};
  NoEditor editor_;
  SilentLedger ledger_;
  std::unique_ptr<PriceDown> control_;
  HWND frame_ = nullptr;
  HWND raw_ = nullptr;
  HTREEITEM root_ = nullptr;
  HTREEITEM last_ = nullptr;
};

}  // namespace

std::unique_ptr<Stage> MakeStage(const std::string& path) {
  return std::make_unique<WindowsStage>(path);
}

}  // namespace bench
