// The exact text of every statement that the library sends to the company database.
// Values are put in as they are: an embedded quote is not doubled and breaks the statement; only
// the key of UserSetting arrives quoted.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pricedown::statements {

// The value of the profile that says whether provisions are kept by item class.
std::u16string ProvisionMode();

// A number that is kept per user. Requires: `quotedKey` is a literal (env/quoting.h).
std::u16string UserSetting(std::int32_t userNumber, std::u16string_view quotedKey);

// Number and name of every class row, in number order.
std::u16string ClassTree();

// The items of one class with the class's columns, in code order.
std::u16string ItemsOfClass(std::u16string_view classNumber);

// All items, in code order.
std::u16string AllItems();

// A row when the provision voucher of the period exists.
std::u16string ProvisionVoucher(std::int32_t year, std::int32_t period);

// A row when an item of the class has provision amounts before the period.
std::u16string ClassHistory(std::int32_t year, std::int32_t period,
                            std::u16string_view classNumber);

// A row when the item has provision amounts before the period.
std::u16string ItemHistory(std::int32_t year, std::int32_t period, std::u16string_view itemCode);

// A row when the item has provision amounts in the period.
std::u16string ItemCurrentAmounts(std::int32_t year, std::int32_t period,
                                  std::u16string_view itemCode);

// Deletes the period's provision rows of a class's items.
std::u16string DeleteClassProvision(std::int32_t year, std::int32_t period,
                                    std::u16string_view classNumber);

// How the delete for an item begins; the server reads both alike but the texts are fixed.
enum class DeleteForm { NoAlias, TwoBlanks };

// Deletes the period's provision rows of an item.
std::u16string DeleteItemProvision(std::int32_t year, std::int32_t period,
                                   std::u16string_view itemCode, DeleteForm form);

// Deletes a class.
std::u16string DeleteClass(std::u16string_view classNumber);

// The numbers of all accounts.
std::u16string AccountNumbers();

// The class numbers of all rows, or of all rows of other classes.
std::u16string ClassNumbers();
std::u16string OtherClassNumbers(std::u16string_view classNumber);

// The id of the account with that number.
std::u16string AccountId(std::u16string_view accountNumber);

// The items of all other classes; an empty number stands for a new class.
std::u16string ItemsOfOtherClasses(std::u16string_view classNumber);

// The beginning of a save: deletes the rows under the opening number.
std::u16string SaveDelete(std::u16string_view openingNumber);

// The class's columns of a row of a save, all values in their default text.
struct ClassColumns {
  std::u16string_view classNumber;
  std::u16string_view className;
  std::u16string_view lossAccountId;
  std::u16string_view lossAccountNumber;
  std::u16string_view reserveAccountId;
  std::u16string_view reserveAccountNumber;
  std::u16string_view percentage;
};
// The end of a row of a save after the item's id: the same for all rows with these values.
std::u16string SaveInsertEnd(const ClassColumns& columns);
// Appends one row of a save.
void AppendSaveInsert(std::u16string& text, std::u16string_view itemId, std::u16string_view end);

}  // namespace pricedown::statements
