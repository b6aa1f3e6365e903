// The company database: one suite connection object per command.
#pragma once

#include <string_view>

#include "platform/recordset.h"

namespace pricedown {

// Creates a `ZEPConnection.AppConnection`, and releases it at its end.
class Connection {
 public:
  // Throws AutomationError when the suite cannot make the object.
  explicit Connection(ObjectFactory& factory);

  // Sends the text whole. A statement without rows may return no recordset.
  // Throws AutomationError with the database's own text.
  Recordset Execute(std::u16string_view statement);
  // The same for a statement that writes; the suite's result is dropped.
  void Run(std::u16string_view statement);

 private:
  ObjectPtr object_;
};

}  // namespace pricedown
