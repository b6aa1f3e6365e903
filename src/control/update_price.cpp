// Reads the provision mode from the company's profile.
#include "control/update_price.h"

#include "platform/convert.h"
#include "platform/skip.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {

void UpdatePrice::ReadItemClassType() {
  itemClassType_ = 0;
  SkipFailing([&] {
    const Recordset answer = Connection(factory_).Execute(statements::ProvisionMode());
    if (answer.AtEnd()) return;
    itemClassType_ = RoundToInt16(LeadingNumber(answer.Field(columns::kValue)));
  });
}

}  // namespace pricedown
