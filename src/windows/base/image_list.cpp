// Turns drawn icons into icons of the system and puts them into image lists.
// Icons carry colours not multiplied by alpha, and a mask for lists without alpha.
#include "windows/base/image_list.h"

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "windows/base/gdi.h"
#include "windows/com/failure.h"

namespace pricedown::windows {
namespace {

constexpr int kDesignIconSize = 16;

GdiObject<HBITMAP> ColourBitmap(const std::vector<std::uint32_t>& pixels, int size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size;
  info.bmiHeader.biHeight = -size;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  GdiObject<HBITMAP> bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) ThrowLastError();
  std::memcpy(bits, pixels.data(), pixels.size() * sizeof pixels[0]);
  return bitmap;
}

// One bit per pixel, set where the icon is transparent; rows are padded to 16 bits.
GdiObject<HBITMAP> MaskBitmap(const std::vector<std::uint32_t>& pixels, int size) {
  const auto edge = static_cast<std::size_t>(size);
  const std::size_t stride = (edge + 15) / 16 * 2;
  std::vector<std::uint8_t> bits(stride * edge);
  for (std::size_t y = 0; y < edge; ++y) {
    for (std::size_t x = 0; x < edge; ++x) {
      if (pixels[y * edge + x] >> 24 >= 0x80) continue;
      std::uint8_t& byte = bits[y * stride + x / 8];
      byte = static_cast<std::uint8_t>(byte | (0x80u >> (x % 8)));
    }
  }
  return GdiObject(CreateBitmap(size, size, 1, 1, bits.data()));
}

HICON MakeIcon(const IconCanvas& canvas, IconLook look) {
  const int size = canvas.Size();
  const std::vector<std::uint32_t> pixels =
      look == IconLook::Disabled ? Disabled(canvas.Pixels()) : canvas.Pixels();
  const GdiObject<HBITMAP> colours = ColourBitmap(pixels, size);
  const GdiObject<HBITMAP> mask = MaskBitmap(pixels, size);
  ICONINFO info{};
  info.fIcon = TRUE;
  info.hbmColor = colours.Get();
  info.hbmMask = mask.Get();
  return CreateIconIndirect(&info);
}

}  // namespace

ImageList::ImageList(ImageList&& other) noexcept : list_(std::exchange(other.list_, nullptr)) {}

ImageList& ImageList::operator=(ImageList&& other) noexcept {
  std::swap(list_, other.list_);
  return *this;
}

ImageList::~ImageList() {
  if (list_ != nullptr) ImageList_Destroy(list_);
}

int IconSize(Dpi dpi) { return dpi.Scale(kDesignIconSize); }

ImageList MakeImageList(std::span<const Icon> icons, IconLook look, Dpi dpi) {
  std::vector<IconCanvas> pictures;
  for (const Icon icon : icons) pictures.push_back(DrawIcon(icon, IconSize(dpi)));
  return MakeImageList(pictures, look, IconSize(dpi));
}

ImageList MakeImageList(std::span<const IconCanvas> pictures, IconLook look, int size) {
  ImageList list(
      ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, static_cast<int>(pictures.size()), 0));
  if (list.Get() == nullptr) ThrowIfFailed(E_OUTOFMEMORY);
  for (const IconCanvas& picture : pictures) {
    const HICON handle = MakeIcon(picture, look);
    if (handle == nullptr) ThrowLastError();
    ImageList_ReplaceIcon(list.Get(), -1, handle);
    DestroyIcon(handle);
  }
  return list;
}

}  // namespace pricedown::windows
