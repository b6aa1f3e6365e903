// The stand-in suite's state and its own statements on the company, sent through the same
// connection as the library's so that they also run on a real server.
#include "workbench/suite/suite_state.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/company/database_error.h"
#include "workbench/company/schema.h"

namespace workbench {

using pricedown::AutomationError;
using pricedown::Concatenate;
using pricedown::NumberText;
using pricedown::Value;

namespace {

constexpr std::u16string_view kConnectionSource = u"ZEPConnection.AppConnection";

std::optional<std::int64_t> FirstInteger(const ResultSet& result) {
  if (result.RowCount() == 0 || result.ColumnCount() == 0) return std::nullopt;
  const Cell& cell = result.At(0, 0);
  if (cell.Kind() == CellKind::Integer) return cell.Integer();
  // A server may keep whole numbers as DECIMAL.
  if (cell.Kind() == CellKind::Number) return static_cast<std::int64_t>(cell.Number());
  return std::nullopt;
}

[[noreturn]] void ThrowNoCompany() {
  throw AutomationError(pricedown::ErrorNumber::Unspecified, u"没有打开公司数据库。",
                        std::u16string(kConnectionSource));
}

// A failure of the database reaches the suite's callers as an AutomationError.
template <class Use>
auto Translated(Use&& use) {
  try {
    return use();
  } catch (const DatabaseError& error) {
    throw AutomationError(pricedown::ErrorNumber::Unspecified, error.Message(),
                          std::u16string(kConnectionSource));
  } catch (const SchemaError& error) {
    throw AutomationError(pricedown::ErrorNumber::Unspecified, pricedown::FromUtf8(error.what()),
                          std::u16string(kConnectionSource));
  }
}

}  // namespace

template <class Use>
auto SuiteState::OnCompany(Use&& use) {
  if (company == nullptr) ThrowNoCompany();
  const std::shared_ptr<Connection> open = company;
  return Translated([&] { return use(*open); });
}

void SuiteState::Connect(std::u16string_view location) {
  connected.reset();
  connected = Translated([&] {
    std::unique_ptr<Connection> opened = OpenConnection(pricedown::ToUtf8(location), options);
    opened->RequireCompany();
    const std::u16string user = NumberText(userId);
    const ResultSet found =
        opened->Execute(Concatenate({u"SELECT FName FROM t_user WHERE FUserID=", user}));
    connectedHasUser = found.RowCount() > 0;
    return opened;
  });
}

void SuiteState::OpenConnected() {
  if (connected == nullptr) ThrowNoCompany();
  if (!connectedHasUser) userId = kFirstUser;
  company = std::move(connected);
  earlierUsers.clear();
}

ResultSet SuiteState::Execute(std::u16string_view statement) {
  return OnCompany([&](Connection& connection) { return connection.Execute(statement); });
}

void SuiteState::Begin() {
  OnCompany([](Connection& connection) { connection.Begin(); });
}

void SuiteState::Commit() {
  OnCompany([](Connection& connection) { connection.Commit(); });
}

void SuiteState::Rollback() noexcept {
  if (company != nullptr) company->Rollback();
}

std::u16string SuiteState::Literal(std::u16string_view text) {
  std::u16string literal = u"'";
  for (const char16_t unit : text) {
    literal += unit;
    if (unit == u'\'') literal += unit;
  }
  return literal += u'\'';
}

Value SuiteState::Profile(std::u16string_view category, std::u16string_view key) {
  const ResultSet result =
      Execute(Concatenate({u"SELECT FValue FROM t_systemprofile WHERE FCategory=",
                           Literal(category), u" AND FKey=", Literal(key)}));
  if (result.RowCount() == 0 || result.At(0, 0).IsNull()) return pricedown::Null{};
  return result.At(0, 0).Text();
}

void SuiteState::SetProfile(std::u16string_view category, std::u16string_view key,
                            std::u16string_view value) {
  Execute(Concatenate({u"DELETE FROM t_systemprofile WHERE FCategory=", Literal(category),
                       u" AND FKey=", Literal(key),
                       u" INSERT INTO t_systemprofile(FCategory,FKey,FValue)VALUES(",
                       Literal(category), u",", Literal(key), u",", Literal(value), u")"}));
}

std::int32_t SuiteState::RightsMask(std::int32_t objectType, std::int32_t objectNumber) {
  const ResultSet result =
      Execute(Concatenate({u"SELECT FAccessMask FROM t_UserRight WHERE FUserID=",
                           NumberText(userId), u" AND FObjectType=", NumberText(objectType),
                           u" AND FObjectID=", NumberText(objectNumber)}));
  return static_cast<std::int32_t>(FirstInteger(result).value_or(0));
}

void SuiteState::SetRightsMask(std::int32_t objectType, std::int32_t objectNumber,
                               std::int32_t mask) {
  const std::u16string user = NumberText(userId);
  const std::u16string type = NumberText(objectType);
  const std::u16string number = NumberText(objectNumber);
  Execute(
      Concatenate({u"DELETE FROM t_UserRight WHERE FUserID=", user, u" AND FObjectType=", type,
                   u" AND FObjectID=", number,
                   u" INSERT INTO t_UserRight(FUserID,FObjectType,FObjectID,FAccessMask)VALUES(",
                   user, u",", type, u",", number, u",", NumberText(mask), u")"}));
}

}  // namespace workbench
