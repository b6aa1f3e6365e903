// Owners of GDI objects, guards for device contexts and what is selected into them.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace pricedown::windows {

// Move-only; the handle may be null.
template <typename Handle>
class GdiObject {
 public:
  GdiObject() = default;
  explicit GdiObject(Handle handle) : handle_(handle) {}
  GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  GdiObject& operator=(GdiObject&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~GdiObject() {
    if (handle_ != nullptr) DeleteObject(handle_);
  }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  Handle handle_ = nullptr;
};

// A device context that was created, not one of a window; may be null.
struct DeleteContext {
  void operator()(HDC context) const { DeleteDC(context); }
};
using CreatedContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

// A font, pen, brush or bitmap selected for a scope.
class Selected {
 public:
  Selected(HDC context, HGDIOBJ object)
      : context_(context), previous_(SelectObject(context, object)) {}
  ~Selected() { SelectObject(context_, previous_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC context_;
  HGDIOBJ previous_;
};

// The context of a window's client area or of the whole window with its frame; that of the screen
// for null.
class WindowContext {
 public:
  enum class Extent { Client, Frame };
  explicit WindowContext(HWND window, Extent extent = Extent::Client)
      : window_(window), context_(extent == Extent::Frame ? GetWindowDC(window) : GetDC(window)) {}
  ~WindowContext() { ReleaseDC(window_, context_); }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  HDC Get() const { return context_; }

 private:
  HWND window_;
  HDC context_;
};

// BeginPaint and EndPaint of a window.
class PaintDc {
 public:
  explicit PaintDc(HWND window) : window_(window) { BeginPaint(window, &paint_); }
  ~PaintDc() { EndPaint(window_, &paint_); }
  PaintDc(const PaintDc&) = delete;
  PaintDc& operator=(const PaintDc&) = delete;
  HDC Get() const { return paint_.hdc; }
  // What has to be painted; may be empty.
  const RECT& Area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
};

// Restores the state of a context at the end of the scope.
class SavedDc {
 public:
  explicit SavedDc(HDC context) : context_(context), state_(SaveDC(context)) {}
  ~SavedDc() {
    if (state_ != 0) RestoreDC(context_, state_);
  }
  SavedDc(const SavedDc&) = delete;
  SavedDc& operator=(const SavedDc&) = delete;

 private:
  HDC context_;
  int state_;
};

// A bitmap in memory with the colours of `like`, and a context that draws into it.
class MemoryDc {
 public:
  MemoryDc(HDC like, int width, int height);
  ~MemoryDc();
  MemoryDc(const MemoryDc&) = delete;
  MemoryDc& operator=(const MemoryDc&) = delete;
  // Null without memory for it.
  HDC Get() const { return context_.get(); }

 private:
  GdiObject<HBITMAP> bitmap_;
  CreatedContext context_;
  HGDIOBJ previous_ = nullptr;
};

}  // namespace pricedown::windows
