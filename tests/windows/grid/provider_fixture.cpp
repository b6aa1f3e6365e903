#include "tests/windows/grid/provider_fixture.h"

#include "platform/text.h"
#include "windows/com/bstr.h"
#include "windows/com/variant.h"

namespace pricedown::testing {

Element GridProviderTest::Row(std::int32_t row) const {
  windows::Variant id;
  id.put()->bstrVal = windows::Bstr(FromUtf8("row" + std::to_string(row))).release();
  id.share()->vt = VT_BSTR;
  Element found;
  EXPECT_EQ(RootPattern<IItemContainerProvider>(UIA_ItemContainerPatternId)
                ->FindItemByProperty(nullptr, UIA_AutomationIdPropertyId, id.get(), found.put()),
            S_OK);
  return found;
}

Element GridProviderTest::Neighbour(const Element& element, NavigateDirection direction) {
  ComPtr<IRawElementProviderFragment> neighbour;
  EXPECT_EQ(element.As<IRawElementProviderFragment>()->Navigate(direction, neighbour.put()), S_OK);
  return neighbour.As<IRawElementProviderSimple>();
}

std::string GridProviderTest::IdOfNeighbour(const Element& element,
                                            NavigateDirection direction) const {
  const Element neighbour = Neighbour(element, direction);
  if (!neighbour) return "none";
  return neighbour.get() == root_.get() ? "root" : Id(neighbour);
}

std::vector<std::string> GridProviderTest::IdsIn(const windows::SafeArray& array) {
  std::vector<std::string> ids;
  LONG last = -1;
  if (!array || FAILED(SafeArrayGetUBound(array.get(), 1, &last))) return {"no array"};
  for (LONG i = 0; i <= last; ++i) {
    ComPtr<IUnknown> element;
    EXPECT_EQ(SafeArrayGetElement(array.get(), &i, element.put()), S_OK);
    ids.push_back(Id(element.As<IRawElementProviderSimple>()));
  }
  return ids;
}

std::string GridProviderTest::ValueOf(const Element& cell) {
  windows::Bstr text;
  EXPECT_EQ(PatternOf<IValueProvider>(cell, UIA_ValuePatternId)->get_Value(text.put()), S_OK);
  return Utf8(text.Text());
}

}  // namespace pricedown::testing
