// Creates the suite's connection object and executes statements.
#include "store/connection.h"

#include <array>

namespace pricedown {

namespace {

constexpr std::u16string_view kExecute = u"Execute";

}  // namespace

Connection::Connection(ObjectFactory& factory)
    : object_(factory.Create(u"ZEPConnection.AppConnection")) {}

void Connection::Run(std::u16string_view statement) {
  std::array<Value, 1> arguments{statement};
  object_->Perform(object_->Find(kExecute), arguments);
}

Recordset Connection::Execute(std::u16string_view statement) {
  const Value answer = object_->Call(kExecute, {statement});
  if (!answer.Is(Value::Kind::Object)) return {};
  return Recordset(answer.Object());
}

}  // namespace pricedown
