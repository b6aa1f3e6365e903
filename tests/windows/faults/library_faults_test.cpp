// What must hold when the system refuses the built library a window, a menu, memory or a font at
// any point: no crash, the failure reaches the caller, and the control still works.
#include <gtest/gtest.h>
#include <olectl.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <functional>
#include <iostream>
#include <numeric>
#include <string>
#include <vector>

#include "tests/support/number_from_environment.h"
#include "tests/windows/conformance/process_resources.h"
#include "tests/windows/faults/import_faults.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

// Closes each dialog, form and message box of the thread as soon as it appears.
class ImpatientUser {
 public:
  ImpatientUser() : timer_(SetTimer(nullptr, 0, 10, &OnTimer)) { Forget(); }
  ~ImpatientUser() { KillTimer(nullptr, timer_); }
  ImpatientUser(const ImpatientUser&) = delete;
  ImpatientUser& operator=(const ImpatientUser&) = delete;

  void Forget() { sawForm_ = sawBox_ = false; }
  bool SawForm() const { return sawForm_; }
  bool SawBox() const { return sawBox_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), OnWindow, 0);
  }

  static BOOL CALLBACK OnWindow(HWND window, LPARAM) {
    if (IsWindowVisible(window) == FALSE) return TRUE;
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    const std::wstring kind = name;
    if (kind == L"#32770") {
      PostMessageW(window, WM_COMMAND, GetDlgItem(window, IDNO) != nullptr ? IDNO : IDOK, 0);
      sawBox_ = true;
    } else if (kind == L"PriceDown.ItemClass" || kind == L"PriceDown.Preview") {
      PostMessageW(window, WM_CLOSE, 0, 0);
      sawForm_ = true;
    }
    return TRUE;
  }

  UINT_PTR timer_;
  static inline bool sawForm_ = false;
  static inline bool sawBox_ = false;
};

// Ends the program if one run of an operation takes too long, because a hung operation cannot be
// ended from inside.
class TimeLimit {
 public:
  TimeLimit() {
    static const HANDLE watch = CreateThread(nullptr, 0, &Watch, nullptr, 0, nullptr);
    EXPECT_NE(watch, nullptr);
    began_ = GetTickCount64();
  }
  ~TimeLimit() { began_ = 0; }
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

 private:
  static constexpr ULONGLONG kLimit = 60'000;  // milliseconds
  static constexpr UINT kHangs = 4;

  static DWORD WINAPI Watch(void*) {
    for (;; Sleep(1'000)) {
      const ULONGLONG began = began_;
      if (began == 0 || GetTickCount64() - began < kLimit) continue;
      std::puts("[  FAILED  ] an operation does not end");
      std::fflush(stdout);
      TerminateProcess(GetCurrentProcess(), kHangs);
    }
  }

  static inline std::atomic<ULONGLONG> began_ = 0;
};

constexpr int kRounds = 6;

struct Kind {
  const char* name;
  FaultKind kind;
};

constexpr Kind kKinds[] = {{"windows", FaultKind::Windows},
                           {"blocks at the boundary", FaultKind::Boundary},
                           {"fonts, bitmaps and the like", FaultKind::Drawing},
                           {"allocations", FaultKind::Memory}};

// Receives the number of the call that fails, 0 for none.
using Operation = std::function<void(int failing)>;

void RunOnce(ImportFaults& faults, FaultKind kind, int failing, const Operation& operation) {
  const TimeLimit limit;
  faults.Fail(kind, failing);
  operation(failing);
  faults.Stop();
}

// Runs with each of `calls` failing in turn, or with at most `most` samples, because every run
// costs a whole operation. Returns the number of runs.
int FailSpread(ImportFaults& faults, FaultKind kind, int count, int most,
               const Operation& operation) {
  const int step = std::max(1, (count + most - 1) / most);
  int points = 0;
  for (int point = 1; point <= count; point += step, ++points) {
    SCOPED_TRACE("number " + std::to_string(point) + " of " + std::to_string(count));
    RunOnce(faults, kind, point, operation);
  }
  return points;
}

// What the system itself loses in a run without failures, in bytes: the average of several runs, or
// their second largest growth where that is more. Some blocks are lost now and then only; and where
// the heap takes small blocks in groups, an average may be too small, the largest growth a group.
long LostInARun(ImportFaults& faults, const Operation& operation) {
  constexpr int kRuns = 5;
  std::array<long, kRuns> growths{};
  for (long& growth : growths) {
    const long before = ResourcesNow().memory;
    RunOnce(faults, FaultKind::Windows, 0, operation);
    growth = ResourcesNow().memory - before;
  }
  std::ranges::sort(growths, std::greater());
  return std::max(std::reduce(growths.begin(), growths.end()) / kRuns, growths[1]);
}

// What Wine's label loses with each font that it is given: after a failure some get theirs again.
constexpr long kBytesPerRun = 24;

bool HasGrown(const ProcessResources& before, const ProcessResources& after, long lost) {
  return after.handles > before.handles || after.gdiObjects > before.gdiObjects ||
         after.userObjects > before.userObjects || after.memory > before.memory + lost;
}

int covered = 0;

// Runs it without failures, then with calls of each kind failing, at most `usual` of them or as
// many as PRICEDOWN_FAULT_POINTS in the environment says. Growth may be a cache of the system;
// repeated growth is a leak.
void FailEach(ImportFaults& faults, int usual, const Operation& operation) {
  const int most = NumberFromEnvironment("PRICEDOWN_FAULT_POINTS", usual);
  // The first time fills caches.
  RunOnce(faults, FaultKind::Windows, 0, operation);
  const long lost = LostInARun(faults, operation) + kBytesPerRun;
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    // Twice, because the first time fills caches.
    RunOnce(faults, kind.kind, 0, operation);
    RunOnce(faults, kind.kind, 0, operation);
    const int count = faults.Stop();
    int points = 0;
    bool grown = true;
    std::string left;
    for (int round = 0; round < kRounds && grown; ++round) {
      const ProcessResources before = ResourcesNow();
      points = FailSpread(faults, kind.kind, count, most, operation);
      const ProcessResources after = ResourcesNow();
      grown = HasGrown(before, after, points * lost);
      left = "handles " + std::to_string(after.handles - before.handles) + ", GDI objects " +
             std::to_string(after.gdiObjects - before.gdiObjects) + ", windows and menus " +
             std::to_string(after.userObjects - before.userObjects) + ", bytes " +
             std::to_string(after.memory - before.memory) + " where the system loses " +
             std::to_string(points * lost);
    }
    EXPECT_FALSE(grown) << "left in the last round: " << left;
    covered += points;
    std::cout << "    " << points << " of " << count << " " << kind.name << "\n";
  }
}

