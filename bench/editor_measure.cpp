// Opening, saving and removing, and the text of a save, each against the raw work in it.
// Raw is stepping the query with SQLite, sending the finished texts, and copying the text's bytes.
#include "bench/editor_measure.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "bench/measure.h"
#include "bench/raw_company.h"
#include "bench/stage.h"
#include "editor/item_class_form.h"
#include "editor/record_copy.h"
#include "editor/save.h"
#include "env/system_profile.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"
#include "workbench/sample/company_file.h"

namespace bench {
namespace {

using namespace pricedown;

constexpr int kRepetitions = 5;
constexpr std::u16string_view kClass = u"00001";
constexpr std::int32_t kRemoved = 100;

constexpr const char* kMembersQuery =
    "SELECT ifnull(t1.FNumber,'') AS FNumber,ifnull(t1.FShortNumber,'') AS FShortNumber,t1.FName,"
    "ifnull(t1.FModel,'') AS FModel,t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,t2.FAPAccID,"
    "t2.FAPNumber,t2.FARAccID,t2.FARNumber,t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2 "
    "WHERE t1.Fitemid=t2.Fitemid AND t1.FErpClsID NOT IN(6,8) AND t2.FItemClassNumber='00001' "
    "ORDER BY t1.FNumber ASC";

class SilentUser final : public UserQuestions, public Screen {
 public:
  void Tell(std::u16string_view, std::u16string_view, MessageIcon) override { ++told; }
  bool Confirm(std::u16string_view, std::u16string_view, MessageIcon) override { return false; }
  void SetMousePointer(MousePointer) noexcept override {}
  void RunPendingMessages() override {}
  double TwipsPerPixelY() const override { return 15; }

  int told = 0;
};

class SilentFields final : public ItemClassFormView {
 public:
  std::u16string Text(FormField field) const override {
    return texts_[static_cast<std::size_t>(field)];
  }
  void SetText(FormField field, std::u16string_view text) override {
    texts_[static_cast<std::size_t>(field)] = text;
  }
  void Focus(FormField) override {}
  void SetCaption(FormCaption, std::u16string_view) override {}
  void SetToolTexts(FormTool, std::u16string_view, std::u16string_view) override {}
  void SetToolEnabled(FormTool, bool) override {}
  ObjectPtr FormObject() override { return nullptr; }
  void Unload() override {}

 private:
  std::array<std::u16string, kFormFields.size()> texts_;
};

// Asks for all its rows when it is told to, as a real grid does before it is painted.
class SilentGrid final : public MemberGridView {
 public:
  void SetColumnWidth(std::int32_t, std::int32_t) override {}
  std::int32_t RowCount() const override { return count_; }
  void SetRowCount(std::int32_t count) override {
    count_ = count;
    due_ = true;
  }
  void Reload() override { due_ = true; }
  std::vector<std::int32_t> SelectedRows() const override { return selected; }
  std::u16string Text(std::int32_t, std::int32_t row) const override {
    const std::u16string& text = rows_[static_cast<std::size_t>(row) - 1];
    return text.substr(0, text.find(u'|'));
  }
  void Paint(ItemClassForm& form) {
    if (!std::exchange(due_, false)) return;
    rows_.clear();
    for (std::int32_t row = 1; row <= count_; ++row) rows_.push_back(form.RowRequested(row));
  }

  std::vector<std::int32_t> selected;

 private:
  std::int32_t count_ = 0;
  bool due_ = false;
  std::vector<std::u16string> rows_;
};

// A form on the one class of a company.
class FormStage {
 public:
  explicit FormStage(const std::string& path) : company(path), stage_(MakeStage(path)) {}

  // What the edit command and the window do until the user sees the rows.
  void Open() {
    const Recordset rows = Connection(Factory()).Execute(statements::ItemsOfClass(kClass));
    form.SetMode(0);
    form.SetOpeningNumber(std::u16string(kClass));
    form.SetMemberList(CopyRecords(Factory(), rows));
    form.SetSecondRecordSet(CopyRecords(Factory(), form.MemberList()));
    form.Load();
    grid.Paint(form);
  }
  void Click(std::u16string_view key) {
    form.ToolClicked(key);
    grid.Paint(form);
  }
  void Send(const std::u16string& text) { Connection(Factory()).Execute(text); }
  ObjectFactory& Factory() { return stage_->Factory(); }

