// The suite's shared properties object, created for each query.
#include "env/suite_properties.h"

#include "platform/convert.h"
#include "platform/skip.h"
#include "platform/text.h"

namespace pricedown {

Value SharedProperty(ObjectFactory& factory, std::u16string_view name) {
  const ObjectPtr properties = factory.Create(u"ZEPPropsMgr.ShareProps");
  Value answer;
  Value result = properties->Call(u"GetProperty", {name, Value::ByReference(answer)});
  // Suites return the value in the argument or as the result.
  return answer.Is(Value::Kind::Empty) ? result : answer;
}

std::u16string PropertiesString(ObjectFactory& factory) {
  const Value value = SharedProperty(factory, u"PropsString");
  if (!value.Is(Value::Kind::Object)) return ToText(value);
  // The text of an object is that of its default member.
  return ToText(RequireObject(value, u"PropsString")->Get(u""));
}

std::u16string PropertyEntry(std::u16string_view properties, std::u16string_view name) {
  while (!properties.empty()) {
    const std::size_t end = properties.find(u';');
    const std::u16string_view entry = properties.substr(0, end);
    if (entry.size() > name.size() && entry[name.size()] == u'=' &&
        EqualsIgnoringCase(entry.substr(0, name.size()), name)) {
      return std::u16string(entry.substr(name.size() + 1));
    }
    if (end == std::u16string_view::npos) break;
    properties.remove_prefix(end + 1);
  }
  return {};
}

std::u16string SuiteLanguage(ObjectFactory& factory) {
  std::u16string language;
  SkipFailing([&] { language = PropertyEntry(PropertiesString(factory), u"LANGUAGE"); });
  return language.empty() ? std::u16string(kBuiltInLanguage) : language;
}

std::int32_t UserNumber(ObjectFactory& factory) {
  return ToInt32(SharedProperty(factory, u"UserID"));
}

}  // namespace pricedown