class LibraryFaults : public ::testing::Test {
 protected:
  static constexpr int kFewPoints = 8;
  static constexpr int kSomePoints = 24;
  static constexpr int kManyPoints = 60;

  static void TearDownTestSuite() { std::cout << "    " << covered << " fault points in all\n"; }

  // A member that shows a form: it does, or reports why not.
  void FailForm(const wchar_t* name, int most) {
    host.Open();
    FailEach(faults, most, [&](int failing) {
      user.Forget();
      const std::string answer = Statement(host.control.get(), name);
      faults.Stop();
      const bool succeeds = answer == "S_OK";
      EXPECT_TRUE(user.SawForm() || user.SawBox() || !succeeds) << "nothing is done or said";
      EXPECT_TRUE(failing != 0 || (succeeds && user.SawForm() && !user.SawBox())) << answer;
      ExpectUsable();
      // The form took over the grid's rows; these are new.
      SendMessageW(GetDlgItem(host.Window(), windows::control_ids::kTree), WM_KEYDOWN, VK_F5, 0);
      host.world.log.Clear();
    });
    host.Close();
  }

  void ExpectUsable() {
    EXPECT_EQ(FindWindowW(L"PriceDown.ItemClass", nullptr), nullptr);
    EXPECT_EQ(FindWindowW(L"PriceDown.Preview", nullptr), nullptr);
    EXPECT_NE(IsWindowEnabled(host.frame.Handle()), FALSE);
    EXPECT_NE(host.Window(), nullptr);
    EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent"), "S_OK");
    host.world.log.Clear();
  }

  // Failures may be reported at any point.
  ImpatientUser user;
  ControlHost host;
  ImportFaults faults{GetModuleHandleW(L"ZEPPriceDownPrepare.dll")};
};

TEST_F(LibraryFaults, OfCreationAreItsResult) {
  FailEach(faults, kManyPoints, [&](int failing) {
    const auto object = host.library.Create(CLSID_PriceDown);
    const bool reached = faults.Stop() >= failing;
    EXPECT_TRUE(failing == 0 || !object || reached);
    EXPECT_TRUE(failing != 0 || object);
    if (object) {
      EXPECT_EQ(Statement(object.As<IDispatch>().get(), L"ModelCurrent"), "S_OK");
    }
  });
}

