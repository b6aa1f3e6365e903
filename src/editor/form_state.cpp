// The reading of the fields as one header.
// Which of them are valid is check_data's business.
#include "editor/form_state.h"

#include "platform/convert.h"

namespace pricedown {

ClassHeader ReadHeader(const ItemClassFormView& view) {
  return {view.Text(FormField::ClassNumber), view.Text(FormField::ClassName),
          view.Text(FormField::LossAccount), view.Text(FormField::ReserveAccount),
          LeadingNumber(view.Text(FormField::Percentage))};
}

}  // namespace pricedown
