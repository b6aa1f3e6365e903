// Numbers and texts: reading, recognising, and the round trip.
#include <bit>
#include <cmath>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/number_scan.h"
#include "tests/fuzz/fuzz_input.h"

using namespace pricedown;
using namespace pricedown::fuzz;

namespace {

void RequireConsistent(const std::u16string& text) {
  bool converts = true;
  double number = 0;
  try {
    number = ToDouble(Value(text));
  } catch (const AutomationError&) {
    converts = false;
  }
  Require((ScanWholeNumber(text).outcome == ScannedNumber::Outcome::Number) == converts,
          "a text is a number exactly when it converts");
  if (converts) {
    Require(std::isfinite(number), "a converted text is finite");
  }
  try {
    Require(std::isfinite(LeadingNumber(text)), "a leading number is finite");
  } catch (const AutomationError&) {
  }
  try {
    const auto small = ToInt16(Value(text));
    Require(std::abs(number - small) <= 0.5, "rounding goes to the nearest");
  } catch (const AutomationError&) {
  }
}

void RequireTheWayBack(double number) {
  const std::u16string text = NumberText(number);
  if (!std::isfinite(number)) return;
  const bool isNumber = ScanWholeNumber(text).outcome == ScannedNumber::Outcome::Number;
  Require(isNumber || std::abs(number) > 1.797693134862315e308, "its text is a number");
  if (!isNumber) return;
  const double read = ToDouble(Value(text));
  Require(std::abs(read - number) <= std::abs(number) * 1e-14 + 5e-324, "15 digits come back");
  Require(NumberText(read) == text, "the text of what was read is the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  RequireTheWayBack(std::bit_cast<double>(input.ConsumeIntegral<std::uint64_t>()));
  RequireConsistent(RestAsText(input));
  return 0;
}
