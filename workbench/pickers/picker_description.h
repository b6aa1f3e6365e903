// What differs between the account picker and the item picker: table, titles and texts.
#pragma once

#include <span>
#include <string_view>

#include "workbench/pickers/candidate_table.h"

namespace workbench {

struct PickerColumn {
  std::u16string_view title;
  int width;  // pixels at 96 dpi; the last column fills the rest
};

struct PickerDescription {
  const CandidateTable& table;
  std::u16string_view title;
  std::span<const PickerColumn> columns;
  std::u16string_view cue;      // in the empty search field
  std::u16string_view unit;     // after a number of rows
  std::u16string_view nothing;  // when no row is found
  int width;                    // of the window at first, pixels at 96 dpi
  int height;
};

const PickerDescription& AccountPicker();
const PickerDescription& ItemPicker();

}  // namespace workbench
