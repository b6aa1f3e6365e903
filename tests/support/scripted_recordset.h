// A recordset with rows of the test's choice, as the suite's connection returns them, and the
// client-side one that is created by ProgID.
// Filters compare one column; changes apply at once.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset.h"
#include "tests/support/recording_factory.h"

namespace pricedown::testing {

// A query's result. A column of type 0 gets the type of its first value.
struct ScriptedRows {
  std::vector<FieldDefinition> columns;
  std::vector<std::vector<Value>> rows;
  bool hasGetRows = true;

  // The same rows on a recordset without GetRows.
  ScriptedRows WithoutGetRows() &&;
};

// Columns by name alone: Rows({u"FNumber", u"FName"}, {{u"01", u"甲"}, {u"02", Null{}}}).
ScriptedRows Rows(std::vector<std::u16string> columns, std::vector<std::vector<Value>> rows);

// An open recordset on its first row. Its calls count and can fail as `recorder` says; only
// "release NAME" is logged unless the recorder logs quiet calls too.
ObjectPtr NewScriptedRecordset(const RecorderPtr& recorder, ScriptedRows rows,
                               std::u16string_view name = u"result");

// Makes ADODB.Recordset creatable: closed, fields can be appended.
void AllowRecordsets(RecordingFactory& factory);

// What ZEPConnection.AppConnection's Execute does for a whole statement text. Called again for
// the same text, the results are returned in turn, then the last one again.
void AnswerStatement(RecordingFactory& factory, std::u16string_view statement, ScriptedRows rows);
void AnswerNothing(RecordingFactory& factory, std::u16string_view statement);
void FailStatement(RecordingFactory& factory, std::u16string_view statement, std::int32_t number,
                   std::u16string description);

}  // namespace pricedown::testing
