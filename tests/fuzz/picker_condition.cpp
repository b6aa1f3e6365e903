// The condition under which a picker offers its rows: the library's own is always accepted, however
// many items it leaves out; any other text is accepted or refused without harm.
#include "tests/fuzz/company.h"
#include "workbench/pickers/candidate_table.h"

using namespace pricedown::fuzz;

namespace {

std::u16string Wide(const std::string& digits) { return {digits.begin(), digits.end()}; }

std::u16string ConsumeExclusion(FuzzedDataProvider& input) {
  std::u16string list;
  const int count = input.ConsumeIntegralInRange(1, 200);
  for (int i = 0; i < count; ++i) {
    if (i > 0) list += u',';
    list += Wide(std::to_string(input.ConsumeIntegral<std::int32_t>()));
  }
  return u"x2.FItemid not in(" + list + u")";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::u16string exclusion = ConsumeExclusion(input);
  Require(IsAccepted(workbench::IdsStatement(workbench::ItemTable(), exclusion)),
          "the library's condition is taken");
  const std::u16string other = RestAsText(input);
  for (const auto* table : {&workbench::AccountTable(), &workbench::ItemTable()}) {
    IsAccepted(workbench::IdsStatement(*table, other));
  }
  return 0;
}
