// What users and hosts do with the control, each as it runs without failures on the class company.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/integration/control_fixture.h"

namespace workbench {

// An output whose calls can fail like those of a window.
class CountedOutput : public pricedown::testing::PageKeeper {
 public:
  explicit CountedOutput(pricedown::testing::RecorderPtr recorder)
      : recorder_(std::move(recorder)) {}
  void Preview(pricedown::PrintDocument& document) override {
    recorder_->QuietCall("output preview", u"output");
    PageKeeper::Preview(document);
  }
  void Print(const pricedown::PrintDocument& document) override {
    recorder_->QuietCall("output print", u"output");
    PageKeeper::Print(document);
  }

 private:
  pricedown::testing::RecorderPtr recorder_;
};

class FaultWorld : public ControlOnCompany {
 public:
  void TestBody() override {}

  // The classes and provisions that each run begins with.
  void ResetCompany();
  // Ends the previous control.
  void OpenControl();
  std::string Rows() { return Classes() + Provisions(); }

  // Lets the operations act as the fixture's user.
  using ControlOnCompany::AddVoucher;
  using ControlOnCompany::Command;
  using ControlOnCompany::control;
  using ControlOnCompany::editor;
  using ControlOnCompany::factory;
  using ControlOnCompany::GridCodes;
  using ControlOnCompany::log;
  using ControlOnCompany::Pick;
  using ControlOnCompany::pickers;
  using ControlOnCompany::questions;
  using ControlOnCompany::recorder;
  using ControlOnCompany::Remove;
  using ControlOnCompany::Run;
  using ControlOnCompany::Select;
  using ControlOnCompany::state;
  using ControlOnCompany::Type;
  using ControlOnCompany::windows;
  std::unique_ptr<CountedOutput> paper;
};

struct Operation {
  std::string name;
  // On an open control with class A1 selected. Throws what the control throws.
  std::function<void(FaultWorld&)> run;
  // The rows that may remain after a failure, in the form of Rows().
  std::vector<std::string> halfway = {};
  std::function<void(FaultWorld&)> prepare = {};
  // By design the form works on a copy of the class's rows that ignores failures: a save may then
  // lack rows, but each row is either an old or a new one.
  bool copiesRows = false;
};

// GoogleTest's printer.
inline void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

const std::vector<Operation>& Operations();

}  // namespace workbench
