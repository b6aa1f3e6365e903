// Runs the contract of recordsets on the scripted one.
#include <gtest/gtest.h>

#include <memory>

#include "tests/recordset_contract/recordset_contract.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

std::shared_ptr<ObjectFactory> MakeScriptedFactory() {
  auto factory = std::make_shared<RecordingFactory>(CallLog());
  AllowRecordsets(*factory);
  return factory;
}

INSTANTIATE_TEST_SUITE_P(Scripted, RecordsetContract,
                         ::testing::Values(RecordsetSource("Scripted", MakeScriptedFactory)));

}  // namespace
}  // namespace pricedown::testing
