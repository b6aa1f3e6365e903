// The icon resources of this program, as image lists show them.
#include "windows/base/image_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/icon_ids.h"
#include "windows/base/gdi.h"

namespace pricedown::testing {
namespace {

using windows::Dpi;
using windows::GdiObject;
using windows::IconLook;
using windows::ImageListOf;

// The scales that Windows offers, 100% to 400%.
const std::vector<int> kResolutions{96, 120, 144, 168, 192, 216, 240, 288, 336, 384};
// Those with their own picture.
const std::vector<int> kDrawnResolutions{96, 120, 144, 192, 288, 384};

std::vector<int> AllIcons() {
  std::vector<int> icons;
  for (int id = PRICEDOWN_ICON_FOLDER; id <= PRICEDOWN_ICON_MORE; ++id) icons.push_back(id);
  return icons;
}

BOOL CALLBACK AddIcon(HMODULE, const wchar_t*, wchar_t* name, LONG_PTR icons) {
  reinterpret_cast<std::set<int>*>(icons)->insert(
      static_cast<int>(reinterpret_cast<std::uintptr_t>(name)));
  return TRUE;
}

TEST(ImageList, IsTestedWithEveryIconOfTheLibrary) {
  std::set<int> resources;
  EnumResourceNamesW(GetModuleHandleW(nullptr), RT_GROUP_ICON, &AddIcon,
                     reinterpret_cast<LONG_PTR>(&resources));
  const std::vector<int> tested = AllIcons();
  EXPECT_EQ(resources, std::set<int>(tested.begin(), tested.end()));
}

// 0xAARRGGBB.
std::vector<std::uint32_t> Pixels(const windows::ImageList& list, int index, int size) {
  const HICON icon = ImageList_GetIcon(list.get(), index, ILD_NORMAL);
  ICONINFO info{};
  EXPECT_TRUE(GetIconInfo(icon, &info));
  const GdiObject<HBITMAP> colours(info.hbmColor);
  const GdiObject<HBITMAP> mask(info.hbmMask);
  DestroyIcon(icon);
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size) *
                                    static_cast<std::size_t>(size));
  const windows::WindowContext screen(nullptr);
  EXPECT_EQ(GetDIBits(screen.Get(), colours.Get(), 0, static_cast<UINT>(size), pixels.data(),
                      &format, DIB_RGB_COLORS),
            size);
  return pixels;
}

// The share of pixels that are fully opaque or fully clear.
double SharpShare(const std::vector<std::uint32_t>& pixels) {
  const auto sharp = std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t pixel) {
    return pixel >> 24 == 0xFF || pixel >> 24 == 0;
  });
  return static_cast<double>(sharp) / static_cast<double>(pixels.size());
}

TEST(ImageList, HoldsEveryIconInTheSizeOfTheResolution) {
  const std::vector<int> icons = AllIcons();
  for (const int resolution : kResolutions) {
    const windows::ImageList list = ImageListOf(icons, IconLook::Normal, Dpi(resolution));
    int width = 0;
    int height = 0;
    ASSERT_TRUE(ImageList_GetIconSize(list.get(), &width, &height));
    EXPECT_EQ(width, resolution / 6);
    EXPECT_EQ(height, resolution / 6);
    EXPECT_EQ(ImageList_GetImageCount(list.get()), static_cast<int>(icons.size()));
  }
}

TEST(ImageList, ShowsEveryIconSharpAndDifferentAtEveryDrawnResolution) {
  const std::vector<int> icons = AllIcons();
  for (const int resolution : kDrawnResolutions) {
    const windows::ImageList list = ImageListOf(icons, IconLook::Normal, Dpi(resolution));
    std::set<std::vector<std::uint32_t>> different;
    for (std::size_t i = 0; i < icons.size(); ++i) {
      const auto pixels = Pixels(list, static_cast<int>(i), resolution / 6);
      EXPECT_GT(SharpShare(pixels), 0.7) << icons[i] << " at " << resolution;
      EXPECT_GT(std::count_if(pixels.begin(), pixels.end(),
                              [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; }),
                static_cast<std::ptrdiff_t>(pixels.size()) / 10)
          << icons[i] << " at " << resolution;
      different.insert(pixels);
    }
    EXPECT_EQ(different.size(), icons.size()) << resolution;
  }
}

TEST(ImageList, ShowsADisabledIconGreyAndPale) {
  const std::vector<int> icons{PRICEDOWN_ICON_DELETE};
  const Dpi dpi(192);
  const auto normal = Pixels(ImageListOf(icons, IconLook::Normal, dpi), 0, 32);
  const auto disabled = Pixels(ImageListOf(icons, IconLook::Disabled, dpi), 0, 32);
  int visible = 0;
  for (std::size_t i = 0; i < disabled.size(); ++i) {
    const std::uint32_t pixel = disabled[i];
    if (pixel >> 24 == 0) continue;
    ++visible;
    EXPECT_EQ((pixel >> 16) & 0xFF, pixel & 0xFF);
    EXPECT_EQ((pixel >> 8) & 0xFF, pixel & 0xFF);
    EXPECT_LT(pixel >> 24, normal[i] >> 24);
  }
  EXPECT_GT(visible, 200);
}

TEST(ImageList, IsSharedByAllWhoShowTheSameIconsAtAResolution) {
  const std::vector<int> icons{PRICEDOWN_ICON_DELETE};
  const windows::ImageList list = ImageListOf(icons, IconLook::Normal, Dpi(96));
  EXPECT_EQ(ImageListOf(icons, IconLook::Normal, Dpi(96)), list);
  EXPECT_NE(ImageListOf(icons, IconLook::Disabled, Dpi(96)), list);
  EXPECT_NE(ImageListOf(icons, IconLook::Normal, Dpi(192)), list);
  EXPECT_NE(ImageListOf({PRICEDOWN_ICON_FOLDER}, IconLook::Normal, Dpi(96)), list);
}

TEST(ImageList, RefusesAnIconThatTheModuleDoesNotHave) {
  const std::vector<int> icons{PRICEDOWN_ICON_MORE + 1};
  EXPECT_THROW(ImageListOf(icons, IconLook::Normal, Dpi(96)), AutomationError);
}

}  // namespace
}  // namespace pricedown::testing
