// Windows without behaviour of their own.
#include "windows/base/frame_windows.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <new>
#include <vector>

namespace pricedown::testing {
namespace {

// As when the host releases the control in its answer to the message.
TEST(ParkingWindow, MayEndInTheHandlerOfASystemChange) {
  // A page of its own: the first use of the object after its end is a crash.
  void* const page = VirtualAlloc(nullptr, sizeof(windows::ParkingWindow), MEM_COMMIT | MEM_RESERVE,
                                  PAGE_READWRITE);
  ASSERT_NE(page, nullptr);
  auto* const parking = new (page) windows::ParkingWindow;
  parking->Create(GetModuleHandleW(nullptr));
  const HWND window = parking->Handle();
  int calls = 0;
  parking->OnSystemChange([&calls, page, parking](UINT) {
    std::destroy_at(parking);
    DWORD before = 0;
    VirtualProtect(page, sizeof(windows::ParkingWindow), PAGE_NOACCESS, &before);
    ++calls;
  });
  SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(IsWindow(window));
  VirtualFree(page, 0, MEM_RELEASE);
}

TEST(ParkingWindow, PassesOnWhatChangesInTheSystemAndNothingElse) {
  std::vector<UINT> heard;
  windows::ParkingWindow parking;
  parking.Create(GetModuleHandleW(nullptr));
  parking.OnSystemChange([&heard](UINT message) { heard.push_back(message); });
  const std::vector<UINT> changes{WM_SETTINGCHANGE, WM_SYSCOLORCHANGE, WM_THEMECHANGED};
  for (const UINT message : changes) SendMessageW(parking.Handle(), message, 0, 0);
  for (const UINT message : std::initializer_list<UINT>{WM_NULL, WM_CANCELMODE, WM_APP}) {
    SendMessageW(parking.Handle(), message, 0, 0);
  }
  EXPECT_EQ(heard, changes);
}

}  // namespace
}  // namespace pricedown::testing
