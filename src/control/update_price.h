// The public class `updatePrice`: whether provisions are kept by item class.
// It only reads the setting; nothing in the library changes it.
#pragma once

#include <cstdint>

#include "platform/automation.h"

namespace pricedown {

class UpdatePrice {
 public:
  explicit UpdatePrice(ObjectFactory& factory) : factory_(factory) {}

  // Reads the setting; an absent or unreadable one leaves the value as it is, 0 at first.
  void ReadItemClassType();
  std::int16_t ItemClassType() const { return itemClassType_; }

 private:
  ObjectFactory& factory_;
  std::int16_t itemClassType_ = 0;
};

}  // namespace pricedown
