// Screen to bitmap by BitBlt, bitmap to PNG by the system's imaging component.
#include "workbench/host/screenshot.h"

#include <wincodec.h>

#include "windows/com/com_ptr.h"
#include "windows/com/failure.h"

namespace workbench {

using pricedown::windows::ComPtr;
using pricedown::windows::ThrowIfFailed;

namespace {

class ScreenBitmap {
 public:
  explicit ScreenBitmap(const RECT& area)
      : width(area.right - area.left), height(area.bottom - area.top) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(memory, bitmap_);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (bitmap_ == nullptr) pricedown::windows::ThrowLastError();
  }
  ~ScreenBitmap() { DeleteObject(bitmap_); }
  ScreenBitmap(const ScreenBitmap&) = delete;
  ScreenBitmap& operator=(const ScreenBitmap&) = delete;

  HBITMAP Handle() const { return bitmap_; }
  const int width;
  const int height;

 private:
  HBITMAP bitmap_ = nullptr;
};

}  // namespace

void SaveScreenshot(HWND window, const std::wstring& path) {
  RECT area;
  GetWindowRect(window, &area);
  // A picture that extends beyond the screen may be all black.
  const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  IntersectRect(&area, &area, &screen);
  const ScreenBitmap picture(area);
  ComPtr<IWICImagingFactory> factory;
  ThrowIfFailed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IWICImagingFactory, factory.putVoid()));
  ComPtr<IWICBitmap> bitmap;
  ThrowIfFailed(factory->CreateBitmapFromHBITMAP(picture.Handle(), nullptr, WICBitmapIgnoreAlpha,
                                                 bitmap.put()));
  ComPtr<IWICStream> stream;
  ThrowIfFailed(factory->CreateStream(stream.put()));
  ThrowIfFailed(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
  ComPtr<IWICBitmapEncoder> encoder;
  ThrowIfFailed(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()));
  ThrowIfFailed(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
  ComPtr<IWICBitmapFrameEncode> frame;
  ThrowIfFailed(encoder->CreateNewFrame(frame.put(), nullptr));
  ThrowIfFailed(frame->Initialize(nullptr));
  ThrowIfFailed(
      frame->SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height)));
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  ThrowIfFailed(frame->SetPixelFormat(&format));
  ThrowIfFailed(frame->WriteSource(bitmap.get(), nullptr));
  ThrowIfFailed(frame->Commit());
  ThrowIfFailed(encoder->Commit());
}

}  // namespace workbench
