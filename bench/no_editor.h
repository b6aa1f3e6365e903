// Stands in for the item class form where none is opened.
#pragma once

#include "editor/class_editor.h"
#include "platform/error.h"

namespace bench {

class NoEditor final : public pricedown::ItemClassEditor {
 public:
  pricedown::ItemClassForm& Form() override {
    throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified, u"没有编辑窗口",
                                     u"pricedown_bench");
  }
  void ShowModal() override {}
};

}  // namespace bench
