// The suite's per-user profile. Reading falls back on any error; saving throws.
#include "env/user_settings.h"

#include "platform/convert.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

ObjectPtr LoadProfile(ObjectFactory& factory, std::u16string_view application) {
  ObjectPtr profile = factory.Create(u"ZEPEBCBASE.UserProfile");
  profile->Call(u"Load", {application, kSettingsSection});
  return profile;
}

ObjectPtr DictionaryOf(AutomationObject& profile) {
  return RequireObject(profile.Get(u"Dictionary"), u"Dictionary");
}

}  // namespace

Value ReadUserSetting(ObjectFactory& factory, std::u16string_view application,
                      std::u16string_view key, const Value& fallback) {
  Value setting = fallback;
  SkipFailing([&] {
    const ObjectPtr profile = LoadProfile(factory, application);
    const Value value = DictionaryOf(*profile)->Call(u"GetValue", {key, fallback});
    if (fallback.Is(Value::Kind::Boolean)) {
      setting = ToBoolean(value);
    } else {
      setting = ToText(value);
    }
  });
  return setting;
}

void SaveUserSetting(ObjectFactory& factory, std::u16string_view application,
                     std::u16string_view key, const Value& value) {
  const ObjectPtr profile = LoadProfile(factory, application);
  DictionaryOf(*profile)->PutIndexed(u"", key, value);
  profile->Call(u"Save", {application, kSettingsSection});
}

}  // namespace pricedown
