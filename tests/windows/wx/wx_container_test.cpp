// The control in wxActiveXContainer, a container that others wrote, in a window of its toolkit.
// Each assertion of the toolkit is a failure here; among them are the results of the control's
// calls.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/msw/ole/activex.h>

#include <string>

#include "platform/text.h"
#include "tests/support/utf8.h"
#include "tests/windows/conformance/process_resources.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;
using windows::ComPtr;

void ReportAssertion(const wxString& file, int line, const wxString&, const wxString& condition,
                     const wxString& message) {
  ADD_FAILURE() << file.utf8_str() << ":" << line << ": " << condition.utf8_str() << " "
                << message.utf8_str();
}

ComPtr<IDispatch> ControlByProgId() {
  CLSID id{};
  EXPECT_EQ(CLSIDFromProgID(L"ZEPPriceDownPrepare.PriceDown", &id), S_OK);
  ComPtr<IDispatch> control;
  EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(control.put())),
            S_OK);
  return control;
}

// A frame whose page the control fills.
class WxHost {
 public:
  WxHost() {
    frame->Show();
    container->Bind(wxEVT_ACTIVEX, [this](wxActiveXEvent& event) {
      events += std::to_string(event.GetDispatchId());
      for (std::size_t i = 0; i < event.ParamCount(); ++i) {
        events += " " + std::string(event[i].MakeString().utf8_str());
      }
      events += "\n";
    });
  }
  ~WxHost() {
    control.attach(nullptr);
    End();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    EXPECT_TRUE(library.CanUnload());
  }
  WxHost(const WxHost&) = delete;
  WxHost& operator=(const WxHost&) = delete;

  std::string Show() { return Expression(control.get(), L"Show", {ObjectOf(nullptr)}); }
  HWND Window() const {
    return FindWindowExW(page->GetHWND(), nullptr, L"PriceDown.Control", nullptr);
  }
  HWND Tree() const { return GetDlgItem(Window(), ids::kTree); }
  HWND Grid() const { return GetDlgItem(GetDlgItem(Window(), ids::kGridPane), ids::kGrid); }
  // Runs the messages that are pending as the toolkit's own loop does.
  void RunMessages() {
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    while (loop.Pending()) loop.Dispatch();
  }
  void Press(int key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    PostMessageW(GetFocus(), WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
    RunMessages();
  }
  // Destroys the frame with everything in it.
  void End() {
    delete frame;
    frame = nullptr;
  }

  ControlWorld world;
  SuiteScope suite{world.factory};
  Library library;
  wxFrame* frame = new wxFrame(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxSize(800, 600));
  // The toolkit makes the name the window's text.
  wxWindow* page = new wxWindow(frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0,
                                wxString::FromUTF8("物料类别维护"));
  ComPtr<IDispatch> control = ControlByProgId();
  wxActiveXContainer* container = new wxActiveXContainer(page, IID_IDispatch, control.get());
  std::string events;
};

class InWxActiveXContainer : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    wxSetAssertHandler(ReportAssertion);
    wxApp::SetInstance(new wxApp);
    int count = 0;
    ASSERT_TRUE(wxEntryStart(count, static_cast<wxChar**>(nullptr)));
  }
  static void TearDownTestSuite() { wxEntryCleanup(); }
};

SIZE SizeOf(HWND window) {
  RECT rectangle{};
  GetClientRect(window, &rectangle);
  return {rectangle.right, rectangle.bottom};
}

TEST_F(InWxActiveXContainer, TheControlIsMadeAndShown) {
  WxHost host;
  ASSERT_TRUE(host.control);
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  EXPECT_EQ(host.Show(), "S_OK True");
  ASSERT_NE(host.Window(), nullptr);
  EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
  EXPECT_NE(IsWindowVisible(host.Tree()), FALSE);
  EXPECT_EQ(Expression(host.control.get(), L"Ready"), "S_OK True");
}

TEST_F(InWxActiveXContainer, TheControlFillsThePageAtEachSize) {
  WxHost host;
  host.Show();
  for (const wxSize size : {wxSize(700, 500), wxSize(500, 300), wxSize(900, 650)}) {
    host.frame->SetClientSize(size);
    host.RunMessages();
    EXPECT_EQ(SizeOf(host.Window()).cx, size.x);
    EXPECT_EQ(SizeOf(host.Window()).cy, size.y);
  }
}

TEST_F(InWxActiveXContainer, KeysMoveTheSelectionAndTheFocus) {
  WxHost host;
  host.Show();
  SetFocus(host.Window());
  ASSERT_EQ(GetFocus(), host.Tree());
  host.events.clear();
  host.Press(VK_UP);
  host.Press(VK_DOWN);
  EXPECT_EQ(host.events, "1 \n1 01\n");
  host.Press(VK_TAB);
  EXPECT_EQ(GetFocus(), host.Grid());
  host.world.log.Clear();
  host.Press(VK_F5);
  EXPECT_EQ(host.world.log.Count(ExecuteLine(kItemsOf01)), 1U);
}

TEST_F(InWxActiveXContainer, TheControlEndsWithTheFrame) {
  WxHost host;
  host.Show();
  const HWND window = host.Window();
  host.events.clear();
  host.End();
  EXPECT_EQ(host.world.log.Count(R"(put dictionary("NodeSel1") = "gi01")"), 1U);
  EXPECT_EQ(IsWindow(window), FALSE);
}

TEST_F(InWxActiveXContainer, TheHostsReferenceMayOutliveTheFrame) {
  WxHost host;
  host.Show();
  host.End();
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
}

TEST_F(InWxActiveXContainer, ManyFramesLeaveNothing) {
  const auto life = [] { EXPECT_EQ(WxHost().Show(), "S_OK True"); };
  for (int i = 0; i < 3; ++i) life();
  const ProcessResources before = ResourcesNow();
  for (int i = 0; i < 10; ++i) life();
  const ProcessResources after = ResourcesNow();
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.gdiObjects, before.gdiObjects);
  EXPECT_LE(after.userObjects, before.userObjects);
}

}  // namespace
}  // namespace pricedown::testing
