// The working set as the system counts it. Each measurement is a process of its own, so that none
// finds memory that another has left to the allocator.
#include "bench/memory_measure.h"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "bench/companies.h"
#include "bench/form_stage.h"
#include "bench/raw_suite.h"
#include "bench/stage.h"
#include "browser/item_grid.h"
#include "platform/convert.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "workbench/suite/suite_factory.h"

namespace bench {
namespace {

using namespace pricedown;

constexpr double kMegabyte = 1 << 20;
constexpr double kBytesPerCell = 16;
constexpr NodeIndex kRootNode = 1;

// "VmRSS" is the working set, "VmHWM" its peak; in bytes.
double StatusBytes(std::string_view key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(key)) return 1024.0 * std::strtod(line.c_str() + key.size() + 1, nullptr);
  }
  throw std::runtime_error("no working set");
}

struct Held {
  double texts = 0;  // bytes
  double cells = 0;
  void Add(std::u16string_view text) {
    texts += static_cast<double>(text.size() * sizeof(char16_t));
    ++cells;
  }
};

struct Use {
  double peak = 0;
  double kept = 0;
  Held held;
};

// An operation's work, what it then holds, and its end.
struct Operation {
  std::function<void()> work;
  std::function<Held()> held;
  std::function<void()> leave;
};

Use MeasureHere(const Operation& operation) {
  // The first time fills the database's cache, which stays.
  operation.work();
  operation.leave();
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";  // resets the peak
  const double before = StatusBytes("VmRSS");
  Use use;
  operation.work();
  use.peak = StatusBytes("VmHWM") - before;
  use.held = operation.held();
  operation.leave();
  malloc_trim(0);
  use.kept = StatusBytes("VmRSS") - before;
  return use;
}

// Prepares and measures in a new process.
Use MeasureApart(const std::function<Operation()>& prepare) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    int status = 1;
    try {
      const Use use = MeasureHere(prepare());
      status = write(ends[1], &use, sizeof use) == sizeof use ? 0 : 1;
    } catch (const std::exception& error) {
      std::fprintf(stderr, "pricedown_bench: %s\n", error.what());
    }
    _exit(status);
  }
  Use use;
  close(ends[1]);
  const bool complete = read(ends[0], &use, sizeof use) == sizeof use;
  close(ends[0]);
  int status = 1;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0 || !complete) {
    throw std::runtime_error("memory was not measured");
  }
  return use;
}

void Print(const char* operation, int amount, const Use& product, const Use& raw) {
  const double added = product.peak - raw.peak;
  const double goal = 1.5 * product.held.texts + kBytesPerCell * product.held.cells;
  std::printf("%-12s  %8d  %8.1f  %8.1f  %8.1f  %8.1f  %8.1f  %8.1f\n", operation, amount,
              product.peak / kMegabyte, raw.peak / kMegabyte, added / kMegabyte,
              product.held.texts / kMegabyte, goal / kMegabyte, product.kept / kMegabyte);
  std::fflush(stdout);
}

// The answer to a statement, kept while it is measured.
Operation KeepAnswer(const std::string& path, const std::u16string& statement) {
  const auto suite = std::make_shared<workbench::SuiteState>();
  suite->OpenCompany(FromUtf8(path));
  const auto factory = std::make_shared<workbench::SuiteFactory>(suite);
  const auto answer = std::make_shared<Recordset>();
  return {[=] { *answer = Connection(*factory).Execute(statement); }, [] { return Held(); },
          [=] { answer->Release(); }};
}

void SetItemClassType(Stage& stage, std::u16string_view type) {
  stage.Factory().Create(u"ZEPWorkbench.Settings")->Put(u"ItemClassType", type);
  stage.Control().ModelCurrent();
}

// Leaves only the root in the tree and nothing in the grid.
void EmptyTree(Stage& stage) {
  SetItemClassType(stage, u"2");
  stage.Control().CommandChosen(ControlCommands().front());
  SetItemClassType(stage, u"1");
  stage.Control().NodeClicked(kRootNode);
}

Operation LoadTree(const std::string& path) {
  const std::shared_ptr<Stage> stage = MakeStage(path);
  EmptyTree(*stage);
  return {[=] { stage->Control().CommandChosen(ControlCommands().front()); },
          [=] {
            Held held;
            for (const std::u16string& text : TreeTexts(stage->Factory())) held.Add(text);
            return held;
          },
          [=] { EmptyTree(*stage); }};
}

Operation LoadGrid(const std::string& path) {
  const std::shared_ptr<Stage> stage = MakeStage(path);
  EmptyTree(*stage);
  return {[=] {
            SetItemClassType(*stage, u"2");
            stage->Control().NodeClicked(kRootNode);
          },
          [=] {
            const Grid& grid = stage->Control().GetGrid();
            Held held;
            for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
              for (std::int32_t column = 1; column <= grid.MaxColumns(); ++column) {
                held.Add(grid.Text(column, row));
              }
            }
            return held;
          },
          // By class the root lists nothing.
          [=] {
            SetItemClassType(*stage, u"1");
            stage->Control().NodeClicked(kRootNode);
          }};
}

// Both copies and the rows that are shown.
Held HeldByForm(const ItemClassForm& form) {
  Held held;
  const Recordset& members = form.MemberList();
  const std::vector<FieldDefinition> fields = members.Fields();
  std::vector<std::u16string_view> names;
  for (const FieldDefinition& field : fields) names.push_back(field.name);
  members.MoveFirst();
  RowReader rows(members, std::move(names));
  while (rows.Next()) {
    for (std::size_t copy = 0; copy < 2; ++copy) {
      for (std::size_t i = 0; i < fields.size(); ++i) held.Add(rows.Field(i).text);
    }
  }
  const MemberRows& shown = form.State().rows;
  for (std::int32_t row = 1; row < MemberRows::kFirstItem + shown.Items(); ++row) {
    for (std::int32_t column = 1; column <= member_columns::kCount; ++column) {
      held.Add(shown.Text(column, row));
    }
  }
  return held;
}

Operation OpenForm(const std::string& path) {
  const auto stage = std::make_shared<FormStage>(path);
  return {[=] { stage->Open(); }, [=] { return HeldByForm(stage->form); },
          [=] { stage->form.Unload(); }};
}

void Measure(const char* name, int amount, const std::string& path, const std::u16string& statement,
             Operation (*operation)(const std::string& path)) {
  const Use raw = MeasureApart([&] { return KeepAnswer(path, statement); });
  const Use product = MeasureApart([&] { return operation(path); });
  Print(name, amount, product, raw);
}

}  // namespace

void MeasureMemory(const std::string& folder) {
  std::printf("%-12s  %8s  %8s  %8s  %8s  %8s  %8s  %8s\n", "operation", "amount", "peak", "raw",
              "added", "texts", "goal", "kept");
  const std::string million = MakeCompany(folder, 1000000, 20000);
  Measure("tree load", 1000000, million, statements::ClassTree(), LoadTree);
  Measure("grid load", 200000, MakeCompany(folder, 204000, 204000 / 50), statements::AllItems(),
          LoadGrid);
  Measure("grid load", 1000000, million, statements::AllItems(), LoadGrid);
  Measure("edit open", 50000, MakeCompany(folder, 50000, 1), statements::ItemsOfClass(kClass),
          OpenForm);
}

}  // namespace bench
