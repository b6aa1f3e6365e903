// Controls created and ended thousands of times: the process's resources do not grow. The first
// rounds are not counted, because the system fills its caches in them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>

#include "tests/support/number_from_environment.h"
#include "tests/windows/conformance/process_resources.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/system_call.h"
#include "windows/base/visual_styles.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

// Less than the smallest block of memory in every life.
constexpr long kBytesPerLife = 4;

// At least the usual number of lives, or this share of the number that PRICEDOWN_LIVES requests.
int Lives(int usual, int part) {
  return std::max(usual, NumberFromEnvironment("PRICEDOWN_LIVES", usual) / part);
}

// What the system itself leaks with each label that had a font: nothing on Windows, one small block
// on Wine. Its newer heaps keep small blocks in groups, count a group as one block and reuse none
// that was full before all of it is free: there such a block holds a group of 31.
long BytesLostByALabel() {
  constexpr int kLabels = 100;
  // More than a group each: the label's block is in a full one.
  constexpr std::size_t kBlocksAround = 40;
  constexpr std::size_t kSmallBlock = 24;
  // The library's version of the common controls.
  const windows::VisualStyles styles(GetModuleHandleW(L"ZEPPriceDownPrepare.dll"));
  const windows::VisualStyles::Scope scope(styles);
  const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
  const HANDLE heap = GetProcessHeap();
  std::array<void*, 2 * kBlocksAround> blocks{};
  const auto life = [&] {
    const auto allocate = [heap](void*& block) { block = HeapAlloc(heap, 0, kSmallBlock); };
    const auto middle = blocks.begin() + kBlocksAround;
    std::for_each(blocks.begin(), middle, allocate);
    const HWND label = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                       nullptr, nullptr);
    SendMessageW(label, WM_SETFONT, font, 0);
    DestroyWindow(label);
    std::for_each(middle, blocks.end(), allocate);
    for (void* block : blocks) HeapFree(heap, 0, block);
  };
  life();
  const long before = ResourcesNow().memory;
  for (int i = 0; i < kLabels; ++i) life();
  return (ResourcesNow().memory - before) / kLabels;
}

// `labels`: how many labels get a font in each life.
void ExpectNoGrowth(int lives, int labels, const std::function<void()>& life) {
  for (int round = 0; round < 10; ++round) life();
  const long lost = labels * BytesLostByALabel();
  const ProcessResources before = ResourcesNow();
  for (int round = 0; round < lives; ++round) life();
  const ProcessResources after = ResourcesNow();
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.gdiObjects, before.gdiObjects);
  EXPECT_LE(after.userObjects, before.userObjects);
  EXPECT_LE(after.memory - before.memory, lives * (lost + kBytesPerLife));
}

// A container and a suite that outlive the controls in them.
class ManyLives : public ::testing::Test {
 protected:
  ~ManyLives() override {
    IOleClientSite* one = site.get();
    EXPECT_EQ(one->AddRef(), 2U);
    EXPECT_EQ(one->Release(), 1U);
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    EXPECT_TRUE(library.CanUnload());
  }

  ComPtr<IDispatch> NewInSite() const {
    auto control = library.NewPriceDown();
    EXPECT_EQ(control.As<IPersistStreamInit>()->InitNew(), S_OK);
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(site.get()), S_OK);
    return control;
  }
  void Verb(const ComPtr<IDispatch>& control, LONG verb) const {
    const RECT position{};
    EXPECT_EQ(
        control.As<IOleObject>()->DoVerb(verb, nullptr, site.get(), 0, frame.Handle(), &position),
        S_OK);
  }

  ControlWorld world;
  SuiteScope suite{world.factory};
  HostFrame frame{world.log, u"物料类别维护"};
  ComPtr<RecordingSite> site =
      windows::MakeCom<RecordingSite>(world.log, frame.Handle(), RECT{10, 20, 710, 520});
  Library library;
};

TEST_F(ManyLives, WithoutEverBeingShownLeaveNothing) {
  ExpectNoGrowth(Lives(120, 1), 6, [this] {
    const auto control = NewInSite();
    EXPECT_EQ(control.As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(nullptr), S_OK);
    world.log.Clear();
  });
}

TEST_F(ManyLives, ThatTheContainerForgotToCloseLeaveNothing) {
  ExpectNoGrowth(Lives(30, 10), 6, [this] {
    NewInSite();
    world.log.Clear();
  });
}

TEST_F(ManyLives, ThatWereShownAndUsedLeaveNothing) {
  const auto parent = windows::ToDispatch(world.NewParent());
  ExpectNoGrowth(Lives(20, 20), 7, [&] {
    const auto control = NewInSite();
    Verb(control, OLEIVERB_UIACTIVATE);
    EXPECT_EQ(Expression(control.get(), L"Show", {ObjectOf(parent.get())}), "S_OK True");
    EXPECT_EQ(Statement(control.get(), L"RefreshToolbar"), "S_OK");
    EXPECT_EQ(Statement(control.get(), L"ModelCurrent"), "S_OK");
    EXPECT_EQ(control.As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(control.As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(nullptr), S_OK);
    world.log.Clear();
  });
}

TEST_F(ManyLives, OfOneObjectLeaveNothing) {
  const auto control = library.NewPriceDown();
  ExpectNoGrowth(Lives(20, 20), 7, [&] {
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(site.get()), S_OK);
    Verb(control, OLEIVERB_SHOW);
    EXPECT_EQ(Expression(control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(nullptr), S_OK);
    world.log.Clear();
  });
}

TEST_F(ManyLives, OfTheOtherClassLeaveNothing) {
  ExpectNoGrowth(10000, 0, [this] {
    EXPECT_EQ(Statement(library.NewUpdatePrice().get(), L"ItemClassType"), "S_OK");
    world.log.Clear();
  });
}

// Pictures and documents of an inactive control, and its type information.
TEST_F(ManyLives, OfAnObjectThatIsOnlyQueriedLeaveNothing) {
  ExpectNoGrowth(Lives(20, 20), 6, [this] {
    const auto control = library.NewPriceDown();
    const HDC context = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    const RECTL bounds{0, 0, 300, 200};
    EXPECT_EQ(control.As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                               context, &bounds, nullptr, nullptr, 0),
              S_OK);
    DeleteEnhMetaFile(CloseEnhMetaFile(context));
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    EXPECT_EQ(control.As<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
    EXPECT_EQ(control.As<IProvideClassInfo>()->GetClassInfo(info.put()), S_OK);
  });
}

// The counts notice a single leaked object of each kind.
TEST(ProcessResources, SeeOneOfEachKind) {
  const ProcessResources before = ResourcesNow();
  const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  const HPEN pen = CreatePen(PS_SOLID, 3, RGB(1, 2, 3));
  const HMENU menu = CreatePopupMenu();
  const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                      nullptr, nullptr);
  void* const block = HeapAlloc(GetProcessHeap(), 0, 5000);
  const ProcessResources now = ResourcesNow();
  EXPECT_GE(now.handles - before.handles, 1);
  EXPECT_GE(now.gdiObjects - before.gdiObjects, 1);
  EXPECT_GE(now.userObjects - before.userObjects, 2);
  EXPECT_GE(now.memory - before.memory, 5000);
  HeapFree(GetProcessHeap(), 0, block);
  DestroyWindow(window);
  DestroyMenu(menu);
  DeleteObject(pen);
  CloseHandle(event);
  const ProcessResources after = ResourcesNow();
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_EQ(after.gdiObjects, before.gdiObjects);
  EXPECT_EQ(after.userObjects, before.userObjects);
}

}  // namespace
}  // namespace pricedown::testing
