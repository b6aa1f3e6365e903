// The statement builders with any texts as values: the text holds them unchanged, and the
// server accepts or refuses it without harm. A quoted text always stays one literal.
#include "store/statements.h"

#include "env/quoting.h"
#include "tests/fuzz/company.h"

using namespace pricedown;
using namespace pricedown::fuzz;

namespace {

void RequireHolds(const std::u16string& statement, const std::u16string& value) {
  Require(statement.find(value) != std::u16string::npos, "values stand in the text as they are");
  IsAccepted(statement);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto year = input.ConsumeIntegral<std::int32_t>();
  const auto period = input.ConsumeIntegral<std::int32_t>();
  const auto form = static_cast<statements::DeleteForm>(input.ConsumeIntegralInRange(0, 1));
  const std::u16string first = ConsumeText(input);
  const std::u16string second = RestAsText(input);

  RequireHolds(statements::ItemsOfClass(first), first);
  RequireHolds(statements::ClassHistory(year, period, first), first);
  RequireHolds(statements::ItemHistory(year, period, first), first);
  RequireHolds(statements::ItemCurrentAmounts(year, period, first), first);
  RequireHolds(statements::DeleteClassProvision(year, period, first), first);
  RequireHolds(statements::DeleteItemProvision(year, period, first, form), first);
  RequireHolds(statements::DeleteClass(first), first);
  RequireHolds(statements::OtherClassNumbers(first), first);
  RequireHolds(statements::AccountId(first), first);
  RequireHolds(statements::ItemsOfOtherClasses(first), first);

  std::u16string save = statements::SaveDelete(first);
  statements::AppendSaveInsert(
      save, u"1", statements::SaveInsertEnd({first, second, first, second, first, second, u"5"}));
  RequireHolds(save, second);

  // The embedded company refuses literals that hold a NUL.
  if (second.find(u'\0') == std::u16string::npos) {
    Require(
        IsAccepted(statements::UserSetting(year < 0 ? 0 : year, QuoteText(second, false, true))),
        "a quoted text is one literal");
  }
  return 0;
}
