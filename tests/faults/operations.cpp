// The operations, in the order in which a user meets them.
#include "tests/faults/operations.h"

#include "control/update_price.h"
#include "tests/control/button.h"

namespace workbench {

using pricedown::FormField;
using pricedown::FormTool;

void FaultWorld::ResetCompany() {
  Run(u"delete from icPriceDownClass");
  Run(u"delete from ICPriceDownPrepare");
  Run(u"delete from t_voucher");
  Run(u"delete from t_UserProfile");
  InsertClass(u"A1", u"原材料", {1, 2, 3});
  InsertClass(u"B1", u"成品", {4, 5});
  AddProvision(1, 2008, 3, 5);
  AddProvision(4, 2008, 3, 7);
  questions.ForgetAnswers();
  pickers->items.clear();
  editor.whileShown = {};
  state = {};
  log.Clear();
}

void FaultWorld::OpenControl() {
  auto fresh = std::make_unique<CountedOutput>(windows);
  control = std::make_unique<pricedown::PriceDown>(
      pricedown::PriceDownPorts{factory, state, questions, screen, container, window, treeView,
                                fontView, u"Host", nullptr, editor, *fresh});
  // The previous control still used the previous one.
  paper = std::move(fresh);
  control->Initialize();
  control->Show(nullptr);
}

namespace {

const std::string kClassA =
    "A1|原材料|1|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|2|1051|5711|1023|1281.1|12.5\n"
    "A1|原材料|3|1051|5711|1023|1281.1|12.5\n";
const std::string kClassB =
    "B1|成品|4|1051|5711|1023|1281.1|12.5\n"
    "B1|成品|5|1051|5711|1023|1281.1|12.5\n";

void AddClass(FaultWorld& world) {
  world.Command(u"Add", [&] {
    world.Type(u"C1", u"包装物", u"3.25");
    world.Pick({7, 8});
    world.editor.Click(FormTool::Save);
  });
}

void Rename(FaultWorld& world) {
  world.Command(u"Edit", [&] {
    world.Type(FormField::ClassNumber, u"A2");
    world.Type(FormField::ClassName, u"材料");
    world.editor.Click(FormTool::Save);
  });
}

void SaveWhileClosing(FaultWorld& world) {
  world.questions.WillAnswer({true});
  world.Command(u"Edit", [&] {
    world.Type(FormField::Percentage, u"8.25");
    world.editor.Click(FormTool::Exit);
  });
}

void RemoveItems(FaultWorld& world) {
  world.Command(u"Edit", [&] {
    // As many of them as were copied into the list.
    std::vector<std::int32_t> rows{2, 3};
    std::erase_if(rows,
                  [&](std::int32_t row) { return row > world.editor.list.Rows().Items() + 1; });
    world.Remove(rows);
    world.editor.Click(FormTool::Save);
  });
}

void LookUpAccount(FaultWorld& world) {
  world.pickers->accounts.push_back(u"1281.1");
  world.Command(u"Edit", [&] { world.editor.Shown().LookupRequested(FormField::LossAccount); });
}

void Delete(FaultWorld& world, bool answer) {
  world.questions.WillAnswer({answer});
  world.control->delRecord();
}

void ChangeFontInPreview(FaultWorld& world) {
  world.paper->onPreview = [](pricedown::PrintDocument& document) { document.font.size = 14; };
  world.control->PreviewPara();
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"Start", [](FaultWorld& world) { world.OpenControl(); }},
      {"SelectClass", [](FaultWorld& world) { world.Select(u"B1"); }},
      {"Reload",
       [](FaultWorld& world) { world.control->CommandChosen(pricedown::testing::Button(u"sp2")); }},
      {"Activate", [](FaultWorld& world) { world.control->NotifyMessage(u"Activate"); }},
      {"HideToolStrip",
       [](FaultWorld& world) {
         const auto tool = std::make_shared<pricedown::CommandBarTool>(
             pricedown::CommandBarTool::Definition{u"iToolBar", {}, {}, {}});
         world.control->ParentWindow_ToolBarClick(tool);
       }},
      {"Resize", [](FaultWorld& world) { world.control->Resized(); }},
      {"AddClass", AddClass},
      {"RenameClass", Rename, {}, {}, true},
      {"SaveWhileClosing", SaveWhileClosing, {}, {}, true},
      // Provisions of removed items are deleted at once, item by item; the save writes the class.
      {"RemoveItems", RemoveItems, {kClassA + kClassB + "4|2008|3|7\n"}, {}, true},
      {"LookUpAccount", LookUpAccount},
      // Provisions are deleted first.
      {"DeleteClass",
       [](FaultWorld& world) { Delete(world, true); },
       {kClassA + kClassB + "4|2008|3|7\n"}},
      {"AnswerNoToDelete", [](FaultWorld& world) { Delete(world, false); }},
      {"RefusedDelete",
       [](FaultWorld& world) { Delete(world, true); },
       {},
       [](FaultWorld& world) { world.AddVoucher(); }},
      {"Print", [](FaultWorld& world) { world.control->PrintPara(); }},
      {"ChangeFontInPreview", ChangeFontInPreview},
      {"ReadItemClassType",
       [](FaultWorld& world) { pricedown::UpdatePrice(world.factory).ReadItemClassType(); }},
      {"End", [](FaultWorld& world) { world.control->Terminate(); }},
  };
  return operations;
}

}  // namespace workbench
