// What a user types into a picker's search field: always a statement that the company accepts, with
// the same result however the words are separated.
#include <array>

#include "tests/fuzz/company.h"
#include "workbench/pickers/candidate_table.h"

using namespace pricedown::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::u16string typed = RestAsText(input);
  // No key types a NUL.
  if (typed.find(u'\0') != std::u16string::npos) return 0;
  const std::vector<std::u16string> words = workbench::SearchWords(typed);
  for (const std::u16string& word : words) {
    Require(!word.empty(), "a word has characters");
    Require(typed.find(word) != std::u16string::npos, "words are what was typed");
  }
  if (words.empty()) return 0;
  constexpr std::array ids{1, 2, 5};
  for (const auto* table : {&workbench::AccountTable(), &workbench::ItemTable()}) {
    Require(IsAccepted(workbench::MatchStatement(*table, ids, words)), "a search runs");
  }
  return 0;
}
