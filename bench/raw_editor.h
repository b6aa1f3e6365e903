// The calls to the suite without which no client opens or saves a class, made with nothing around
// them: no failure is skipped, nothing is checked or shown.
#pragma once

#include <string>
#include <string_view>

#include "platform/recordset.h"

namespace bench {

// A class opened for editing: its items, a copy of them, a copy of that, and the list's texts. The
// copies commit row by row.
void OpenMembers(pricedown::ObjectFactory& factory, std::u16string_view classNumber);

// Reads what a save writes of each row, from the first one on.
void ReadSavedColumns(const pricedown::Recordset& members);

// A save: the checks' statements and the two accounts, a copy committed at once, the columns read,
// and the finished text sent.
void SaveMembers(pricedown::ObjectFactory& factory, const pricedown::Recordset& members,
                 std::u16string_view classNumber, std::u16string_view account,
                 const std::u16string& text);

}  // namespace bench
