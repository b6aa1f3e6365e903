// The public class `updatePrice`: whether provisions are kept by item class.
#pragma once

#include <cstdint>

#include "platform/automation.h"

namespace pricedown {

class UpdatePrice {
 public:
  explicit UpdatePrice(ObjectFactory& factory) : factory_(factory) {}

  // Reads the setting; 0 when it is absent or cannot be read.
  void ReadItemClassType();
  std::int16_t ItemClassType() const { return itemClassType_; }

 private:
  ObjectFactory& factory_;
  std::int16_t itemClassType_ = 0;
};

}  // namespace pricedown
