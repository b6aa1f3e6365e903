// `ICList`: the rows of the item grid as texts, read from a recordset one after the other.
// It has no position of its own: the recordset's is shared with whoever else reads it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/recordset.h"

namespace pricedown {

class ICList {
 public:
  explicit ICList(ObjectFactory& factory) : factory_(factory) {}

  void SetRows(Recordset rows) { rows_ = std::move(rows); }

  // Fills rows and titles from a new object of the ProgID `serverName`. Always false.
  // Throws AutomationError.
  bool Refresh(std::u16string_view dataSource, std::u16string_view serverName,
               std::u16string_view tableId);

  // The column titles, each followed by "|" whatever the sign asked for.
  std::u16string FieldTitle(std::u16string_view sign = {}) const;

  // Code, name and model of the recordset's current row, each followed by `sign`, and a move to
  // the next row whatever the index asked for; empty at the end. Throws AutomationError.
  std::u16string FieldData(std::int32_t index, std::u16string_view sign = {});

 private:
  ObjectFactory& factory_;
  Recordset titles_;
  Recordset rows_;
};

}  // namespace pricedown
