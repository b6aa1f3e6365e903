// The switches of the stand-in suite. All but user, language and queues are stored in the company.
#include "workbench/suite/settings.h"

#include <algorithm>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/company/location.h"
#include "workbench/recording/replay.h"
#include "workbench/suite/result_rows.h"

namespace workbench {

using pricedown::Access;
using pricedown::Concatenate;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::NumberText;
using pricedown::ToInt32;
using pricedown::ToText;
using pricedown::Value;

namespace {

std::u16string VoucherCondition(SuiteState& suite) {
  return Concatenate({u"FYear='", ToText(suite.Profile(u"IC", u"CurrentYear")), u"' and FPeriod='",
                      ToText(suite.Profile(u"IC", u"CurrentPeriod")),
                      u"' and FTranType=820 and FInternalInd='Industry'"});
}

struct ProfileName {
  std::u16string_view category;
  std::u16string_view key;
};
constexpr ProfileName kItemClassType{u"IC", u"PriceDownPrepare"};
constexpr ProfileName kUseShortNumber{u"IC", u"UseShortNumber"};
constexpr ProfileName kCurrentYear{u"IC", u"CurrentYear"};
constexpr ProfileName kCurrentPeriod{u"IC", u"CurrentPeriod"};

template <const ProfileName& Name>
Value NamedProfile(Settings& settings, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return settings.Suite().Profile(Name.category, Name.key);
  settings.Suite().SetProfile(Name.category, Name.key, ToText(arguments[0]));
  return {};
}

Value Timeout(std::chrono::seconds& timeout, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return static_cast<std::int32_t>(timeout.count());
  const std::int32_t seconds = ToInt32(arguments[0].Resolved());
  if (seconds < 0) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument,
                                     u"超时秒数不能为负数。", u"ZEPWorkbench.Settings");
  }
  timeout = std::chrono::seconds(seconds);
  return {};
}

std::vector<std::int32_t> ParseIds(std::u16string_view text) {
  std::vector<std::int32_t> ids;
  while (!text.empty()) {
    const auto comma = text.find(u',');
    ids.push_back(ToInt32(Value(text.substr(0, comma))));
    text = comma == std::u16string_view::npos ? std::u16string_view() : text.substr(comma + 1);
  }
  return ids;
}

}  // namespace

bool Settings::VoucherPresent() {
  return suite_
             ->Execute(Concatenate(
                 {u"select top 1 FVoucherID from t_voucher where ", VoucherCondition(*suite_)}))
             .RowCount() > 0;
}

void Settings::SetVoucherPresent(bool present) {
  if (present == VoucherPresent()) return;
  if (!present) {
    suite_->Execute(Concatenate({u"delete from t_voucher where ", VoucherCondition(*suite_)}));
    return;
  }
  suite_->Execute(Concatenate(
      {u"INSERT INTO t_voucher(FYear,FPeriod,FTranType,FInternalInd,FExplanation)VALUES(",
       ToText(suite_->Profile(u"IC", u"CurrentYear")), u",",
       ToText(suite_->Profile(u"IC", u"CurrentPeriod")), u",820,'Industry','计提存货跌价准备')"}));
}

void Settings::Connect(std::u16string_view company) {
  suite_->Connect(company);
  connectedLocation_ = pricedown::FromUtf8(ShownLocation(pricedown::ToUtf8(company)));
}

void Settings::OpenConnected() {
  suite_->OpenConnected();
  location = std::move(connectedLocation_);
}

void Settings::SetUser(std::int32_t id) {
  // A previous user is restored even when the server does not respond.
  if (id == suite_->userId) return;
  const bool isKnown =
      suite_->earlierUsers.contains(id) ||
      suite_->Execute(Concatenate({u"SELECT FName FROM t_user WHERE FUserID=", NumberText(id)}))
              .RowCount() > 0;
  if (!isKnown) {
    throw pricedown::AutomationError(
        pricedown::ErrorNumber::InvalidArgument,
        Concatenate({u"公司中没有编号为 ", NumberText(id), u" 的用户。"}),
        u"ZEPWorkbench.Settings");
  }
  suite_->earlierUsers.insert(std::exchange(suite_->userId, id));
}

QueuedPickers& Settings::Queue() {
  auto* queue = dynamic_cast<QueuedPickers*>(suite_->pickers.get());
  if (queue == nullptr) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument,
                                     u"选择由用户在窗口中进行。", u"ZEPWorkbench.Settings");
  }
  return *queue;
}

const Replay& Settings::CurrentReplay() {
  if (suite_->replay == nullptr) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::ObjectNotSet, u"没有回放记录。",
                                     u"ZEPWorkbench.Settings");
  }
  return *suite_->replay;
}

