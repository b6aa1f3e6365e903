// The raw side steps the query with SQLite for tree and grid, sends the same statements through the
// suite's objects for grid, click and deletion, and walks over the texts for finding.
#include "bench/browser_measure.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "bench/companies.h"
#include "bench/raw_company.h"
#include "bench/raw_suite.h"
#include "bench/stage.h"
#include "browser/item_grid.h"
#include "browser/searched_rows.h"
#include "platform/convert.h"
#include "platform/text.h"

namespace bench {
namespace {

constexpr int kRepetitions = 5;
constexpr std::u16string_view kClass = u"00001";
constexpr pricedown::NodeIndex kRootNode = 1;
constexpr pricedown::NodeIndex kClassNode = 2;

void Set(Stage& stage, std::u16string_view name, std::u16string_view value) {
  stage.Factory().Create(u"ZEPWorkbench.Settings")->Put(name, value);
}

// The library merges a class's rows into one node; so does the raw side, row by row.
void MeasureTree(const std::string& path, Figures& figures) {
  const auto stage = MakeStage(path);
  RawCompany company(path);
  std::size_t rows = 0;
  const Timing timing = Compare(
      [&] { stage->Control().CommandChosen(pricedown::ControlCommands().front()); },
      [&] {
        stage->BeginRawTree();
        std::u16string last;
        rows = company.Step(kTreeQuery, [&](auto number, auto name) {
          if (number == last) return;
          last = number;
          stage->InsertRaw(pricedown::Concatenate({number, u"(", pricedown::Trim(name), u")"}));
        });
        stage->EndRawTree();
      },
      kRepetitions);
  figures.Add("tree load", rows, timing);
}

// By item: the root lists all items.
std::unique_ptr<Stage> StageByItem(const std::string& path) {
  auto stage = MakeStage(path);
  Set(*stage, u"ItemClassType", u"2");
  stage->Control().ModelCurrent();
  stage->Control().CommandChosen(pricedown::ControlCommands().front());
  return stage;
}

void MeasureGrid(const std::string& path, Figures& figures) {
  const auto stage = StageByItem(path);
  RawCompany company(path);
  std::size_t rows = 0;
  const auto load = [&] { stage->Control().NodeClicked(kRootNode); };
  const Timing timing = Compare(
      load, [&] { rows = company.Step(kAllItemsQuery, [](auto, auto) {}); }, kRepetitions);
  const Timing calls = Compare(
      load, [&] { WalkAllItems(stage->Factory()); }, kRepetitions);
  Set(*stage, u"ItemClassType", u"1");
  figures.Add("grid load", rows, timing);
  figures.Add("grid load, calls", rows, calls);
}

// The raw side is the same grid that no client of UI Automation has asked for its provider.
void MeasureKeys(const std::string& path, Figures& figures) {
  constexpr int kMoves = 300;
  const auto asked = StageByItem(path);
  const auto plain = StageByItem(path);
  for (Stage* stage : {asked.get(), plain.get()}) stage->Control().NodeClicked(kRootNode);
  asked->AskAsClient();
  const Timing timing =
      Compare([&] { asked->MoveDown(kMoves); }, [&] { plain->MoveDown(kMoves); }, kRepetitions);
  Set(*plain, u"ItemClassType", u"1");
  figures.Add("keys", static_cast<std::size_t>(plain->Control().GetGrid().MaxRows()), timing);
}

void MeasureClick(const std::string& path, Figures& figures) {
  const auto stage = MakeStage(path);
  const Timing timing = Compare([&] { stage->Control().NodeClicked(kClassNode); },
                                [&] { WalkItems(stage->Factory(), kClass); }, kRepetitions);
  figures.Add("node click", static_cast<std::size_t>(stage->Control().GetGrid().MaxRows()), timing);
}

// The class is restored before each run; in an early period no history counts.
void MeasureDeletion(const std::string& path, Figures& figures) {
  const auto stage = MakeStage(path);
  Set(*stage, u"CurrentYear", u"1990");
  RawCompany company(path);
  const auto run = [&](const char* sql) { return company.Step(sql, [](auto, auto) {}); };
  run("CREATE TEMP TABLE kept AS SELECT * FROM icPriceDownClass");
  const auto count = [&] { return run("SELECT FItemID,FItemID FROM icPriceDownClass"); };
  const std::size_t rows = count();
  const auto prepare = [&] {
    run("DELETE FROM icPriceDownClass");
    run("INSERT INTO icPriceDownClass SELECT * FROM kept");
    stage->Control().CommandChosen(pricedown::ControlCommands().front());
    stage->Control().NodeClicked(kClassNode);
  };
  const Timing timing =
      Compare([&] { stage->Control().CommandChosen(*pricedown::CommandOfTool(u"iCut")); },
              [&] { DeleteClass(stage->Factory(), kClass); }, kRepetitions, prepare);
  stage->User().RequireNoMessages();
  if (count() > 0) throw std::runtime_error("the class was not deleted");
  figures.Add("delete", rows, timing);
}

// Code, name and model as a company has them; what is looked for is in the last row.
pricedown::Grid FilledGrid(std::int32_t rows) {
  pricedown::Grid grid(pricedown::grid_columns::kCount);
  grid.SetRedraw(false);
  grid.SetMaxRows(rows);
  for (std::int32_t row = 1; row <= rows; ++row) {
    const std::u16string number = pricedown::NumberText(row);
    grid.SetText(pricedown::grid_columns::kCode, row, pricedown::Concatenate({u"01.02.", number}));
    grid.SetText(pricedown::grid_columns::kName, row,
                 row == rows ? u"深沟球轴承" : u"六角头螺栓 GB/T 5782");
    grid.SetText(pricedown::grid_columns::kModel, row, pricedown::Concatenate({u"M8×", number}));
  }
  return grid;
}

// The raw side walks over all texts and looks for the text unchanged.
void MeasureFind(std::int32_t rows, Figures& figures) {
  constexpr std::u16string_view kText = u"轴承";
  const pricedown::Grid grid = FilledGrid(rows);
  const pricedown::SearchedItems items(grid);
  pricedown::TextSearch search;
  std::int32_t found = 0;
  std::int32_t walked = 0;
  const auto walk = [&] {
    for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
      for (std::int32_t column = 1; column <= pricedown::grid_columns::kModel; ++column) {
        if (grid.Text(column, row).find(kText) != std::u16string_view::npos) walked = row;
      }
    }
  };
  const Timing first = Compare(
      [&] {
        search.Start(items, kText);
        found = search.Next(0, false).value().row;
      },
      walk, kRepetitions);
  const Timing counting = Compare(
      [&] {
        search.Start(items, kText);
        while (!search.IsCounted()) search.ContinueCounting(20000);
      },
      walk, kRepetitions);
  if (found != rows || walked != rows) throw std::runtime_error("the last row was not found");
  figures.Add("find", static_cast<std::size_t>(rows), first);
  figures.Add("count", static_cast<std::size_t>(rows), counting);
}

}  // namespace

void MeasureBrowser(const std::string& folder, Figures& figures) {
  for (const auto& [items, classes] :
       {std::pair{250000, 5000}, {500000, 10000}, {1000000, 20000}}) {
    MeasureTree(MakeCompany(folder, items, classes), figures);
  }
  for (const int items : {51000, 102000, 204000}) {
    MeasureGrid(MakeCompany(folder, items, items / 50), figures);
  }
  for (const int items : {51000, 204000}) {
    MeasureKeys(MakeCompany(folder, items, items / 50), figures);
  }
  for (const int members : {500, 12500, 25000, 50000}) {
    MeasureClick(MakeCompany(folder, members, 1), figures);
  }
  for (const int members : {500, 12500, 25000, 50000}) {
    MeasureDeletion(CopyCompany(MakeCompany(folder, members, 1), "delete"), figures);
  }
  for (const std::int32_t rows : {250000, 500000, 1000000}) MeasureFind(rows, figures);
}

}  // namespace bench
