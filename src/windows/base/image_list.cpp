// Loads icon resources, greys disabled ones, and puts them into image lists that windows share.
#include "windows/base/image_list.h"

#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "windows/base/gdi.h"
#include "windows/base/shared_values.h"
#include "windows/base/system_functions.h"
#include "windows/com/system_error.h"

// The linker's symbol for the start of the module that contains this code.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace pricedown::windows {
namespace {

constexpr int kDesignIconSize = 16;

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

// Grey and pale; 0xAARRGGBB, not multiplied by alpha.
std::uint32_t Disabled(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16 & 0xFF;
  const std::uint32_t green = pixel >> 8 & 0xFF;
  const std::uint32_t blue = pixel & 0xFF;
  const std::uint32_t grey = 96 + (30 * red + 59 * green + 11 * blue) / 200;
  const std::uint32_t alpha = (pixel >> 24) * 55 / 100;
  return alpha << 24 | grey << 16 | grey << 8 | grey;
}

IconHandle Disabled(HICON icon, int size) {
  ICONINFO info{};
  if (!GetIconInfo(icon, &info)) ThrowLastError();
  const GdiObject<HBITMAP> colours(info.hbmColor);
  const GdiObject<HBITMAP> mask(info.hbmMask);

  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = size;
  format.bmiHeader.biHeight = size;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  const auto rows = static_cast<UINT>(size);
  std::vector<std::uint32_t> pixels(std::size_t{rows} * rows);
  const WindowContext screen(nullptr);
  if (GetDIBits(screen.Get(), colours.Get(), 0, rows, pixels.data(), &format, DIB_RGB_COLORS) ==
      0) {
    ThrowLastError();
  }
  for (std::uint32_t& pixel : pixels) pixel = Disabled(pixel);
  SetDIBits(screen.Get(), colours.Get(), 0, rows, pixels.data(), &format, DIB_RGB_COLORS);
  return IconHandle(CreateIconIndirect(&info));
}

ImageList MakeImageList(const std::vector<int>& icons, IconLook look, int size) {
  ImageList list(
      ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, static_cast<int>(icons.size()), 0),
      [](HIMAGELIST made) { ImageList_Destroy(made); });
  if (list == nullptr) ThrowIfFailed(E_OUTOFMEMORY);
  for (const int id : icons) {
    IconHandle icon = LoadIconResource(id, size);
    if (look == IconLook::Disabled) icon = Disabled(icon.get(), size);
    if (ImageList_ReplaceIcon(list.get(), -1, icon.get()) < 0) ThrowIfFailed(E_OUTOFMEMORY);
  }
  return list;
}

}  // namespace

// The picture of that size, or the next larger one scaled down. Version 5 of the common controls,
// which a host may have loaded first, cannot do that; LoadImage scales the nearest one.
IconHandle LoadIconResource(int id, int size) {
  const HINSTANCE module = ThisModule();
  // A resource's number is used instead of its name.
  // cppcheck-suppress AssignmentIntegerToAddress
  const wchar_t* const name = MAKEINTRESOURCEW(id);
  if (const auto load = SystemFunction<decltype(&LoadIconWithScaleDown)>(L"comctl32.dll",
                                                                         "LoadIconWithScaleDown")) {
    HICON icon = nullptr;
    ThrowIfFailed(load(module, name, size, size, &icon));
    return IconHandle(icon);
  }
  IconHandle icon(
      static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
  if (icon == nullptr) ThrowLastError();
  return icon;
}

int IconSize(Dpi dpi) { return dpi.Scale(kDesignIconSize); }

ImageList ImageListOf(std::vector<int> icons, IconLook look, Dpi dpi) {
  // An image list serves one thread at a time.
  using Key = std::tuple<DWORD, std::vector<int>, IconLook, int>;
  static SharedValues<Key, ImageList::element_type> lists;
  const Key key(GetCurrentThreadId(), std::move(icons), look, IconSize(dpi));
  return lists.Get(key, [&] { return MakeImageList(std::get<1>(key), look, IconSize(dpi)); });
}

}  // namespace pricedown::windows
