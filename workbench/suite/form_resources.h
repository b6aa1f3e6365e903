// `ZEPFrmRes.FrmResLoader`: captions and title fonts in the suite's other languages, Traditional
// Chinese ("cht") and English ("en"). Captions without a translation stay.
#pragma once

#include "workbench/suite/services.h"

namespace workbench {

// Members: LoadFrmResStrings(form[, key]), NeedMLColumnHeaders, GetQ7FontProps(language).
class FrmResLoader : public pricedown::LocalObject<FrmResLoader> {
 public:
  explicit FrmResLoader(SuiteStatePtr suite) : suite_(std::move(suite)) {}

  // Sets the caption of every control in `form`'s `Controls` (Count, Item(i) from 0 with Name and
  // Caption) to the text in the suite's language.
  void LoadFormStrings(const pricedown::ObjectPtr& form);
  // A dictionary with "Font.Name" and "Font.Charset".
  static pricedown::Value FontProperties(std::u16string_view language);

  bool needColumnHeaders = false;
  static std::span<const pricedown::Member<FrmResLoader>> Members();

 private:
  SuiteStatePtr suite_;
};

}  // namespace workbench
