// Measures loading the tree and loading the grid, each at growing sizes.
//   pricedown_bench FOLDER          companies are made in FOLDER once and kept there
//   pricedown_bench FOLDER editor   the item class form alone
//   pricedown_bench FOLDER print    printing alone
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "bench/editor_measure.h"
#include "bench/measure.h"
#include "bench/print_measure.h"
#include "bench/raw_company.h"
#include "bench/stage.h"
#include "platform/text.h"
#include "workbench/sample/company_file.h"

namespace bench {
namespace {

constexpr int kRepetitions = 5;

std::string MakeCompany(const std::string& folder, int items, int classes) {
  const std::string path =
      folder + "/bench-" + std::to_string(items) + "-" + std::to_string(classes) + ".db";
  if (!std::filesystem::exists(path)) {
    workbench::CompanyFilePlan plan;
    plan.large = workbench::LargeCompanyPlan{1, items, classes};
    workbench::CreateCompanyFile(path, plan);
  }
  return path;
}

// The library collapses a class's rows to one node; so does the raw side, row by row.
Timing MeasureTree(const std::string& path, std::size_t& rows) {
  const auto stage = MakeStage(path);
  RawCompany company(path);
  return Compare(
      [&] { stage->Control().StripButtonClicked(u""); },
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
}

Timing MeasureGrid(const std::string& path, std::size_t& rows) {
  const auto stage = MakeStage(path);
  stage->Factory().Create(u"ZEPWorkbench.Settings")->Put(u"ItemClassType", u"2");
  stage->Control().ModelCurrent();
  stage->Control().StripButtonClicked(u"");
  RawCompany company(path);
  const Timing timing =
      Compare([&] { stage->Control().NodeClicked(1); },
              [&] { rows = company.Step(kAllItemsQuery, [](auto, auto) {}); }, kRepetitions);
  stage->Factory().Create(u"ZEPWorkbench.Settings")->Put(u"ItemClassType", u"1");
  return timing;
}

void Run(const std::string& folder) {
  std::optional<Timing> half;
  for (const auto& [items, classes] :
       {std::pair{250000, 5000}, {500000, 10000}, {1000000, 20000}}) {
    std::size_t rows = 0;
    const Timing timing = MeasureTree(MakeCompany(folder, items, classes), rows);
    Report("tree load", rows, timing, half ? &*half : nullptr);
    half = timing;
  }
  half.reset();
  for (const int items : {51000, 102000, 204100}) {
    std::size_t rows = 0;
    const Timing timing = MeasureGrid(MakeCompany(folder, items, items / 50), rows);
    Report("grid load", rows, timing, half ? &*half : nullptr);
    half = timing;
  }
}

}  // namespace
}  // namespace bench

int main(int count, char** words) {
  const std::string only = count == 3 ? words[2] : "";
  if (count != 2 && only != "editor" && only != "print") {
    std::fprintf(stderr, "pricedown_bench FOLDER [editor | print]\n");
    return 2;
  }
  try {
    if (only.empty()) bench::Run(words[1]);
    if (only != "print") bench::MeasureEditor(words[1]);
    if (only != "editor") bench::MeasurePrinting();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pricedown_bench: %s\n", error.what());
    return 1;
  }
}
