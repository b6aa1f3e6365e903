// The control's creation and end.
#include "control/price_down.h"

#include <utility>

#include "control/update_price.h"
#include "env/language.h"
#include "env/system_profile.h"
#include "env/translation.h"
#include "env/user_settings.h"
#include "env/wait_cursor.h"
#include "platform/convert.h"
#include "platform/first_failure.h"
#include "platform/skip.h"
#include "platform/text.h"

namespace pricedown {
PriceDown::PriceDown(PriceDownPorts ports)
    : ports_(std::move(ports)),
      environment_(ports_.factory, ports_.state, ports_.questions, ports_.screen,
                   ports_.application, ports_.lifetime),
      grid_(environment_, browser_),
      tree_(environment_, browser_, ports_.treeView, grid_),
      commands_(environment_, browser_, tree_, ports_.editor),
      find_(ports_.view, grid_.GetGrid(), tree_),
      font_(environment_, document_, grid_.GetGrid(), ports_.fontView),
      printing_(environment_, grid_.GetGrid(), document_, ports_.printOutput, font_),
      commandBar_(std::make_shared<CommandBar>(ports_.lifetime)) {
  environment_.events = ports_.events;
  commandBar_->OnClick([this](const std::shared_ptr<CommandBarTool>& tool) {
    const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
    RunTool(tool->Fixed().name, tool);
  });
  ++ports_.state.controls;
}

PriceDown::~PriceDown() { Terminate(); }

void PriceDown::Initialize() {
  FirstFailure steps;
  steps.Run([&] { LoadControlTexts(ports_.factory, ports_.form); });
  steps.Run([&] { ReadFullNumber(); });
  {
    const WaitCursor wait(ports_.screen);
    steps.Run([&] { ReadCurrentPeriod(ports_.factory, ports_.state); });
    steps.Run([&] { grid_.Prepare(); });
    steps.Run([&] { ModelCurrent(); });
    steps.Run([&] { DisableClassCommands(); });
    steps.Run([&] { LayOut(); });
    steps.Run([&] { SetPeriodLabel(); });
    steps.Run([&] { SetTitleFont(); });
  }
  steps.Rethrow();
}

// The flag says that short numbers are not in use.
void PriceDown::ReadFullNumber() {
  browser_.fullNumber = true;
  const Value useShortNumber = SystemSetting(ports_.factory, u"IC", u"UseShortNumber");
  browser_.fullNumber = LeadingNumber(useShortNumber) == 0;
}

void PriceDown::DisableClassCommands() {
  if (browser_.ByItemClass()) return;
  classesLocked_ = true;
  FirstFailure steps;
  for (const ControlCommand& command : ControlCommands()) {
    if (!command.changesClasses) continue;
    steps.Run([&] { ports_.view.DisableButton(command); });
    steps.Run([&] { commandBar_->Tool(command.tool)->DisableForGood(); });
  }
  steps.Rethrow();
}

void PriceDown::SetPeriodLabel() {
  const ThreadState& state = ports_.state;
  std::u16string text;
  if (state.periodKnown) {
    text = Concatenate({NumberText(state.currentYear), Translate(u"年第"),
                        NumberText(state.currentPeriod), Translate(u"期")});
  }
  ports_.view.SetPeriod(text);
}

void PriceDown::SetTitleFont() {
  FirstFailure steps;
  Font font;
  font.name.clear();
  steps.Run([&] { ReadFontProperties(ports_.factory, font); });
  font.size = kTitlePoints;
  steps.Run([&] { ports_.view.SetTitleFont(font); });
  steps.Rethrow();
}

Value PriceDown::ModelCurrent() {
  if (HasEnded()) return {};
  UpdatePrice price(ports_.factory);
  price.ReadItemClassType();
  browser_.itemClassType = price.ItemClassType();
  return {};
}

void PriceDown::Terminate() {
  if (!environment_.lifetime.End()) return;
  // Nothing reaches the host after this.
  if (const auto events = std::exchange(environment_.events, nullptr)) {
    ports_.screen.SetPainting(true);
    events->Closing();
  }
  SkipFailing([&] { SaveSelection(); });
  // Moved out first: releasing the last reference may call back into the control.
  std::exchange(parentWindow_, nullptr).reset();
  std::exchange(ports_.form, nullptr).reset();
  browser_.classRecordset.Release();
  --ports_.state.controls;
  ports_.state.ReleaseUnusedLedger();
  commandBar_->Detach();
  SkipFailing([&] { grid_.Release(); });
}

void PriceDown::SaveSelection() {
  const std::u16string key = tree_.SelectedKey();
  if (key.empty() || treeSelectionKey_.empty()) return;
  SaveUserSetting(ports_.factory, ports_.application, treeSelectionKey_, key);
}

}  // namespace pricedown
