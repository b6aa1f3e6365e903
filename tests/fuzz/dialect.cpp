// Any statement text is refused with a database error, or translated into SQL that SQLite compiles.
#include "tests/fuzz/company.h"

using namespace pricedown::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  // In bytes, or every word of the language would need a zero between its letters.
  const std::string bytes = input.ConsumeRemainingBytesAsString();
  std::u16string text;
  for (const char byte : bytes) text += static_cast<unsigned char>(byte);
  IsAccepted(text);
  return 0;
}
