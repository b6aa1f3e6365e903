// Opening, saving and removing, and building the text of a save, each against its raw work: reading
// the same statement through the suite, sending the finished texts, and copying the text's bytes.
// Opening, saving and the text also against the calls to the suite that they cannot do without.
#include "bench/editor_measure.h"

#include <functional>
#include <utility>

#include "bench/companies.h"
#include "bench/form_stage.h"
#include "bench/raw_editor.h"
#include "bench/raw_suite.h"
#include "editor/item_class_form.h"
#include "editor/record_copy.h"
#include "editor/save.h"
#include "env/system_profile.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace bench {
namespace {

using namespace pricedown;

constexpr int kRepetitions = 5;
constexpr std::int32_t kRemoved = 100;

Timing MeasureOpening(FormStage& stage, const std::function<void()>& raw) {
  return Compare(
      [&] {
        stage.form.Unload();
        stage.Open();
      },
      raw, kRepetitions);
}

std::u16string TextOfSave(FormStage& stage) {
  stage.form.MemberList().MoveFirst();
  return SaveText(stage.form.State());
}

Timing MeasureText(FormStage& stage, const std::function<void()>& readRaw) {
  const std::u16string text = TextOfSave(stage);
  // Both keep their last text, so that both find the allocator in the same state.
  std::u16string built;
  std::u16string copy;
  return Compare([&] { built = TextOfSave(stage); },
                 [&] {
                   readRaw();
                   copy = std::u16string(text);
                 },
                 4 * kRepetitions + 1);
}

Timing MeasureSaving(FormStage& stage, const std::function<void(const std::u16string& text)>& raw) {
  const std::u16string text = TextOfSave(stage);
  return Compare([&] { stage.Click(FormTool::Save); }, [&] { raw(text); }, kRepetitions);
}

// Removes a fixed number of items from lists of growing size; the raw side runs their statements
// only. In the first period no item has history, so all of them may be removed.
Timing MeasureRemoving(FormStage& stage) {
  stage.list.selected.clear();
  for (std::int32_t row = 2; row < 2 + kRemoved; ++row) stage.list.selected.push_back(row);
  const auto [year, period] = ReadYearAndPeriod(stage.Factory(), u"IC");
  const auto sendAll = [&, year = year, period = period] {
    for (const std::int32_t row : stage.list.selected) {
      const std::u16string code(stage.form.State().rows.Text(member_columns::kCode, row));
      stage.Send(statements::ItemHistory(year, period, code));
      stage.Send(statements::ProvisionVoucher(year, period));
      stage.Send(statements::ItemCurrentAmounts(year, period, code));
      stage.Send(
          statements::DeleteItemProvision(year, period, code, statements::DeleteForm::TwoBlanks));
    }
  };
  return Compare([&] { stage.Click(FormTool::DelItem); }, sendAll, kRepetitions);
}

}  // namespace

void MeasureEditor(const std::string& folder, Figures& figures) {
  for (const int members : {500, 12500, 25000, 50000}) {
    FormStage stage(CopyCompany(MakeCompany(folder, members, 1), "edit"));
    // In an early period no history counts.
    stage.Factory().Create(u"ZEPWorkbench.Settings")->Put(u"CurrentYear", u"1990");
    const auto add = [&](const char* operation, const Timing& timing) {
      figures.Add(operation, static_cast<std::size_t>(stage.form.MemberList().RecordCount()),
                  timing);
    };
    ObjectFactory& factory = stage.Factory();
    add("edit open", MeasureOpening(stage, [&] { WalkMembers(factory, kClass); }));
    add("edit open, calls", MeasureOpening(stage, [&] { OpenMembers(factory, kClass); }));
    add("save text", MeasureText(stage, [] {}));
    add("save text, calls", MeasureText(stage, [&] { ReadSavedColumns(stage.form.MemberList()); }));
    add("save", MeasureSaving(stage, [&](const auto& text) { stage.Send(text); }));
    add("save, calls", MeasureSaving(stage, [&](const auto& text) {
          SaveMembers(factory, stage.form.MemberList(), kClass, stage.Text(FormField::LossAccount),
                      text);
        }));
    // Enough for every repetition.
    if (members > 2 * kRepetitions * kRemoved) add("remove 100", MeasureRemoving(stage));
    stage.user.RequireNoMessages();
    stage.form.Unload();
  }
}

}  // namespace bench
