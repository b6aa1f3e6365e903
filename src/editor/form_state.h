// What one showing of the item class form keeps, and what the parts of the form are given.
// It decides nothing; the form owns the one instance.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "editor/form_view.h"
#include "editor/ic_list.h"
#include "env/environment.h"
#include "platform/recordset.h"

namespace pricedown {

// The mode that adds a new class; any other edits.
inline constexpr std::int16_t kAddMode = 1;

// The class's own attributes, as they stand in the fields or in a row.
struct ClassHeader {
  std::u16string number;
  std::u16string name;
  std::u16string lossAccount;
  std::u16string reserveAccount;
  double percentage = 0;
  bool operator==(const ClassHeader&) const = default;
};

// The header in the fields, the percentage as the leading number of its text.
ClassHeader ReadHeader(const ItemClassFormView& view);

struct FormState {
  // Set by the browser. Nothing reads year and period: the guard reads them afresh.
  std::int16_t mode = 0;
  std::u16string openingNumber;  // empty when adding; a save does not change it
  std::int32_t year = 0;
  std::int32_t period = 0;
  Recordset memberList;
  Recordset secondRecordSet;

  // Items of all other classes, refilled by every AddItem.
  Recordset otherClasses;
  // The member list as the last save wrote it; none before the first save.
  Recordset keptCopy;
  std::unique_ptr<ICList> listSource;
  // The header as loaded or as last saved.
  ClassHeader savedValues;
  std::int32_t lossAccountId = 0;
  std::int32_t reserveAccountId = 0;
  bool loaded = false;
  bool saved = false;
  bool unchanged = true;
  bool textsUnchanged = false;
  // A save failed while it put the header into the rows: only some of them carry it.
  bool headersMixed = false;

  bool IsAdding() const { return mode == kAddMode; }
};

// What every part of the form works on.
struct FormParts {
  Environment& environment;
  ItemClassFormView& view;
  MemberListView& grid;
  FormState state;
};

}  // namespace pricedown
