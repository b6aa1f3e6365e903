// The suite's services on the open company, except lookups and translations.
#include "workbench/suite/services.h"

#include "platform/convert.h"
#include "platform/text.h"
#include "workbench/suite/calendar.h"
#include "workbench/suite/recordset.h"
#include "workbench/suite/result_rows.h"

namespace workbench {

using pricedown::Access;
using pricedown::Concatenate;
using pricedown::EqualsIgnoringCase;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::NumberText;
using pricedown::ObjectPtr;
using pricedown::ToInt32;
using pricedown::ToText;
using pricedown::Value;

Value AppConnection::Execute(std::u16string_view statement) {
  ResultSet result = suite_->Execute(statement);
  if (result.ColumnCount() == 0) return ObjectPtr(Recordset::Closed());
  return ObjectPtr(std::make_shared<Recordset>(std::make_unique<ResultRows>(std::move(result))));
}

std::span<const Member<AppConnection>> AppConnection::Members() {
  static constexpr Member<AppConnection> kMembers[] = {
      {u"Execute", MemberKind::Method,
       [](AppConnection& connection, Access, std::span<Value> arguments) {
         return connection.Execute(ToText(arguments[0]));
       },
       1, 1},
  };
  return kMembers;
}

Value SystemProfile::GetProfile(std::u16string_view category, std::u16string_view key) {
  Value value = suite_->Profile(category, key);
  return value.IsNothing() ? Value() : value;
}

std::span<const Member<SystemProfile>> SystemProfile::Members() {
  static constexpr Member<SystemProfile> kMembers[] = {
      {u"GetProfile", MemberKind::Method,
       [](SystemProfile& profile, Access, std::span<Value> arguments) {
         return profile.GetProfile(ToText(arguments[1]), ToText(arguments[2]));
       },
       3, 3},
  };
  return kMembers;
}

std::int32_t AisInfo::PeriodCount() {
  const Value count = suite_->Profile(u"General", u"PeriodCount");
  return count.IsNothing() ? 12 : ToInt32(count);
}

Value AisInfo::PeriodDate(std::int32_t year, std::int32_t period) {
  return FirstDayOfPeriod(year, period, PeriodCount());
}

std::span<const Member<AisInfo>> AisInfo::Members() {
  static constexpr Member<AisInfo> kMembers[] = {
      {u"PropsString", MemberKind::GetPut,
       [](AisInfo& info, Access access, std::span<Value> arguments) {
         if (access == Access::Call) return Value(info.propsString);
         info.propsString = ToText(arguments[0]);
         return Value();
       }},
      {u"CBGetPeriodCount", MemberKind::Get,
       [](AisInfo& info, Access, std::span<Value>) { return Value(info.PeriodCount()); }},
      {u"GetPeriodDate", MemberKind::Method,
       [](AisInfo& info, Access, std::span<Value> arguments) {
         return info.PeriodDate(ToInt32(arguments[0].Resolved()), ToInt32(arguments[1].Resolved()));
       },
       2, 2},
  };
  return kMembers;
}

Value ShareProps::Property(std::u16string_view name) const {
  if (EqualsIgnoringCase(name, u"PropsString")) {
    return Concatenate({u"ConnectString={Workbench};UserName=", u"workbench", u";UserID=",
                        NumberText(suite_->userId), u";LANGUAGE=", suite_->language});
  }
  if (EqualsIgnoringCase(name, u"UserID")) return suite_->userId;
  return {};
}

std::span<const Member<ShareProps>> ShareProps::Members() {
  static constexpr Member<ShareProps> kMembers[] = {
      {u"GetProperty", MemberKind::Method,
       [](ShareProps& properties, Access, std::span<Value> arguments) {
         Value answer = properties.Property(ToText(arguments[0]));
         const bool known = !answer.IsNothing();
         if (arguments[1].Is(Value::Kind::Reference)) arguments[1].Target() = std::move(answer);
         return Value(known);
       },
       2, 2},
  };
  return kMembers;
}

std::span<const Member<GLData>> GLData::Members() {
  static constexpr Member<GLData> kMembers[] = {
      {u"AccessCheck", MemberKind::Method,
       [](GLData& data, Access, std::span<Value> arguments) {
         const std::int32_t mask = ToInt32(arguments[2].Resolved());
         const std::int32_t granted = data.Suite().RightsMask(ToInt32(arguments[0].Resolved()),
                                                              ToInt32(arguments[1].Resolved()));
         return Value((granted & mask) == mask);
       },
       3, 3},
  };
  return kMembers;
}

namespace {

std::u16string ProfileCondition(std::int32_t user, std::u16string_view application,
                                std::u16string_view section) {
  return Concatenate({u"FUserID=", NumberText(user), u" AND FApplication=",
                      SuiteState::Literal(application), u" AND FSection=",
                      SuiteState::Literal(section)});
}

}  // namespace

void UserProfile::Load(std::u16string_view application, std::u16string_view section) {
  const ResultSet rows =
      suite_->Execute(Concatenate({u"SELECT FKey,FValue FROM t_UserProfile WHERE ",
                                   ProfileCondition(suite_->userId, application, section)}));
  values_ = std::make_shared<Dictionary>();
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Cell& value = rows.At(row, 1);
    values_->Set(rows.At(row, 0).Text(), value.IsNull() ? Value() : Value(value.Text()));
  }
}

void UserProfile::Save(std::u16string_view application, std::u16string_view section) {
  std::u16string statement = Concatenate({u"DELETE FROM t_UserProfile WHERE ",
                                          ProfileCondition(suite_->userId, application, section)});
  for (const auto& [key, value] : values_->All()) {
    statement += Concatenate(
        {u" INSERT INTO t_UserProfile(FUserID,FApplication,FSection,FKey,FValue)VALUES(",
         NumberText(suite_->userId), u",", SuiteState::Literal(application), u",",
         SuiteState::Literal(section), u",", SuiteState::Literal(key), u",",
         SuiteState::Literal(ToText(value)), u")"});
  }
  suite_->Execute(statement);
}

std::span<const Member<UserProfile>> UserProfile::Members() {
  static constexpr Member<UserProfile> kMembers[] = {
      {u"Load", MemberKind::Method,
       [](UserProfile& profile, Access, std::span<Value> arguments) {
         profile.Load(ToText(arguments[0]), ToText(arguments[1]));
         return Value(true);
       },
       2, 2},
      {u"Dictionary", MemberKind::Get,
       [](UserProfile& profile, Access, std::span<Value>) {
         return Value(ObjectPtr(profile.Values()));
       }},
      {u"Save", MemberKind::Method,
       [](UserProfile& profile, Access, std::span<Value> arguments) {
         profile.Save(ToText(arguments[0]), ToText(arguments[1]));
         return Value(true);
       },
       2, 2},
  };
  return kMembers;
}

}  // namespace workbench
