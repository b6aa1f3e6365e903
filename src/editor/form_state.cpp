// Reading the fields, and counting the rows.
#include "editor/form_state.h"

#include <limits>

#include "platform/number_scan.h"

namespace pricedown {
namespace {

using Outcome = ScannedNumber::Outcome;

double NumberOf(const ScannedNumber& scanned) {
  return scanned.outcome == Outcome::Overflow ? std::numeric_limits<double>::max() : scanned.number;
}

// The only parser of the percentage. A number that the checks accept is its own leading number;
// others may differ from it: "5-" and "&HFFFF".
void ReadPercentage(const std::u16string& text, TypedHeader& header) {
  header.percentageLength = text.size();
  const ScannedNumber whole = ScanWholeNumber(text);
  if (whole.outcome != Outcome::None) header.wholePercentage = NumberOf(whole);
  const bool isAccepted = header.wholePercentage && *header.wholePercentage >= kMinimumPercentage &&
                          *header.wholePercentage <= kMaximumPercentage;
  header.percentage = isAccepted ? *header.wholePercentage : NumberOf(ScanLeadingNumber(text));
}

}  // namespace

TypedHeader ReadHeader(const ItemClassFormView& view) {
  TypedHeader header;
  header.number = view.Text(FormField::ClassNumber);
  header.name = view.Text(FormField::ClassName);
  header.lossAccount = view.Text(FormField::LossAccount);
  header.reserveAccount = view.Text(FormField::ReserveAccount);
  ReadPercentage(view.Text(FormField::Percentage), header);
  return header;
}

void CountRows(FormContext& form) {
  if (form.HasEnded()) return;
  FormState& state = form.state;
  const std::int32_t count = state.memberList.RecordCount();
  if (count > 0) state.memberList.MoveFirst();
  state.rows.SetCount(count + 1);
}

}  // namespace pricedown
