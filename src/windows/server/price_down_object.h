// The COM object `PriceDown`: its interfaces and the control behind them.
#pragma once

#include "windows/server/in_place_object_impl.h"
#include "windows/server/ole_object_impl.h"
#include "windows/server/persist_impl.h"
#include "windows/server/price_down_impl.h"
#include "windows/server/provide_class_info_impl.h"
#include "windows/server/quick_activate_impl.h"
#include "windows/server/view_object_impl.h"

namespace pricedown::windows {

class PriceDownObject final
    : public ComClassOf<PriceDownImpl, OleObjectImpl, InPlaceObjectImpl, ViewObjectImpl,
                        PersistImpl, ProvideClassInfoImpl, QuickActivateImpl> {
 public:
  // Throws AutomationError when the control's window cannot be made.
  PriceDownObject() : control_(*Identity(), *this) {}

 private:
  HostedControl& Hosted() noexcept override { return control_; }

  // The container may not have closed the control.
  void FinalRelease() noexcept override {
    AtBoundary([&] { control_.Close(); });
  }

  HostedControl control_;
};

}  // namespace pricedown::windows
