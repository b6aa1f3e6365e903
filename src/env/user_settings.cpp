// The suite's per-user profile and the company's per-user numbers. Only reading the profile falls
// back on any error.
#include "env/user_settings.h"

#include "env/quoting.h"
#include "platform/convert.h"
#include "platform/skip.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

ObjectPtr LoadProfile(ObjectFactory& factory, std::u16string_view application) {
  ObjectPtr profile = factory.Create(u"ZEPEBCBASE.UserProfile");
  profile->CallForEffect(u"Load", {application, kSettingsSection});
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
  profile->CallForEffect(u"Save", {application, kSettingsSection});
}

double ReadUserNumber(ObjectFactory& factory, std::int32_t userNumber, std::u16string_view key) {
  Connection connection(factory);
  const Recordset settings =
      connection.Execute(statements::UserSetting(userNumber, QuoteText(key, false, true)));
  if (settings.RecordCount() <= 0) return 0;
  return LeadingNumber(settings.Field(columns::kValue));
}

}  // namespace pricedown
