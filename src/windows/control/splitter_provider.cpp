// The range value and the properties of the splitter.
#include "windows/control/splitter_provider.h"

#include <algorithm>
#include <cmath>

#include "control/layout.h"
#include "windows/base/dpi.h"
#include "windows/base/plain_control.h"

namespace pricedown::windows {
namespace {

struct SplitterRange {
  int least = 0;
  int greatest = 0;
  int value = 0;
};

SplitterRange RangeOf(HWND splitter) {
  const Dpi dpi = Dpi::Of(splitter);
  RECT control{};
  GetClientRect(GetParent(splitter), &control);
  const std::int32_t width = dpi.ToTwips(control.right);
  SplitterRange range;
  range.least = dpi.ToPixels(ClampSplitter(0, width));
  range.greatest = std::max(dpi.ToPixels(ClampSplitter(width, width)), range.least);
  // In a narrow control the splitter is left of its limits.
  range.value = std::clamp(SplitterPosition(splitter), range.least, range.greatest);
  return range;
}

}  // namespace

int SplitterPosition(HWND splitter) { return AreaInParent(splitter).left; }

IUnknown* SplitterProvider::FindPattern(PATTERNID pattern) {
  return pattern == UIA_RangeValuePatternId ? static_cast<IRangeValueProvider*>(this) : nullptr;
}

VARIANT SplitterProvider::Property(PROPERTYID property, const SplitterAccess&) const {
  switch (property) {
    case UIA_ControlTypePropertyId:
      return PropertyNumber(UIA_SeparatorControlTypeId);
    case UIA_OrientationPropertyId:
      return PropertyNumber(OrientationType_Vertical);
    default:
      return {};
  }
}

STDMETHODIMP SplitterProvider::SetValue(double value) noexcept {
  return link_->Run([&](SplitterAccess& access) -> HRESULT {
    const HWND window = access.Window();
    if (!AcceptsInput(window)) return UIA_E_ELEMENTNOTENABLED;
    const SplitterRange range = RangeOf(window);
    if (!(value >= range.least && value <= range.greatest)) return E_INVALIDARG;
    const int target = static_cast<int>(std::lround(value));
    return access.MoveBy(target - SplitterPosition(window)) ? S_OK : UIA_E_INVALIDOPERATION;
  });
}

STDMETHODIMP SplitterProvider::get_Value(double* result) noexcept {
  return link_->Answer(result,
                       [](SplitterAccess& access) { return RangeOf(access.Window()).value; });
}

STDMETHODIMP SplitterProvider::get_IsReadOnly(BOOL* result) noexcept {
  return link_->Answer(result, [](SplitterAccess&) { return FALSE; });
}

STDMETHODIMP SplitterProvider::get_Maximum(double* result) noexcept {
  return link_->Answer(result,
                       [](SplitterAccess& access) { return RangeOf(access.Window()).greatest; });
}

STDMETHODIMP SplitterProvider::get_Minimum(double* result) noexcept {
  return link_->Answer(result,
                       [](SplitterAccess& access) { return RangeOf(access.Window()).least; });
}

// One key.
STDMETHODIMP SplitterProvider::get_LargeChange(double* result) noexcept {
  return get_SmallChange(result);
}

STDMETHODIMP SplitterProvider::get_SmallChange(double* result) noexcept {
  return link_->Answer(result, [](SplitterAccess& access) {
    return Dpi::Of(access.Window()).ToPixels(kSplitterStep);
  });
}

}  // namespace pricedown::windows
