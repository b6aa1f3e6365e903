// Screen to bitmap by BitBlt, bitmap to PNG by the system's imaging component.
#include "workbench/host/screenshot.h"

#include <wincodec.h>

#include "windows/base/gdi.h"
#include "windows/com/com_ptr.h"
#include "windows/com/system_error.h"

namespace workbench {

using pricedown::windows::ComPtr;
using pricedown::windows::ThrowIfFailed;

namespace {

using pricedown::windows::GdiObject;

// Throws when the screen cannot be copied.
GdiObject<HBITMAP> CopyScreen(const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const pricedown::windows::WindowContext screen(nullptr);
  const pricedown::windows::CreatedContext memory(CreateCompatibleDC(screen.Get()));
  GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen.Get(), width, height));
  if (!memory || !bitmap) pricedown::windows::ThrowLastError();
  const pricedown::windows::Selected selected(memory.get(), bitmap.Get());
  if (BitBlt(memory.get(), 0, 0, width, height, screen.Get(), area.left, area.top, SRCCOPY) ==
      FALSE) {
    pricedown::windows::ThrowLastError();
  }
  return bitmap;
}

}  // namespace

void SaveScreenshot(HWND window, const std::wstring& path) {
  RECT area;
  GetWindowRect(window, &area);
  // A picture that extends beyond the screen may be all black.
  const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  IntersectRect(&area, &area, &screen);
  const GdiObject<HBITMAP> picture = CopyScreen(area);
  ComPtr<IWICImagingFactory> factory;
  ThrowIfFailed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IWICImagingFactory, factory.putVoid()));
  ComPtr<IWICBitmap> bitmap;
  ThrowIfFailed(
      factory->CreateBitmapFromHBITMAP(picture.Get(), nullptr, WICBitmapIgnoreAlpha, bitmap.put()));
  ComPtr<IWICStream> stream;
  ThrowIfFailed(factory->CreateStream(stream.put()));
  ThrowIfFailed(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
  ComPtr<IWICBitmapEncoder> encoder;
  ThrowIfFailed(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()));
  ThrowIfFailed(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
  ComPtr<IWICBitmapFrameEncode> frame;
  ThrowIfFailed(encoder->CreateNewFrame(frame.put(), nullptr));
  ThrowIfFailed(frame->Initialize(nullptr));
  ThrowIfFailed(frame->SetSize(static_cast<UINT>(area.right - area.left),
                               static_cast<UINT>(area.bottom - area.top)));
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  ThrowIfFailed(frame->SetPixelFormat(&format));
  ThrowIfFailed(frame->WriteSource(bitmap.get(), nullptr));
  ThrowIfFailed(frame->Commit());
  ThrowIfFailed(encoder->Commit());
}

}  // namespace workbench
