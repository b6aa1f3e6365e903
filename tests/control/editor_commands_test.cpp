// Dispatch around the editor: rights before it, the reload after it, and the control's end while it
// is shown.
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

// The editor's tests have the calls of loading the form.
TEST_F(Dispatch, ReloadsTheTreeAndRepaintsTheGridAfterTheEditor) {
  Start();
  std::size_t atTheEnd = 0;
  world_.editor.whileShown = [&] { atTheEnd = world_.log.Size(); };
  const auto behind = [&] {
    std::string text;
    for (std::size_t i = atTheEnd; i < world_.log.Size(); ++i) text += world_.log.Lines()[i] + "\n";
    return text;
  };
  const std::string closing =
      "release ADODB.Recordset\nrelease ADODB.Recordset\nunload\neditor closed\n";
  Control().CommandChosen(Button(u"Add"));
  EXPECT_TRUE(world_.log.Text().starts_with(
      "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 131072)\neditor form\n"));
  EXPECT_EQ(behind(), closing + Reload());
  world_.log.Clear();
  Control().CommandChosen(Button(u"Edit"));
  EXPECT_TRUE(world_.log.Text().starts_with(
      "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 4194304)\neditor form\n"));
  // The previous rows are painted again without a query.
  EXPECT_EQ(behind(), closing + Reload());
}

TEST_F(Dispatch, ReloadsNothingForTheHostsOwnCalls) {
  Start();
  EXPECT_EQ(Control().addRecord(), Value());
  EXPECT_EQ(Control().editRecord(), Value());
  EXPECT_EQ(world_.log.Count("editor closed"), 2u);
  EXPECT_EQ(world_.log.Lines().back(), "editor closed");
  EXPECT_EQ(world_.log.Count("tree redraw off"), 0u);
}

TEST_F(Dispatch, AsksForAClassInASecondEditAndReloadsAnyway) {
  Start();
  Control().CommandChosen(Button(u"Edit"));
  world_.log.Clear();
  Control().CommandChosen(Button(u"Edit"));
  EXPECT_EQ(world_.log.Text(),
            "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 4194304)\n"
            "message information \"岚禾提示\": \"请选择要修改的物料类别\"\n" +
                Reload());
  world_.log.Clear();
  Control().CommandChosen(Button(u"Del"));
  EXPECT_EQ(world_.log.Text(),
            "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536)\n"
            "message information \"岚禾提示\": \"请选择要删除的物料类别\"\n" +
                Reload());
  Control().NodeClicked(2);
  Control().CommandChosen(Button(u"Edit"));
  EXPECT_EQ(world_.log.Count("editor closed"), 1u);
}

TEST_F(Dispatch, OpensTheEditorForTheHostsToolsThroughTheStrip) {
  Start();
  world_.company.grantedMasks = " 4194304 ";
  Click(u"iInsert");
  EXPECT_EQ(world_.log.Count("editor closed"), 0u);
  Click(u"iEdit");
  EXPECT_EQ(world_.log.Count("editor show mode 0 \"01\""), 1u);
}

TEST_F(Dispatch, TouchesNothingWhenTheControlEndedDuringTheEditor) {
  for (const std::u16string_view key : {u"Add", u"Edit"}) {
    ControlWorld world;
    world.CreateAndInitialize();
    world.control->Show(nullptr);
    world.editor.whileShown = [&] { world.control->Terminate(); };
    world.control->CommandChosen(Button(key));
    EXPECT_EQ(world.log.Lines().back(), "editor closed") << Utf8(key);
    EXPECT_EQ(world.factory.LiveObjects(), 0) << Utf8(key);
  }
}

// The host releases the control while its editor is open; the click keeps it alive to its end.
TEST_F(Dispatch, LivesAsLongAsAClickOnItsBarThatShowsTheEditor) {
  std::shared_ptr<PriceDown> owner;
  world_.hold = [&]() -> std::shared_ptr<void> { return owner; };
  Start();
  Control().GetGrid().Attach(nullptr);
  owner = std::move(world_.control);
  const std::shared_ptr<CommandBar> bar = owner->BarList();
  const std::weak_ptr<PriceDown> watch = owner;
  world_.editor.whileShown = [&] { owner.reset(); };
  bar->Click(u"iInsert");
  EXPECT_EQ(world_.log.Count("tree redraw off"), 1u);
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(world_.factory.LiveObjects(), 0);
}

TEST_F(Dispatch, MayBeDestroyedWhileTheHostsOwnCallShowsTheEditor) {
  for (const auto command : {&PriceDown::addRecord, &PriceDown::editRecord}) {
    ControlWorld world;
    world.CreateAndInitialize();
    world.control->Show(nullptr);
    world.editor.whileShown = [&] { world.control.reset(); };
    PriceDown& control = *world.control;
    (control.*command)();
    EXPECT_EQ(world.log.Lines().back(), "editor closed");
    EXPECT_EQ(world.factory.LiveObjects(), 0);
  }
}

TEST_F(Dispatch, DoesNothingAfterItsEnd) {
  Start();
  Control().GetGrid().Attach(nullptr);
  Control().Terminate();
  world_.log.Clear();
  Control().addRecord();
  Control().editRecord();
  Control().CommandChosen(Button(u"Add"));
  EXPECT_EQ(world_.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
