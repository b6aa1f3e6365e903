// Tests of how the control finds the caption and the window of its container.
// The object type of the rights check shows the mode that follows from the caption.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/local_object.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

constexpr const char* kMaintenanceCheck = "ZEPEBCGLView.GLData.AccessCheck(10, 151, 4194304)";
constexpr const char* kOtherCheck = "ZEPEBCGLView.GLData.AccessCheck(11, 151, 4194304)";

// A host's own window object: Parent (itself), Caption, hWnd.
class DescribedWindow : public LocalObject<DescribedWindow> {
 public:
  static std::span<const Member<DescribedWindow>> Members() {
    static const std::array members{
        Member<DescribedWindow>{u"Parent", MemberKind::Get,
                                [](DescribedWindow& window, Access, std::span<Value>) {
                                  return Value(ObjectPtr(window.shared_from_this()));
                                }},
        Member<DescribedWindow>{u"Caption", MemberKind::Get,
                                [](DescribedWindow& window, Access, std::span<Value>) {
                                  return Value(window.caption);
                                }},
        Member<DescribedWindow>{
            u"hWnd", MemberKind::Get, [](DescribedWindow& window, Access, std::span<Value>) {
              return Value(static_cast<std::int32_t>(HandleToLong(window.handle)));
            }}};
    return members;
  }

  std::u16string caption;
  HWND handle = nullptr;
};

TEST(ContainerCaption, IsThatOfTheTopWindow) {
  ControlHost host(u"物料类别维护");
  host.Open();
  EXPECT_EQ(host.world.log.Count(kMaintenanceCheck), 1U);
}

TEST(ContainerCaption, IsTrimmed) {
  ControlHost host(u"  物料类别维护 ");
  host.Open();
  EXPECT_EQ(host.world.log.Count(kMaintenanceCheck), 1U);
}

TEST(ContainerCaption, OfAnyOtherTextIsTheOtherMode) {
  ControlHost host(u"物料类别");
  host.Open();
  EXPECT_EQ(host.world.log.Count(kOtherCheck), 1U);
  EXPECT_EQ(host.world.log.Count(R"(dictionary.GetValue("NodeSel2", "gc0"))"), 1U);
}

// A frame with document windows: the document's caption counts, not the frame's.
TEST(ContainerCaption, IsThatOfTheDocumentWindow) {
  ControlHost host(u"主窗口");
  const HWND document =
      CreateWindowExW(0, L"STATIC", L"物料类别维护", WS_CHILD | WS_CAPTION | WS_VISIBLE, 0, 0, 600,
                      400, host.frame.Handle(), nullptr, nullptr, nullptr);
  const HWND pane = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 500, 300,
                                    document, nullptr, nullptr, nullptr);
  host.site = windows::MakeCom<RecordingSite>(host.world.log, pane, RECT{0, 0, 400, 200});
  host.Open();
  EXPECT_EQ(host.world.log.Count(kMaintenanceCheck), 1U);
}

// Documents under tabs: children of the frame without a caption bar.
class TabbedDocuments : public ::testing::Test {
 protected:
  // A page with that text on a tab control; logs its WM_CLOSE and stays.
  HWND NewPage(const wchar_t* text) {
    if (tabs_ == nullptr) {
      tabs_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 700, 500,
                              host_.frame.Handle(), nullptr, nullptr, nullptr);
    }
    WNDCLASSW pages{};
    pages.lpfnWndProc = PageProcedure;
    pages.hInstance = GetModuleHandleW(nullptr);
    pages.lpszClassName = L"TabbedPage";
    RegisterClassW(&pages);
    const HWND page = CreateWindowExW(0, pages.lpszClassName, text, WS_CHILD | WS_VISIBLE, 0, 0,
                                      600, 400, tabs_, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(page, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return page;
  }
  // `document` is what the container names as the control's document; null for none.
  void OpenOn(HWND window, HWND document = nullptr) {
    host_.site = windows::MakeCom<RecordingSite>(host_.world.log, window, RECT{0, 0, 400, 200});
    if (document != nullptr) {
      host_.site->documentWindow = RecordingSite::AsDocument(
          windows::MakeCom<RecordingSite>(host_.world.log, document, RECT{}));
    }
    host_.Open();
  }
  void Exit() {
    const auto tool = windows::ToDispatch(host_.world.NewTool(u"iExit"));
    EXPECT_EQ(Statement(host_.control.get(), L"ParentWindow_ToolBarClick",
                        {ObjectOf(tool.get()), Truth(false)}),
              "S_OK");
  }

  ControlHost host_{u"主窗口"};
  std::vector<HWND> closed_;

 private:
  static LRESULT CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* test = reinterpret_cast<TabbedDocuments*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_CLOSE || test == nullptr)
      return DefWindowProcW(window, message, wParam, lParam);
    test->closed_.push_back(window);
    return 0;
  }

  HWND tabs_ = nullptr;
};

TEST_F(TabbedDocuments, ReturnTheirOwnTextAndAreClosedThemselves) {
  NewPage(L"另一个文档");
  const HWND page = NewPage(L"物料类别维护");
  OpenOn(page);
  EXPECT_EQ(host_.world.log.Count(kMaintenanceCheck), 1U);
  Exit();
  EXPECT_EQ(closed_, std::vector<HWND>{page});
  EXPECT_EQ(host_.world.log.Count("host WM_CLOSE 0 0"), 0U);
}

