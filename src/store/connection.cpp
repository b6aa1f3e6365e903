// Creates the suite's connection object and executes statements.
#include "store/connection.h"

namespace pricedown {

Connection::Connection(ObjectFactory& factory)
    : object_(factory.Create(u"ZEPConnection.AppConnection")) {}

Recordset Connection::Execute(std::u16string_view statement) {
  const Value answer = object_->Call(u"Execute", {statement});
  if (!answer.Is(Value::Kind::Object)) return {};
  return Recordset(answer.Object());
}

}  // namespace pricedown
