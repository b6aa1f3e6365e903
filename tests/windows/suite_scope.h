// Connects the suite's ProgIDs in this process to a test's scripted objects.
// The library under test finds them as it finds the real suite, by CLSIDFromProgID.
#pragma once

#include <oaidl.h>

#include "platform/automation.h"

namespace pricedown::testing {

class SuiteScope {
 public:
  // Objects are made by `factory`, which must outlive the scope. Only one scope at a time.
  explicit SuiteScope(ObjectFactory& factory);
  ~SuiteScope();
  SuiteScope(const SuiteScope&) = delete;
  SuiteScope& operator=(const SuiteScope&) = delete;
};

}  // namespace pricedown::testing
