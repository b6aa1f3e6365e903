// Construction of the core's exception.
#include "platform/error.h"

#include <utility>

#include "platform/text.h"

namespace pricedown {

AutomationError::AutomationError(ErrorNumber number, std::u16string description,
                                 std::u16string source)
    : AutomationError(static_cast<std::int32_t>(number), std::move(description),
                      std::move(source)) {}

AutomationError::AutomationError(std::int32_t number, std::u16string description,
                                 std::u16string source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      utf8_(ToUtf8(description_)) {}

}  // namespace pricedown