TEST_F(LibraryFaults, OfHostingLeaveAControlForTheNextContainer) {
  // Requested if the setting's name could not be stored.
  host.world.factory.Object(u"dictionary").On(u"GetValue", R"("", "gc0")", u"gc0");
  FailEach(faults, kFewPoints, [&](int failing) {
    host.SetSite();
    host.DoVerb(OLEIVERB_UIACTIVATE);
    const std::string shown = Expression(host.control.get(), L"Show", {ObjectOf(nullptr)});
    host.Close();
    host.LeaveSite();
    faults.Stop();
    EXPECT_TRUE(failing != 0 || shown == "S_OK True") << shown;
    EXPECT_EQ(host.Window(), nullptr);
    host.Open();
    ExpectUsable();
    EXPECT_EQ(host.LeaveSite(), S_OK);
  });
}

TEST_F(LibraryFaults, OfAddingAreReported) { FailForm(L"addRecord", kSomePoints); }

TEST_F(LibraryFaults, OfChangingAreReported) { FailForm(L"editRecord", kFewPoints); }

TEST_F(LibraryFaults, OfPreviewingAreReported) { FailForm(L"PreviewPara", kFewPoints); }

// Without a printer, which the user is told.
TEST_F(LibraryFaults, OfPrintingLeaveAControlThatWorks) {
  host.Open();
  FailEach(faults, kFewPoints, [&](int failing) {
    user.Forget();
    const std::string answer = Statement(host.control.get(), L"PrintPara");
    faults.Stop();
    EXPECT_TRUE(failing != 0 || (answer == "S_OK" && user.SawBox())) << answer;
    ExpectUsable();
  });
  host.Close();
}

TEST_F(LibraryFaults, OfTheQuestionDeleteNothing) {
  host.Open();
  FailEach(faults, kManyPoints, [this](int failing) {
    user.Forget();
    const std::string answer = Statement(host.control.get(), L"delRecord");
    faults.Stop();
    EXPECT_TRUE(failing != 0 || (answer == "S_OK" && user.SawBox())) << answer;
    EXPECT_EQ(host.world.log.Text().find("elete"), std::string::npos) << host.world.log.Text();
    ExpectUsable();
  });
  host.Close();
}

BOOL CALLBACK AddPlace(HWND child, LPARAM places) {
  RECT area{};
  GetWindowRect(child, &area);
  reinterpret_cast<std::vector<std::string>*>(places)->push_back(
      std::to_string(GetDlgCtrlID(child)) + ": " + std::to_string(area.left) + "," +
      std::to_string(area.top) + " " + std::to_string(area.right) + "," +
      std::to_string(area.bottom));
  return TRUE;
}

// The places of all windows inside `window`, in its order of children.
std::vector<std::string> PlacesIn(HWND window) {
  std::vector<std::string> places;
  EnumChildWindows(window, AddPlace, reinterpret_cast<LPARAM>(&places));
  return places;
}

TEST_F(LibraryFaults, OfPlacingAtOncePlaceTheWindowsOneByOne) {
  host.Open();
  const auto resize = [&](int width, int height) {
    SetWindowPos(host.Window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
  };
  resize(650, 450);
  const std::vector<std::string> places = PlacesIn(host.Window());
  resize(500, 350);
  faults.Fail(FaultKind::Windows, 0);
  resize(650, 450);
  const int calls = faults.Stop();
  ASSERT_GT(calls, 2);
  for (int failing = 1; failing <= calls; ++failing) {
    resize(500, 350);
    faults.Fail(FaultKind::Windows, failing);
    resize(650, 450);
    faults.Stop();
    EXPECT_EQ(PlacesIn(host.Window()), places) << failing;
  }
  host.Close();
}

TEST_F(LibraryFaults, OfTheMetafileIsTheResultOfThePicture) {
  host.Open();
  FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  STGMEDIUM medium{};
  faults.Fail(FaultKind::Drawing, 1);
  EXPECT_EQ(host.As<IDataObject>()->GetData(&format, &medium), E_OUTOFMEMORY);
  faults.Stop();
  EXPECT_EQ(medium.hMetaFilePict, nullptr);
  EXPECT_EQ(host.As<IDataObject>()->GetData(&format, &medium), S_OK);
  ReleaseStgMedium(&medium);
  host.Close();
}

TEST_F(LibraryFaults, OfDrawingLeaveTheControlAlive) {
  host.Open();
  FailEach(faults, kManyPoints, [&](int failing) {
    const HDC context = CreateMetaFileW(nullptr);
    const RECTL bounds{0, 0, 300, 200};
    const HRESULT code = host.As<IViewObject2>()->Draw(
        DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr, nullptr, 0);
    DeleteMetaFile(CloseMetaFile(context));
    RedrawWindow(host.Window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    faults.Stop();
    EXPECT_TRUE(failing != 0 || code == S_OK);
    ExpectUsable();
  });
  host.Close();
}

}  // namespace
}  // namespace pricedown::testing
