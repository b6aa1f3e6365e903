// The contract of every recordset that this library uses, as one suite of tests.
// It is not run by itself: the tests of an implementation instantiate it with their factory.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/recordset.h"

namespace pricedown::testing {

// An implementation under test: how to make a factory that creates its ADODB.Recordset.
//   INSTANTIATE_TEST_SUITE_P(Scripted, RecordsetContract,
//                            ::testing::Values(RecordsetSource("Scripted", [] { ... })));
class RecordsetSource {
 public:
  using FactoryMaker = std::function<std::shared_ptr<ObjectFactory>()>;
  RecordsetSource(std::string name, FactoryMaker makeFactory);

  std::shared_ptr<ObjectFactory> MakeFactory() const { return makeFactory_(); }
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
  FactoryMaker makeFactory_;
};

void PrintTo(const RecordsetSource& source, std::ostream* stream);

class RecordsetContract : public ::testing::TestWithParam<RecordsetSource> {
 protected:
  RecordsetContract();

  // FItemID (integer), FNumber (text 80), FPencentPrepare (double), all nullable; not open.
  Recordset Closed();
  // The same, open, with the rows 1 "A01" 1.5, 2 "A02" 2.5 and so on; on the last one.
  Recordset WithRows(int count);
  // The FItemID values from the first row to the end, read row by row.
  static std::vector<std::int32_t> ItemIds(const Recordset& recordset);
  // A field of the current row as UTF-8 text.
  static std::string TextOf(const Recordset& recordset, std::u16string_view field);
  static FieldDefinition NullableField(std::u16string name, std::int32_t type,
                                       std::int32_t size = 0);

  // The number of the AutomationError that `action` throws; 0 when it throws none.
  template <typename Action>
  static std::int32_t FailureNumberOf(Action action) {
    try {
      action();
    } catch (const AutomationError& error) {
      return error.Number();
    }
    return 0;
  }
  static constexpr auto kNoCurrentRecord = static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord);
  static constexpr auto kItemNotFound = static_cast<std::int32_t>(ErrorNumber::ItemNotFound);
  static constexpr auto kObjectClosed = static_cast<std::int32_t>(ErrorNumber::ObjectClosed);

  std::shared_ptr<ObjectFactory> factory_;
};

}  // namespace pricedown::testing