TEST_F(TabbedDocuments, AreFoundAroundAPaneWithoutAText) {
  const HWND page = NewPage(L"物料类别维护");
  OpenOn(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 500, 300, page, nullptr,
                         nullptr, nullptr));
  EXPECT_EQ(host_.world.log.Count(kMaintenanceCheck), 1U);
  Exit();
  EXPECT_EQ(closed_, std::vector<HWND>{page});
}

// The text of such a window is the control's ProgID.
TEST_F(TabbedDocuments, AreFoundAroundTheSystemsContainer) {
  const HWND page = NewPage(L"物料类别维护");
  WNDCLASSW container{};
  container.lpfnWndProc = DefWindowProcW;
  container.hInstance = GetModuleHandleW(nullptr);
  container.lpszClassName = L"AtlAxWin140";
  RegisterClassW(&container);
  OpenOn(CreateWindowExW(0, container.lpszClassName, L"ZEPPriceDownPrepare.PriceDown",
                         WS_CHILD | WS_VISIBLE, 0, 0, 500, 300, page, nullptr, nullptr, nullptr));
  EXPECT_EQ(host_.world.log.Count(kMaintenanceCheck), 1U);
  Exit();
  EXPECT_EQ(closed_, std::vector<HWND>{page});
}

TEST_F(TabbedDocuments, AreFoundAroundGroupBoxesAndLabels) {
  for (const wchar_t* passedOver : {L"BUTTON", L"STATIC"}) {
    const HWND page = NewPage(L"物料类别维护");
    OpenOn(CreateWindowExW(0, passedOver, L"类别", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, 0, 0, 500,
                           300, page, nullptr, nullptr, nullptr));
    Exit();
    EXPECT_EQ(closed_, std::vector<HWND>{page});
    closed_.clear();
    host_.Close();
    host_.LeaveSite();
  }
  EXPECT_EQ(host_.world.log.Count(kMaintenanceCheck), 2U);
}

TEST_F(TabbedDocuments, ThatTheContainerNamesNeedNoText) {
  SetWindowTextW(host_.frame.Handle(), L"物料类别维护");
  const HWND page = NewPage(L"");
  OpenOn(page, page);
  EXPECT_EQ(host_.world.log.Count(kOtherCheck), 1U);
  Exit();
  EXPECT_EQ(closed_, std::vector<HWND>{page});
  EXPECT_EQ(host_.world.log.Count("host WM_CLOSE 0 0"), 0U);
}

// Containers also name the system's container, or a window that is gone.
TEST_F(TabbedDocuments, ThatTheContainerNamesWrongAreFoundByTheirText) {
  const HWND page = NewPage(L"物料类别维护");
  const HWND gone = NewPage(L"另一个文档");
  DestroyWindow(gone);
  const HWND box = CreateWindowExW(0, L"BUTTON", L"类别", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, 0, 0,
                                   500, 300, page, nullptr, nullptr, nullptr);
  for (const HWND wrong : {gone, box}) {
    OpenOn(box, wrong);
    Exit();
    EXPECT_EQ(closed_, std::vector<HWND>{page});
    closed_.clear();
    host_.Close();
    host_.LeaveSite();
  }
}

TEST_F(TabbedDocuments, WithoutATextYieldToTheFrame) {
  OpenOn(NewPage(L""));
  EXPECT_EQ(host_.world.log.Count(kOtherCheck), 1U);
  Exit();
  EXPECT_EQ(closed_, std::vector<HWND>{});
  EXPECT_EQ(host_.world.log.Count("host WM_CLOSE 0 0"), 1U);
}

TEST(ContainerCaption, IsReadFromTheHostsDescriptionFirst) {
  ControlHost host(u"另一个窗口");
  const auto described = std::make_shared<DescribedWindow>();
  described->caption = u"物料类别维护";
  host.site->extender = described;
  host.Open();
  EXPECT_EQ(host.world.log.Count(kMaintenanceCheck), 1U);
  host.site->extender = nullptr;
}

TEST(ContainerCaption, IsTheWindowsWhereTheDescriptionHasNone) {
  ControlHost host(u"物料类别维护");
  host.world.factory.Object(u"parent").Lacks(u"Caption");
  host.world.factory.Object(u"extender").On(u"Parent", host.world.factory.Answering(u"parent"));
  host.site->extender = host.world.factory.NewObject(u"extender");
  host.Open();
  EXPECT_EQ(host.world.log.Count(kMaintenanceCheck), 1U);
  host.site->extender = nullptr;
}

TEST(ClosingTheContainer, GoesToTheDescribedWindow) {
  ControlHost host;
  const HostFrame other(host.world.log, u"另一个窗口");
  const auto described = std::make_shared<DescribedWindow>();
  described->caption = u"物料类别维护";
  described->handle = other.Handle();
  host.site->extender = described;
  host.Open();
  host.frame.Destroy();
  host.world.log.Clear();
  const auto tool = windows::ToDispatch(host.world.NewTool(u"iExit"));
  EXPECT_EQ(Statement(host.control.get(), L"ParentWindow_ToolBarClick",
                      {ObjectOf(tool.get()), Truth(false)}),
            "S_OK");
  EXPECT_EQ(host.world.log.Count("host WM_CLOSE 0 0"), 1U);
  host.site->extender = nullptr;
}

TEST(ClosingTheContainer, FailsWhereThereIsNone) {
  ControlHost host;
  const auto tool = windows::ToDispatch(host.world.NewTool(u"iExit"));
  EXPECT_EQ(Statement(host.control.get(), L"ParentWindow_ToolBarClick",
                      {ObjectOf(tool.get()), Truth(false)})
                .substr(0, 18),
            "exception 800A005B");
}

}  // namespace
}  // namespace pricedown::testing
