// Owners of GDI and user objects, and guards around what is selected into a device context.
// They own handles; what is drawn is the painters' business.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>
#include <utility>

#include "platform/geometry.h"

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

// The window's context outside of painting, for measuring.
class WindowContext {
 public:
  explicit WindowContext(HWND window) : window_(window), context_(GetDC(window)) {}
  ~WindowContext() { ReleaseDC(window_, context_); }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  HDC Get() const { return context_; }

 private:
  HWND window_;
  HDC context_;
};

// Painting off screen: everything drawn into Context() appears at once at the end.
class BufferedPaint {
 public:
  BufferedPaint(HDC target, const RECT& area);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  // In the coordinates of the target; the target itself when there is no memory for a picture.
  HDC Context() const { return memory_ != nullptr ? memory_ : target_; }

 private:
  HDC target_;
  RECT area_;
  HDC memory_ = nullptr;
  GdiObject<HBITMAP> bitmap_;
  HGDIOBJ previous_ = nullptr;
};

// Fills with a solid colour.
void FillArea(HDC context, const RECT& area, COLORREF colour);
// The frame of a pane as the system gives it to a tree: that of the visual style, or a sunken one.
void PaintFrame(HDC context, HWND window, const RECT& frame);
// `share` of 255 of the way from one colour to another.
COLORREF Blend(COLORREF from, COLORREF to, int share);

inline RECT ToRect(const Rectangle& area) {
  return {area.left, area.top, area.Right(), area.Bottom()};
}
inline int WidthOf(const RECT& area) { return area.right - area.left; }
inline int HeightOf(const RECT& area) { return area.bottom - area.top; }

}  // namespace pricedown::windows
