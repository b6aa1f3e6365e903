// What the keys of the command bar and of the tool strip do, and the right that each one needs.
// Nothing is trapped here: a failing command reaches whoever clicked.
#include <array>

#include "control/price_down.h"
#include "platform/convert.h"
#include "platform/error.h"

namespace pricedown {
namespace {

// All rights are checked on this object.
constexpr std::int32_t kRightsObjectType = 1002;
constexpr std::int32_t kRightsObjectNumber = 35;

struct StripCommand {
  std::u16string_view key;
  std::int32_t accessMask;
  Value (PriceDown::*run)();
};

constexpr std::array<StripCommand, 5> kStripCommands{{
    {u"Print", 0x8000, &PriceDown::PrintPara},
    {u"PrintView", 0x8000, &PriceDown::PreviewPara},
    {u"Add", 0x20000, &PriceDown::addRecord},
    {u"Edit", 0x400000, &PriceDown::editRecord},
    {u"Del", 0x10000, &PriceDown::delRecord},
}};

}  // namespace

void PriceDown::ParentWindow_ToolBarClick(const ObjectPtr& tool) { CommandBarToolClicked(tool); }

void PriceDown::CommandBarToolClicked(const ObjectPtr& tool) {
  if (terminated_) return;
  const ObjectPtr clicked = RequireObject(Value(tool), u"Tool");
  const std::u16string key = ToText(clicked->Get(u"Name"));
  // The host was asked, and may have closed the control.
  if (terminated_) return;
  if (key == u"iPrint") {
    PrintPara();
  } else if (key == u"iPrintPreView") {
    PreviewPara();
  } else if (key == u"iExit") {
    CloseContainer();
  } else if (key == kToolStripTool) {
    ToggleToolStrip(clicked);
  } else if (key == kRefreshTool) {
    tree_.RefreshCurrentNode();
  } else if (key == kInsertTool) {
    ClassToolClicked(key, u"Add");
  } else if (key == kEditTool) {
    ClassToolClicked(key, u"Edit");
  } else if (key == kCutTool) {
    ClassToolClicked(key, u"Del");
  } else if (key == kStatusBarTool) {
    // The host has changed its state; the control only follows it.
    LayOutForState(clicked, kStatusBarTool);
  }
}

void PriceDown::CommandBarToolChosen(std::u16string_view name) {
  if (const std::shared_ptr<CommandBarTool> tool = bar_->Tool(name)) {
    tool->Click();
  } else {
    CommandBarToolClicked(std::make_shared<CommandBarTool>(
        CommandBarTool::Definition{std::u16string(name), {}, {}, {}}));
  }
}

bool PriceDown::IsCommandBarToolEnabled(std::u16string_view name) const {
  const std::shared_ptr<CommandBarTool> tool = bar_->Tool(name);
  return tool == nullptr || tool->Enabled();
}

// A host may forward a click on a tool that it shows enabled although the bar's is not.
void PriceDown::ClassToolClicked(std::u16string_view tool, std::u16string_view button) {
  if (bar_->Tool(tool)->Enabled()) ToolStripButtonClicked(button);
}

void PriceDown::ToolStripButtonClicked(std::u16string_view key) {
  if (terminated_) return;
  // A command may show a window, and the host may close the control's meanwhile.
  const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
  RunStripCommand(key);
  // The command may have ended the control.
  if (terminated_) return;
  // On purpose also after a refused right and for keys without a command.
  LoadTree();
  grid_.Cells().Repaint();
}

void PriceDown::RunStripCommand(std::u16string_view key) {
  if (key == u"Exit") {
    CloseContainer();
    return;
  }
  for (const StripCommand& command : kStripCommands) {
    if (key != command.key) continue;
    if (environment_.rights.Check(kRightsObjectType, kRightsObjectNumber, command.accessMask)) {
      (this->*command.run)();
    }
    return;
  }
}

void PriceDown::CloseContainer() { ports_.container.Close(); }

void PriceDown::ToggleToolStrip(const ObjectPtr& tool) {
  tool->Put(u"Checked", !ToBoolean(tool->Get(u"Checked")));
  LayOutForState(tool, kToolStripTool);
}

// The clicked tool may be the host's own of that name; the layout reads the bar's.
void PriceDown::LayOutForState(const ObjectPtr& tool, std::u16string_view name) {
  const bool checked = ToBoolean(tool->Get(u"Checked"));
  bar_->Add({std::u16string(name), {}, {}, {}})->SetChecked(checked);
  // The host was told, and may have closed the control.
  if (!terminated_) LayOut();
}

Value PriceDown::addRecord() {
  if (!terminated_) commands_.Add();
  return {};
}

Value PriceDown::editRecord() {
  if (!terminated_) commands_.Edit();
  return {};
}

Value PriceDown::delRecord() {
  if (!terminated_) commands_.Delete();
  return {};
}

}  // namespace pricedown
