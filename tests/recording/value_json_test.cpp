// Values in a recording: each kind as written out here, and back.
#include "workbench/recording/value_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/cell_block.h"
#include "platform/error.h"
#include "tests/support/utf8.h"

namespace workbench {
namespace {

using pricedown::ObjectPtr;
using pricedown::Value;
using pricedown::testing::Readable;

ObjectNumber NumberOf(const ObjectPtr&) { return 7; }
ObjectPtr NoObject(ObjectNumber) { return nullptr; }

std::string Line(const Value& value) { return LineOf(ToJson(value, NumberOf)); }
Value Parsed(const std::string& line) { return FromJson(Json::parse(line), NoObject); }

struct Case {
  const char* name;
  Value value;
  const char* json;
};
void PrintTo(const Case& one, std::ostream* stream) { *stream << one.name; }

class ValueJson : public ::testing::TestWithParam<Case> {};

TEST_P(ValueJson, IsWrittenSo) { EXPECT_EQ(GetParam().json, Line(GetParam().value)); }

TEST_P(ValueJson, IsReadBack) {
  const Value read = Parsed(GetParam().json);
  EXPECT_EQ(Readable(GetParam().value), Readable(read));
  EXPECT_EQ(GetParam().json, Line(read));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ValueJson,
    ::testing::Values(
        Case{"Empty", Value(), R"({"empty":true})"}, Case{"Null", pricedown::Null{}, "null"},
        Case{"Missing", pricedown::Missing{}, R"({"missing":true})"}, Case{"Boolean", true, "true"},
        Case{"Int16", std::int16_t{-3}, R"({"int16":-3})"},
        Case{"Int32", std::int32_t{-2147483647 - 1}, "-2147483648"}, Case{"Double", 0.1, "0.1"},
        Case{"WholeDouble", 5.0, "5.0"}, Case{"LargeDouble", 1e300, "1e+300"},
        Case{"Infinity", -std::numeric_limits<double>::infinity(), R"({"double":"-inf"})"},
        Case{"Date", pricedown::Date{39448.75}, R"({"date":39448.75})"},
        Case{"Text", u"类别\"1\"\n", R"("类别\"1\"\n")"},
        Case{"LoneSurrogate", std::u16string(u"a\xD800"), R"({"units":[97,55296]})"},
        Case{"Nothing", ObjectPtr(), R"({"object":0})"},
        Case{"List", std::vector<Value>{1, u"x"}, R"({"list":[1,"x"]})"}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(ValueJson, NotANumberIsReadBack) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(R"({"double":"nan"})", Line(nan));
  EXPECT_TRUE(std::isnan(Parsed(R"({"double":"nan"})").Double()));
}

TEST(ValueJson, BlockKeepsItsColumnsAndRows) {
  const Value block = Parsed(R"({"rows":[["01",1.5],["02",null],["03",{"empty":true}]]})");
  ASSERT_NE(nullptr, block.Block());
  EXPECT_EQ(2U, block.Block()->ColumnCount());
  EXPECT_EQ(3U, block.Block()->RowCount());
  EXPECT_EQ("\"02\"", Readable(block.Block()->CellValue(0, 1)));
  EXPECT_EQ(1.5, block.Block()->Cell(1, 0).number);
  EXPECT_EQ(R"({"rows":[["01",1.5],["02",null],["03",{"empty":true}]]})", Line(block));
}

TEST(ValueJson, WhatHasNoKindIsOther) {
  EXPECT_EQ(R"({"other":true})", Line(pricedown::CellBlockPtr()));
  EXPECT_EQ(nullptr, Parsed(R"({"other":true})").Block());
}

TEST(ValueJson, PasswordsAreHidden) {
  EXPECT_EQ(R"("Server=s;PWD=***;UID=u")", Line(u"Server=s;PWD=secret;UID=u"));
}

TEST(ValueJson, ReferenceIsItsContent) {
  Value target = u"x";
  EXPECT_EQ("\"x\"", Line(Value::ByReference(target)));
}

class BadValueJson : public ::testing::TestWithParam<const char*> {};

TEST_P(BadValueJson, IsRefused) { EXPECT_THROW(Parsed(GetParam()), pricedown::AutomationError); }

INSTANTIATE_TEST_SUITE_P(Lines, BadValueJson,
                         ::testing::Values("[1]", "{}", R"({"other":1,"empty":1})",
                                           R"({"unknown":1})", R"({"int16":"x"})", R"({"rows":1})",
                                           R"({"rows":[[1],[1,2]]})", R"({"units":"x"})"));

}  // namespace
}  // namespace workbench
