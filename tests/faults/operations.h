// What users and hosts do with the control, each as it runs without failures on the class company.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/integration/control_fixture.h"

namespace workbench {

// A ledger whose calls can fail like those of a window.
class CountedLedger : public pricedown::testing::PageKeeper {
 public:
  explicit CountedLedger(pricedown::testing::RecorderPtr recorder)
      : recorder_(std::move(recorder)) {}
  void SetLineTypeface(const pricedown::LineTypeface& typeface) override {
    recorder_->QuietCall("ledger lines", u"ledger");
    PageKeeper::SetLineTypeface(typeface);
  }
  void SetHeaderLine(std::int32_t line, std::u16string_view text,
                     const pricedown::LineFont& font) override {
    recorder_->QuietCall("ledger header", u"ledger");
    PageKeeper::SetHeaderLine(line, text, font);
  }
  void SetFooterLine(std::int32_t line, std::u16string_view text,
                     const pricedown::LineFont& font) override {
    recorder_->QuietCall("ledger footer", u"ledger");
    PageKeeper::SetFooterLine(line, text, font);
  }
  void Preview() override {
    recorder_->QuietCall("ledger preview", u"ledger");
    PageKeeper::Preview();
  }
  void Print() override {
    recorder_->QuietCall("ledger print", u"ledger");
    PageKeeper::Print();
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
  std::unique_ptr<CountedLedger> paper;
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
