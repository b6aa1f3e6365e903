// Makes values and arrays of automation, and throws when there is no memory for them.
#include "windows/base/provider_values.h"

#include <new>

#include "windows/base/rectangles.h"
#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"

namespace pricedown::windows {
namespace {

SafeArray NewVector(VARTYPE type, std::size_t size) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(type, 0, static_cast<ULONG>(size)));
  if (!array) throw std::bad_alloc();
  return array;
}

void PutElement(const SafeArray& array, std::size_t index, void* element) {
  LONG position = static_cast<LONG>(index);
  if (FAILED(SafeArrayPutElement(array.get(), &position, element))) throw std::bad_alloc();
}

}  // namespace

VARIANT PropertyText(std::u16string_view text) {
  VARIANT value{};
  value.bstrVal = Bstr(text).release();
  value.vt = VT_BSTR;
  return value;
}

VARIANT PropertyNumber(int number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

VARIANT PropertyNumber(double number) {
  VARIANT value{};
  value.vt = VT_R8;
  value.dblVal = number;
  return value;
}

VARIANT PropertyFlag(bool flag) {
  VARIANT value{};
  value.vt = VT_BOOL;
  value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  return value;
}

SAFEARRAY* ElementArray(const std::vector<ComPtr<IRawElementProviderSimple>>& elements) {
  SafeArray array = NewVector(VT_UNKNOWN, elements.size());
  for (std::size_t i = 0; i < elements.size(); ++i) PutElement(array, i, elements[i].get());
  return array.release();
}

SAFEARRAY* RuntimeIdArray(std::initializer_list<int> id) {
  SafeArray array = NewVector(VT_I4, id.size() + 1);
  int first = UiaAppendRuntimeId;
  PutElement(array, 0, &first);
  std::size_t index = 1;
  for (int part : id) PutElement(array, index++, &part);
  return array.release();
}

UiaRect ScreenArea(HWND window, const RECT& area) {
  if (IsRectEmpty(&area) != FALSE) return {};
  RECT place = area;
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
  return {static_cast<double>(place.left), static_cast<double>(place.top),
          static_cast<double>(WidthOf(place)), static_cast<double>(HeightOf(place))};
}

bool AcceptsInput(HWND window) {
  const HWND desktop = GetDesktopWindow();
  for (HWND outer = window; outer != nullptr && outer != desktop;
       outer = GetAncestor(outer, GA_PARENT)) {
    if (IsWindowEnabled(outer) == FALSE) return false;
  }
  return true;
}

}  // namespace pricedown::windows
