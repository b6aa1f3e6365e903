#include "tests/windows/base/recording_automation.h"

#include <utility>

#include "platform/convert.h"
#include "tests/support/utf8.h"
#include "windows/com/bstr.h"
#include "windows/com/variant.h"

namespace pricedown::testing {
namespace {

std::string TextOfValue(const VARIANT& value) {
  switch (value.vt) {
    case VT_BSTR:
      return Utf8(windows::FromBstr(value.bstrVal));
    case VT_BOOL:
      return value.boolVal == VARIANT_FALSE ? "false" : "true";
    case VT_I4:
      return std::to_string(value.lVal);
    case VT_R8:
      return Utf8(NumberText(value.dblVal));
    default:
      return {};
  }
}

std::string EventName(EVENTID event) {
  switch (event) {
    case UIA_AutomationFocusChangedEventId:
      return "focus";
    case UIA_SelectionItem_ElementSelectedEventId:
      return "selected";
    case UIA_Selection_InvalidatedEventId:
      return "selection";
    default:
      return std::to_string(event);
  }
}

std::string PropertyName(PROPERTYID property) {
  switch (property) {
    case UIA_ValueValuePropertyId:
      return "value";
    case UIA_RangeValueValuePropertyId:
      return "range value";
    case UIA_ScrollVerticalScrollPercentPropertyId:
      return "vertical";
    case UIA_ScrollHorizontalScrollPercentPropertyId:
      return "horizontal";
    default:
      return std::to_string(property);
  }
}

std::string WithId(std::string event, IRawElementProviderSimple* provider) {
  const std::string id = PropertyOf(provider, UIA_AutomationIdPropertyId);
  return id.empty() ? event : event + " " + id;
}

}  // namespace

windows::ComPtr<IRawElementProviderSimple> RecordingAutomation::ProviderOf(HWND window) {
  SendMessageW(window, WM_GETOBJECT, 0, UiaRootObjectId);
  return std::move(returned_);
}

LRESULT RecordingAutomation::ReturnProvider(HWND, WPARAM, LPARAM,
                                            IRawElementProviderSimple* provider) {
  if (provider == nullptr) log.emplace_back("return nothing");
  returned_ = windows::ComPtr<IRawElementProviderSimple>::Share(provider);
  return 1;
}

void RecordingAutomation::RaiseEvent(IRawElementProviderSimple* provider, EVENTID event) {
  log.push_back(WithId(EventName(event), provider));
  if (onEvent) onEvent();
}

void RecordingAutomation::RaisePropertyChanged(IRawElementProviderSimple* provider,
                                               PROPERTYID property, const VARIANT& value) {
  log.push_back(WithId(PropertyName(property), provider) + " = " + TextOfValue(value));
}

void RecordingAutomation::RaiseChildrenInvalidated(IRawElementProviderSimple* provider) {
  log.push_back(WithId("children", provider));
}

void RecordingAutomation::RaiseNotification(IRawElementProviderSimple* provider,
                                            std::u16string_view text) {
  log.push_back(WithId("speak", provider) + " = " + Utf8(text));
  if (onEvent) onEvent();
}

std::vector<std::string> RecordingAutomation::Spoken() const {
  std::vector<std::string> texts;
  for (const std::string& line : log) {
    if (line.starts_with("speak ")) texts.push_back(line.substr(line.find(" = ") + 3));
  }
  return texts;
}

void RecordingAutomation::Disconnect(IRawElementProviderSimple*) { log.emplace_back("disconnect"); }

std::string PropertyOf(IRawElementProviderSimple* provider, PROPERTYID property) {
  windows::Variant value;
  if (provider == nullptr || FAILED(provider->GetPropertyValue(property, value.put()))) return {};
  return TextOfValue(value.get());
}

}  // namespace pricedown::testing
