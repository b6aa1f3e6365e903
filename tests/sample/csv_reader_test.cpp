// Fields, quotes and line numbers of CSV text.
#include "workbench/sample/csv_reader.h"

#include <gtest/gtest.h>

namespace workbench::testing {
namespace {

// Each record as "line:field|field", a problem as "line!problem".
std::vector<std::string> Read(std::string_view text) {
  CsvReader reader(text);
  CsvRecord record;
  std::vector<std::string> records;
  while (reader.Next(&record)) {
    std::string shown = std::to_string(record.line);
    if (!record.problem.empty()) {
      shown += "!" + record.problem;
    } else {
      for (std::size_t i = 0; i < record.fields.size(); ++i) {
        shown += (i == 0 ? ":" : "|") + record.fields[i];
      }
    }
    records.push_back(shown);
  }
  return records;
}

using Records = std::vector<std::string>;

struct Case {
  const char* name;
  std::string text;
  Records expected;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.name; }

class CsvReading : public ::testing::TestWithParam<Case> {};

TEST_P(CsvReading, ReturnsFieldsAndLines) { EXPECT_EQ(Read(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvReading,
    ::testing::Values(
        Case{"Nothing", "", {}}, Case{"OneFieldWithoutLineEnd", "a", {"1:a"}},
        Case{"LineFeeds", "a,b\nc,d\n", {"1:a|b", "2:c|d"}},
        Case{"CarriageReturnsAndLineFeeds", "a,b\r\nc,d\r\n", {"1:a|b", "2:c|d"}},
        Case{"CarriageReturns", "a,b\rc,d\r", {"1:a|b", "2:c|d"}},
        Case{"ByteOrderMark", "\xEF\xBB\xBF\"a\",b\n", {"1:a|b"}},
        Case{"EmptyLinesAreCounted", "\n\r\na\n\n\nb", {"3:a", "6:b"}},
        Case{"EmptyFields", ",,\n", {"1:||"}}, Case{"TrailingComma", "a,", {"1:a|"}},
        Case{"QuotedComma", "\"a,b\",c", {"1:a,b|c"}},
        Case{"DoubledQuotes", "\"a\"\"b\",\"\"\"\"", {"1:a\"b|\""}},
        Case{"EmptyQuotes", "\"\",x", {"1:|x"}},
        Case{"EmbeddedLineBreaks", "\"a\r\nb\nc\",d\ne", {"1:a\r\nb\nc|d", "4:e"}},
        Case{"BlanksAreKept", " a , b ", {"1: a | b "}},
        Case{"QuoteInsidePlainField", "a\"b,c\nd", {"1!引号只能出现在用引号括起的字段中", "2:d"}},
        Case{"TextAfterClosingQuote", "\"a\"b,c\nd", {"1!引号结束后还有多余的字符", "2:d"}},
        Case{"UnclosedQuote", "a\n\"b,c\nd\n", {"1:a", "2!引号没有结束"}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace workbench::testing
