// `ZEPFrmRes.FrmResLoader`: captions and title fonts of the suite's other languages.
// It knows Traditional Chinese ("cht") and English ("en"); captions it has no text for stay.
#pragma once

#include "workbench/suite/services.h"

namespace workbench {

// Members: LoadFrmResStrings(form[, key]), NeedMLColumnHeaders, GetQ7FontProps(language).
class FrmResLoader : public pricedown::LocalObject<FrmResLoader> {
 public:
  explicit FrmResLoader(SuiteStatePtr suite) : suite_(std::move(suite)) {}

  // Replaces the caption of every control that `form` offers in `Controls` (Count, Item(i) from 0
  // with Name and Caption) by the text of the suite's language.
  void LoadFormStrings(const pricedown::ObjectPtr& form);
  // A dictionary with "Font.Name" and "Font.Charset".
  static pricedown::Value FontProperties(std::u16string_view language);

  bool needColumnHeaders = false;
  static std::span<const pricedown::Member<FrmResLoader>> Members();

 private:
  SuiteStatePtr suite_;
};

}  // namespace workbench
