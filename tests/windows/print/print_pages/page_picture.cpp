// Paints into a bitmap with 32 bits per pixel.
#include "tests/windows/print/print_pages/page_picture.h"

#include <windows.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <type_traits>

#include "windows/base/gdi.h"
#include "windows/com/system_error.h"
#include "windows/print/page_painter.h"

namespace pricedown::testing {
namespace {

struct DeleteContext {
  void operator()(HDC context) const { DeleteDC(context); }
};

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

void WritePagePicture(const PrintPages& pages, std::int32_t number,
                      windows::DeviceMeasurer& measurer, int dotsPerInch, const std::string& file) {
  const double scale = dotsPerInch / double{kTenthsPerInch};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = static_cast<LONG>(std::lround(pages.PrintedPaper().width * scale));
  info.bmiHeader.biHeight = static_cast<LONG>(std::lround(pages.PrintedPaper().height * scale));
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext> owner(
      CreateCompatibleDC(nullptr));
  const HDC context = owner.get();
  const windows::GdiObject<HBITMAP> bitmap(
      CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) windows::ThrowLastError();
  const windows::Selected selected(context, bitmap.Get());
  const RECT all{0, 0, info.bmiHeader.biWidth, info.bmiHeader.biHeight};
  FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  windows::PagePainter(measurer).Paint(context, pages.PageAt(number), pages.Fonts(),
                                       {0, 0, scale, scale});
  GdiFlush();
  const auto size = static_cast<DWORD>(info.bmiHeader.biWidth * info.bmiHeader.biHeight * 4);
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;  // "BM"
  header.bfOffBits = sizeof header + sizeof info.bmiHeader;
  header.bfSize = header.bfOffBits + size;
  const std::unique_ptr<std::FILE, CloseFile> target(std::fopen(file.c_str(), "wb"));
  if (target == nullptr || std::fwrite(&header, sizeof header, 1, target.get()) != 1 ||
      std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, target.get()) != 1 ||
      std::fwrite(bits, size, 1, target.get()) != 1) {
    windows::ThrowLastError();
  }
}

}  // namespace pricedown::testing
