// One browser on a scripted suite: environment, state, grid and tree with recording windows.
// Tests script the statements that they expect; any other one fails them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "browser/class_commands.h"
#include "browser/class_tree.h"
#include "browser/item_grid.h"
#include "tests/browser/recording_editor.h"
#include "tests/browser/recording_views.h"
#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"
#include "tests/support/recording_questions.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {

inline constexpr std::u16string_view kTreeStatement =
    u"Select t1.FitemClassNumber,t1.FitemClassName \r\n"
    u" FROM icPriceDownClass t1 order by t1.FitemClassNumber asc";

// The items of class 01.
inline constexpr std::u16string_view kItemsOf01 =
    u"SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
    u"t1.FName,isnull(t1.FModel,'') as FModel,"
    u"t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,t2.FAPAccID,t2.FAPNumber,t2.FARAccID,"
    u"t2.FARNumber,t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2"
    u" Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8) "
    u" and t2.FItemClassNumber='01' Order by t1.FNumber asc";

// The root's query: the class numbered 0.
inline constexpr std::u16string_view kItemsOfRoot =
    u"SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
    u"t1.FName,isnull(t1.FModel,'') as FModel,"
    u"t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,t2.FAPAccID,t2.FAPNumber,t2.FARAccID,"
    u"t2.FARNumber,t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2"
    u" Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8) "
    u" and t2.FItemClassNumber='0' Order by t1.FNumber asc";

inline constexpr std::u16string_view kAllItems =
    u"SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
    u"t1.FName,isnull(t1.FModel,'') as FModel FROM t_ICItem t1"
    u" Where t1.FErpClsID not in(6,8) order by t1.FNumber asc";

// The log line of a statement's execution.
inline std::string ExecuteLine(std::u16string_view statement) {
  return "ZEPConnection.AppConnection.Execute(" + Quoted(statement) + ")";
}

// The rows of a tree query: number, name, number, name...
inline ScriptedRows ClassRows(std::initializer_list<std::pair<Value, Value>> classes) {
  std::vector<std::vector<Value>> rows;
  for (const auto& [number, name] : classes) rows.push_back({number, name});
  return Rows({u"FitemClassNumber", u"FitemClassName"}, std::move(rows));
}

struct Item {
  Value code;
  Value shortCode;
  Value name;
  Value model;
};

// The rows of a grid query for the class with that number and name.
inline ScriptedRows ItemRows(std::initializer_list<Item> items, const Value& classNumber = u"01",
                             const Value& className = u"原料") {
  std::vector<std::vector<Value>> rows;
  std::int32_t id = 100;
  for (const Item& item : items) {
    rows.push_back({item.code, item.shortCode, item.name, item.model, ++id, classNumber, className,
                    1051, u"5711", 1023, u"1281.1", 12.5});
  }
  return Rows(
      {u"FNumber", u"FShortNumber", u"FName", u"FModel", u"Fitemid", u"FItemClassNumber",
       u"FItemClassName", u"FAPAccID", u"FAPNumber", u"FARAccID", u"FARNumber", u"FPencentPrepare"},
      std::move(rows));
}

inline const std::initializer_list<Item> kTwoItems{
    {u"01.001", u"001", u"螺栓", u"M8"},
    {u"01.002", u"002", u"螺母", u"M10"},
};

class BrowserFixture : public ::testing::Test {
 protected:
  BrowserFixture() {
    state_.itemClassType = 1;
    threadState_.dataScope = 2;
  }

  void AttachGridView() { grid_.GetGrid().Attach(&gridView_); }
  std::string CellOf(std::int32_t column, std::int32_t row) {
    return Utf8(grid_.GetGrid().Text(column, row));
  }
  // The texts of all rows, columns separated by |.
  std::vector<std::string> RowTexts() {
    std::vector<std::string> rows;
    for (std::int32_t row = 1; row <= grid_.GetGrid().MaxRows(); ++row) {
      std::string line;
      for (std::int32_t column = 1; column <= 4; ++column) line += CellOf(column, row) + "|";
      rows.push_back(line);
    }
    return rows;
  }
  // Which cells are locked, row by row, as L and -.
  std::string Locks() {
    std::string map;
    for (std::int32_t row = 1; row <= grid_.GetGrid().MaxRows(); ++row) {
      for (std::int32_t column = 1; column <= 4; ++column) {
        map += grid_.GetGrid().IsLocked(column, row) ? 'L' : '-';
      }
      map += ' ';
    }
    return map;
  }

  CallLog log_;
  RecordingFactory factory_{log_};
  RecordingQuestions questions_{log_};
  RecordingScreen screen_{factory_.GetRecorder()};
  RecordingTreeView treeView_{factory_.GetRecorder()};
  ThreadState threadState_;
  Environment environment_{factory_, threadState_, questions_, screen_, u"Host"};
  BrowserState state_;
  ItemGrid grid_{environment_, state_};
  ClassTree tree_{environment_, state_, treeView_, grid_};
  RecordingEditor editor_{environment_, factory_.GetRecorder(), log_};
  RecordingGridView gridView_{factory_.GetRecorder(), grid_.GetGrid()};
};

}  // namespace pricedown::testing