  RawCompany company;

 private:
  std::unique_ptr<Stage> stage_;
  ProcessState process_;
  SilentFields fields_;

 public:
  SilentUser user;
  Environment environment{Factory(), process_, user, user, u"pricedown_bench"};
  SilentGrid grid;
  ItemClassForm form{environment, fields_, grid};
};

std::string MakeClass(const std::string& folder, int members) {
  const std::string path = folder + "/bench-class-" + std::to_string(members) + ".db";
  if (!std::filesystem::exists(path)) {
    workbench::CompanyFilePlan plan;
    plan.large = workbench::LargeCompanyPlan{1, members, 1};
    workbench::CreateCompanyFile(path, plan);
  }
  return path;
}

Timing MeasureOpening(FormStage& stage) {
  return Compare(
      [&] {
        stage.form.Unload();
        stage.Open();
      },
      [&] { stage.company.Step(kMembersQuery, [](auto, auto) {}); }, kRepetitions);
}

Timing MeasureText(FormStage& stage) {
  stage.form.MemberList().MoveFirst();
  const std::u16string text = SaveText(stage.form.State());
  // Both keep their last text, so that both find the allocator in the same state.
  std::u16string built;
  std::u16string copy;
  return Compare(
      [&] {
        stage.form.MemberList().MoveFirst();
        built = SaveText(stage.form.State());
      },
      [&] { copy = std::u16string(text); }, 4 * kRepetitions + 1);
}

Timing MeasureSaving(FormStage& stage) {
  stage.form.MemberList().MoveFirst();
  const std::u16string text = SaveText(stage.form.State());
  return Compare([&] { stage.Click(u"Save"); }, [&] { stage.Send(text); }, kRepetitions);
}

// A fixed number of items from lists of growing size; raw are their statements alone. No item of
// the class has history when its period is the first, so that all of them may go.
Timing MeasureRemoving(FormStage& stage) {
  stage.grid.selected.clear();
  for (std::int32_t row = 2; row < 2 + kRemoved; ++row) stage.grid.selected.push_back(row);
  const auto [year, period] = ReadYearAndPeriod(stage.Factory(), u"IC");
  const auto sendAll = [&, year = year, period = period] {
    for (const std::int32_t row : stage.grid.selected) {
      const std::u16string code = stage.grid.Text(member_columns::kCode, row);
      stage.Send(statements::ItemHistory(year, period, code));
      stage.Send(statements::ProvisionVoucher(year, period));
      stage.Send(statements::ItemCurrentAmounts(year, period, code));
      stage.Send(
          statements::DeleteItemProvision(year, period, code, statements::DeleteForm::TwoBlanks));
    }
  };
  return Compare([&] { stage.Click(u"DelItem"); }, sendAll, kRepetitions);
}

}  // namespace

void MeasureEditor(const std::string& folder) {
  std::array<std::optional<Timing>, 4> last;
  for (const int members : {12500, 25000, 50000}) {
    FormStage stage(MakeClass(folder, members));
    // Nobody's history counts in an early period.
    stage.Factory().Create(u"ZEPWorkbench.Settings")->Put(u"CurrentYear", u"1990");
    const auto report = [&](std::size_t place, const char* what, const Timing& timing) {
      const auto rows = static_cast<std::size_t>(stage.form.MemberList().RecordCount());
      Report(what, rows, timing, last[place] ? &*last[place] : nullptr);
      last[place] = timing;
    };
    report(0, "open class", MeasureOpening(stage));
    report(1, "save text", MeasureText(stage));
    report(2, "save class", MeasureSaving(stage));
    report(3, "remove 100", MeasureRemoving(stage));
    if (stage.user.told > 0) std::printf("%d refusals: the figures are wrong\n", stage.user.told);
    stage.form.Unload();
  }
}

}  // namespace bench
