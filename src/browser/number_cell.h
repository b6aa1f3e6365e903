// The rules of a cell that accepts numbers: at most two decimals, up to the cell's bound,
// full-width digits and points like the plain ones, and the keys that end the typing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/key.h"

namespace pricedown {

// Whether the text is such a number or the beginning of one. Empty is.
bool MayBecomeCellNumber(std::u16string_view text, double upperBound);
// The same for a text with `inserted` in place of the selected units `from` to `to`.
bool MayInsert(std::u16string text, std::size_t from, std::size_t to, std::u16string_view inserted,
               double upperBound);
// A full-width digit or point, as Chinese input methods type it, as the plain one of a number; the
// Chinese full stop is the same key. Any other character as it is.
char16_t CellCharacter(char16_t typed);
std::u16string CellCharacters(std::u16string_view text);
// Whether typing that character on the cell starts a number.
bool StartsCellNumber(char16_t character);

// The number with its two decimals, empty for the empty text; nothing when it is no number or above
// the bound.
std::optional<std::u16string> CellNumber(std::u16string_view text, double upperBound);

// What a key does on a cell that accepts a number, before anything is typed.
enum class CellStart {
  None,
  Edit,   // begins editing the number that is there
  Clear,  // empties the selected numbers
};
CellStart CellStartOf(const KeyPress& press);

// What a key does while a number is typed.
enum class CellKey {
  None,           // edits the text
  Cancel,         // keeps the old number
  Accept,         // only a number; moves to the next row
  AcceptAndMove,  // the key then works on the grid
  Command,        // accepts, then the command of the key runs
};
CellKey CellKeyOf(Key key);

}  // namespace pricedown
