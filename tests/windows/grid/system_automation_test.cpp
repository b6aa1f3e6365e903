// The grid's provider through the system's own client functions.
#include <oleacc.h>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "tests/windows/grid/grid_world.h"
#include "windows/base/system_functions.h"
#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant.h"

namespace pricedown::testing {
namespace {

using UiaNode = void*;

// The client functions of the system; the library is loaded because the window has a provider.
template <typename Function>
Function ClientFunction(const char* name) {
  LoadLibraryW(L"uiautomationcore.dll");
  return windows::SystemFunction<Function>(L"uiautomationcore.dll", name);
}

class SystemAutomationTest : public GridWindow {
 protected:
  SystemAutomationTest() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    window_.Show(nullptr);
    own_ = std::make_unique<windows::GridWindow>(*this);
    own_->Create(host_.Handle(), GetModuleHandleW(nullptr), u"物料明细");
    own_->Show(&grid_);
    SetWindowPos(own_->Handle(), nullptr, 0, 0, 460, 300, SWP_NOZORDER);
  }
  ~SystemAutomationTest() override {
    own_.reset();
    CoUninitialize();
  }

  // Runs a client on a thread of its own, as those of other processes are: its calls reach the
  // window's thread while that processes messages.
  static void RunClient(const std::function<void()>& client) {
    std::atomic<bool> ended = false;
    std::thread thread([&] {
      CoInitializeEx(nullptr, COINIT_MULTITHREADED);
      client();
      CoUninitialize();
      ended = true;
    });
    while (!ended) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
      RunMessages();
    }
    thread.join();
  }

  static UiaNode NodeOfWindow(HWND window) {
    UiaNode node = nullptr;
    const auto fromHandle = ClientFunction<HRESULT(WINAPI*)(HWND, UiaNode*)>("UiaNodeFromHandle");
    EXPECT_EQ(fromHandle(window, &node), S_OK);
    return node;
  }
  static std::string PropertyOfNode(UiaNode node, PROPERTYID property) {
    windows::Variant value;
    const auto get =
        ClientFunction<HRESULT(WINAPI*)(UiaNode, PROPERTYID, VARIANT*)>("UiaGetPropertyValue");
    if (FAILED(get(node, property, value.put()))) return "failed";
    if (value.get().vt == VT_BSTR) return Utf8(windows::FromBstr(value.get().bstrVal));
    return value.get().vt == VT_I4 ? std::to_string(value.get().lVal) : "other";
  }
  static void Release(UiaNode node) {
    ClientFunction<BOOL(WINAPI*)(UiaNode)>("UiaNodeRelease")(node);
  }

  std::unique_ptr<windows::GridWindow> own_;
};

TEST_F(SystemAutomationTest, AClientReadsTheGridByItsWindow) {
  RunClient([window = own_->Handle()] {
    const UiaNode node = NodeOfWindow(window);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(PropertyOfNode(node, UIA_NamePropertyId), "物料明细");
    EXPECT_EQ(PropertyOfNode(node, UIA_ControlTypePropertyId),
              std::to_string(UIA_DataGridControlTypeId));
    EXPECT_EQ(PropertyOfNode(node, UIA_AutomationIdPropertyId),
              std::to_string(windows::control_ids::kGrid));
    windows::SafeArray id;
    const auto getId = ClientFunction<HRESULT(WINAPI*)(UiaNode, SAFEARRAY**)>("UiaGetRuntimeId");
    EXPECT_EQ(getId(node, id.put()), S_OK);
    EXPECT_TRUE(id);
    Release(node);
  });
}

TEST_F(SystemAutomationTest, AClientReadsACellByItsProvider) {
  RecordingAutomation asking;
  windows::GridWindow other(*this, asking);
  other.Create(host_.Handle(), GetModuleHandleW(nullptr), u"另一");
  other.Show(&grid_);
  windows::ComPtr<IRawElementProviderSimple> cell;
  ASSERT_EQ(asking.ProviderOf(other.Handle()).As<IGridProvider>()->GetItem(4, 0, cell.put()), S_OK);
  UiaNode node = nullptr;
  const auto fromProvider =
      ClientFunction<HRESULT(WINAPI*)(IRawElementProviderSimple*, UiaNode*)>("UiaNodeFromProvider");
  ASSERT_EQ(fromProvider(cell.get(), &node), S_OK);
  EXPECT_EQ(PropertyOfNode(node, UIA_NamePropertyId), "甲");
  EXPECT_EQ(PropertyOfNode(node, UIA_AutomationIdPropertyId), "row5.column1");
  EXPECT_EQ(PropertyOfNode(node, UIA_ControlTypePropertyId),
            std::to_string(UIA_DataItemControlTypeId));
  Release(node);
}

TEST_F(SystemAutomationTest, AClientMayKeepTheWindowsNodeLongerThanTheWindow) {
  UiaNode node = nullptr;
  RunClient([&] { node = NodeOfWindow(own_->Handle()); });
  ASSERT_NE(node, nullptr);
  own_.reset();
  RunClient([&] {
    EXPECT_NE(PropertyOfNode(node, UIA_NamePropertyId), "物料明细");
    Release(node);
  });
}

TEST_F(SystemAutomationTest, OlderClientsReadTheNameOfTheWindow) {
  RunClient([window = own_->Handle()] {
    using FromWindow = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
    LoadLibraryW(L"oleacc.dll");
    const auto fromWindow =
        windows::SystemFunction<FromWindow>(L"oleacc.dll", "AccessibleObjectFromWindow");
    ASSERT_NE(fromWindow, nullptr);
    windows::ComPtr<IAccessible> object;
    ASSERT_EQ(fromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                         object.putVoid()),
              S_OK);
    VARIANT self{};
    self.vt = VT_I4;
    windows::Bstr name;
    ASSERT_EQ(object->get_accName(self, name.put()), S_OK);
    EXPECT_EQ(Utf8(name.Text()), "物料明细");
  });
}

}  // namespace
}  // namespace pricedown::testing
