// Creates the stand-in suite's objects by ProgID, all on one shared state.
#pragma once

#include <span>
#include <string_view>

#include "platform/automation.h"
#include "workbench/suite/services.h"

namespace workbench {

// One object class of the suite.
struct SuiteClass {
  std::u16string_view progId;
  pricedown::ObjectPtr (*create)(const SuiteStatePtr& suite);
};

// In a fixed order: the COM server's class ids are assigned by position.
std::span<const SuiteClass> SuiteClasses();

// A new object of the class, of the recording while one is replayed: all but
// `ZEPWorkbench.Settings` and recordsets of a recording that has none. Throws AutomationError.
pricedown::ObjectPtr CreateObject(const SuiteClass& suiteClass, const SuiteStatePtr& suite);

class SuiteFactory : public pricedown::ObjectFactory {
 public:
  explicit SuiteFactory(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  pricedown::ObjectPtr Create(std::u16string_view progId) override;

 private:
  SuiteStatePtr suite_;
};

}  // namespace workbench
