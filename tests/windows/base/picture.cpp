// Copies what a window shows into memory, and writes bitmap files.
#include "tests/windows/base/picture.h"

#include <cstdlib>
#include <fstream>

#include "tests/windows/support/run_messages.h"

namespace pricedown::testing {
namespace {

BITMAPINFOHEADER Header(int width, int height) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = -height;
  header.biPlanes = 1;
  header.biBitCount = 32;
  header.biCompression = BI_RGB;
  return header;
}

}  // namespace

Picture CapturePicture(HDC context, const RECT& area) {
  Picture picture;
  picture.width = area.right - area.left;
  picture.height = area.bottom - area.top;
  picture.pixels.resize(static_cast<std::size_t>(picture.width) *
                        static_cast<std::size_t>(picture.height));
  const HDC memory = CreateCompatibleDC(context);
  const HBITMAP bitmap = CreateCompatibleBitmap(context, picture.width, picture.height);
  const HGDIOBJ previous = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, picture.width, picture.height, context, area.left, area.top, SRCCOPY);
  SelectObject(memory, previous);
  BITMAPINFO info{};
  info.bmiHeader = Header(picture.width, picture.height);
  GetDIBits(memory, bitmap, 0, static_cast<UINT>(picture.height), picture.pixels.data(), &info,
            DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(memory);
  for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
  return picture;
}

Picture CapturePicture(HWND window) {
  RunMessages();
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  RECT area{};
  GetClientRect(window, &area);
  const HDC context = GetDC(window);
  Picture picture = CapturePicture(context, area);
  ReleaseDC(window, context);
  return picture;
}

void KeepPicture(HWND window, const std::string& name) {
  if (std::getenv("PRICEDOWN_PICTURES") != nullptr) KeepPicture(CapturePicture(window), name);
}

void KeepPicture(const Picture& picture, const std::string& name) {
  const char* folder = std::getenv("PRICEDOWN_PICTURES");
  if (folder == nullptr) return;
  std::ofstream file(std::string(folder) + "/" + name + ".bmp", std::ios::binary);
  const BITMAPINFOHEADER header = Header(picture.width, picture.height);
  const auto bytes = static_cast<DWORD>(picture.pixels.size() * sizeof picture.pixels[0]);
  BITMAPFILEHEADER start{};
  start.bfType = 0x4D42;
  start.bfOffBits = sizeof start + sizeof header;
  start.bfSize = start.bfOffBits + bytes;
  file.write(reinterpret_cast<const char*>(&start), sizeof start);
  file.write(reinterpret_cast<const char*>(&header), sizeof header);
  file.write(reinterpret_cast<const char*>(picture.pixels.data()),
             static_cast<std::streamsize>(bytes));
}

}  // namespace pricedown::testing