std::u16string Settings::Users() {
  const ResultRows rows(suite_->Execute(u"SELECT FUserID,FName FROM t_user ORDER BY FUserID"));
  std::u16string users;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    std::u16string name = ToText(rows.Get(row, 1));
    std::replace(name.begin(), name.end(), u'\n', u' ');
    if (row > 0) users += u'\n';
    users += Concatenate({ToText(rows.Get(row, 0)), u"=", name});
  }
  return users;
}

Value Settings::Query(std::u16string_view statement) {
  const ResultRows rows(suite_->Execute(statement));
  if (rows.RowCount() == 0 || rows.Fields().empty()) return {};
  return rows.Get(0, 0);
}

// NOLINTNEXTLINE(readability-function-size) A table.
std::span<const Member<Settings>> Settings::Members() {
  static constexpr Member<Settings> kMembers[] = {
      {u"Open", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         settings.Connect(ToText(arguments[0]));
         settings.OpenConnected();
         return Value(true);
       },
       1, 1},
      {u"Connect", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         settings.Connect(ToText(arguments[0]));
         return Value();
       },
       1, 1},
      {u"OpenConnected", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value>) {
         settings.OpenConnected();
         return Value();
       }},
      {u"Begin", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value>) {
         settings.Suite().Begin();
         return Value();
       }},
      {u"Commit", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value>) {
         settings.Suite().Commit();
         return Value();
       }},
      {u"Rollback", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value>) {
         settings.Suite().Rollback();
         return Value();
       }},
      {u"LoginTimeout", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         return Timeout(settings.Suite().options.loginTimeout, access, arguments);
       }},
      {u"StatementTimeout", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         return Timeout(settings.Suite().options.statementTimeout, access, arguments);
       }},
      {u"Close", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value>) {
         settings.Suite().company.reset();
         settings.Suite().connected.reset();
         settings.Suite().earlierUsers.clear();
         settings.location.clear();
         return Value();
       }},
      {u"Location", MemberKind::Get,
       [](Settings& settings, Access, std::span<Value>) { return Value(settings.location); }},
      {u"UserID", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         if (access == Access::Call) return Value(settings.Suite().userId);
         settings.SetUser(ToInt32(arguments[0].Resolved()));
         return Value();
       }},
      {u"Language", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         if (access == Access::Call) return Value(settings.Suite().language);
         settings.Suite().language = ToText(arguments[0]);
         return Value();
       }},
      {u"Profile", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         const std::u16string category = ToText(arguments[0]);
         const std::u16string key = ToText(arguments[1]);
         if (access == Access::Call) return settings.Suite().Profile(category, key);
         settings.Suite().SetProfile(category, key, ToText(arguments[2]));
         return Value();
       },
       2, 2},
      {u"ItemClassType", MemberKind::GetPut, NamedProfile<kItemClassType>},
      {u"UseShortNumber", MemberKind::GetPut, NamedProfile<kUseShortNumber>},
      {u"CurrentYear", MemberKind::GetPut, NamedProfile<kCurrentYear>},
      {u"CurrentPeriod", MemberKind::GetPut, NamedProfile<kCurrentPeriod>},
      {u"Rights", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         const std::int32_t type = ToInt32(arguments[0].Resolved());
         const std::int32_t number = ToInt32(arguments[1].Resolved());
         if (access == Access::Call) return Value(settings.Suite().RightsMask(type, number));
         settings.Suite().SetRightsMask(type, number, ToInt32(arguments[2].Resolved()));
         return Value();
       },
       2, 2},
      {u"VoucherPresent", MemberKind::GetPut,
       [](Settings& settings, Access access, std::span<Value> arguments) {
         if (access == Access::Call) return Value(settings.VoucherPresent());
         settings.SetVoucherPresent(pricedown::ToBoolean(arguments[0].Resolved()));
         return Value();
       }},
      {u"QueueAccount", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         settings.Queue().accounts.push_back(ToText(arguments[0]));
         return Value();
       },
       1, 1},
      {u"QueueItems", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         settings.Queue().items.push_back(ParseIds(ToText(arguments[0])));
         return Value();
       },
       1, 1},
      {u"Query", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         return settings.Query(ToText(arguments[0]));
       },
       1, 1},
      {u"Replay", MemberKind::Method,
       [](Settings& settings, Access, std::span<Value> arguments) {
         const std::u16string file = ToText(arguments[0]);
         settings.Suite().replay = file.empty() ? nullptr : Replay::Open(file);
         return Value();
       },
       1, 1},
      {u"ReplayDifference", MemberKind::Get,
       [](Settings& settings, Access, std::span<Value>) {
         return Value(settings.CurrentReplay().Difference());
       }},
      {u"ReplayCallsLeft", MemberKind::Get,
       [](Settings& settings, Access, std::span<Value>) {
         return Value(static_cast<std::int32_t>(settings.CurrentReplay().CallsLeft()));
       }},
      {u"Users", MemberKind::Get,
       [](Settings& settings, Access, std::span<Value>) { return Value(settings.Users()); }},
  };
  return kMembers;
}

}  // namespace workbench
