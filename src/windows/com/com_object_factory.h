// Objects by ProgID from COM.
#pragma once

#include "platform/automation.h"

namespace pricedown::windows {

// Requires: COM is initialised on the thread.
class ComObjectFactory final : public ObjectFactory {
 public:
  ObjectPtr Create(std::u16string_view progId) override;
};

}  // namespace pricedown::windows
