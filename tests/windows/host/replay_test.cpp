// The host with a recording in place of a company.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/utf8.h"
#include "tests/windows/support/run_messages.h"
#include "windows/base/control_ids.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/host/frame_window.h"
#include "workbench/host/screenshot.h"
#include "workbench/sample/company_file.h"

namespace workbench {
namespace {

namespace ids = pricedown::windows::control_ids;
using pricedown::testing::Utf8;

std::wstring WidePath(const std::string& text) {
  return pricedown::windows::ToWide(pricedown::FromUtf8(text));
}

// Records the calls of this process to the suite while it lives.
class SuiteRecording {
 public:
  explicit SuiteRecording(const std::wstring& folder) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::filesystem::path bin = std::filesystem::path(program).parent_path();
    const std::wstring suite = (bin / L"WorkbenchSuite.X.manifest").wstring();
    SetEnvironmentVariableW(L"SUITE_RECORDER_SUITE", suite.c_str());
    SetEnvironmentVariableW(L"SUITE_RECORDER_FOLDER", folder.c_str());
    SetEnvironmentVariableW(L"SUITE_RECORDER_VALUES", L"1");
    const std::wstring recorder = (bin / L"SuiteRecorder.X.manifest").wstring();
    ACTCTXW description{};
    description.cbSize = sizeof(description);
    description.lpSource = recorder.c_str();
    context_ = CreateActCtxW(&description);
    EXPECT_NE(context_, INVALID_HANDLE_VALUE);
    EXPECT_NE(ActivateActCtx(context_, &cookie_), FALSE);
  }
  ~SuiteRecording() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
    // Closes the file.
    CoFreeUnusedLibrariesEx(0, 0);
  }
  SuiteRecording(const SuiteRecording&) = delete;
  SuiteRecording& operator=(const SuiteRecording&) = delete;

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

// What the child's control shows of the company.
struct ShownCompany {
  std::vector<std::string> classes;
  int items = 0;
  std::string grid;  // a picture
};

// Once the second class is selected by keys. `folder`: for the picture.
ShownCompany ShownBy(const ChildWindow& child, const testing::TemporaryFolder& folder) {
  const HWND tree = GetDlgItem(child.ControlHandle(), ids::kTree);
  for (const int key : {VK_HOME, VK_DOWN, VK_DOWN}) {
    SendMessageW(tree, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  }
  pricedown::testing::RunMessages();
  ShownCompany shown;
  for (HTREEITEM item = TreeView_GetRoot(tree); item != nullptr;
       item = TreeView_GetNextVisible(tree, item)) {
    wchar_t text[100] = {};
    TVITEMW node{};
    node.mask = TVIF_TEXT;
    node.hItem = item;
    node.pszText = text;
    node.cchTextMax = 100;
    TreeView_GetItem(tree, &node);
    shown.classes.push_back(Utf8(pricedown::windows::FromWide(text)));
  }
  const HWND pane = GetDlgItem(child.ControlHandle(), ids::kGridPane);
  const HWND grid = GetDlgItem(pane, ids::kGrid);
  SCROLLINFO rows{sizeof(rows), SIF_RANGE, 0, 0, 0, 0, 0};
  GetScrollInfo(grid, SB_VERT, &rows);
  shown.items = rows.nMax;
  SaveScreenshot(grid, WidePath(folder.PathOf("grid.png")));
  shown.grid = folder.Read("grid.png");
  return shown;
}

class HostReplay : public ::testing::Test {
 protected:
  HostReplay() { frame_.Show(SW_SHOW); }
  ~HostReplay() override {
    frame_.CloseChildren();
    // The suite of the process is live again.
    frame_.Settings()->Call(u"Replay", {u""});
    OleUninitialize();
  }

  std::wstring Path(const std::string& name) const { return WidePath(folder_.PathOf(name)); }
  // The one recording in the folder.
  std::wstring Recording() const {
    for (const std::string& name : folder_.Names()) {
      if (name.ends_with(".jsonl")) return Path(name);
    }
    return {};
  }

  const HRESULT ole_ = OleInitialize(nullptr);
  testing::TemporaryFolder folder_;
  pricedown::windows::ComObjectFactory factory_;
  FrameWindow frame_{GetModuleHandleW(nullptr), factory_.Create(u"ZEPWorkbench.Settings")};
};

TEST_F(HostReplay, ShowsTheRecordedClassesAndItemsWithoutTheCompany) {
  const std::string company = folder_.PathOf("company.db");
  CreateCompanyFile(company, {});
  frame_.OpenCompany(WidePath(company));
  ShownCompany recorded;
  {
    const SuiteRecording recorder(Path(""));
    const ChildWindow* child = frame_.OpenChild(kItemClassesCaption);
    ASSERT_NE(child, nullptr);
    recorded = ShownBy(*child, folder_);
    frame_.CloseChildren();
  }
  frame_.Settings()->Call(u"Close");
  ASSERT_GT(recorded.classes.size(), 3U);
  ASSERT_GT(recorded.items, 1);

  frame_.ReplayRecording(Recording());
  ASSERT_NE(frame_.ActiveChild(), nullptr);
  const ShownCompany replayed = ShownBy(*frame_.ActiveChild(), folder_);
  EXPECT_EQ(replayed.classes, recorded.classes);
  EXPECT_EQ(replayed.items, recorded.items);
  EXPECT_TRUE(replayed.grid == recorded.grid) << "another picture";
  frame_.CloseChildren();
  EXPECT_EQ("", Utf8(pricedown::ToText(frame_.Settings()->Get(u"ReplayDifference"))));
  EXPECT_EQ("0", Utf8(pricedown::ToText(frame_.Settings()->Get(u"ReplayCallsLeft"))));
}

TEST_F(HostReplay, AnotherFileIsRefused) {
  folder_.Write("recording.jsonl", "hello\n");
  try {
    frame_.ReplayRecording(Recording());
    FAIL() << "this is no recording";
  } catch (const pricedown::AutomationError& error) {
    EXPECT_EQ("这不是调用记录，或版本不同。", Utf8(error.Description()));
  }
}

}  // namespace
}  // namespace workbench
