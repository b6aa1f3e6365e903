// The control's first display and the host's messages afterwards. The display skips steps that
// fail.
#include "browser/select_block.h"
#include "control/price_down.h"
#include "env/translation.h"
#include "env/user_settings.h"
#include "env/wait_cursor.h"
#include "platform/convert.h"
#include "platform/scope_exit.h"
#include "platform/skip.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kMaintenanceTitle = u"物料类别维护";
constexpr std::u16string_view kMergeOperation = u"MergeToolBar";

struct DisplayMode {
  std::int32_t objectType;
  std::u16string_view treeSelectionKey;
};

constexpr DisplayMode kMaintenance{10, u"NodeSel1"};
constexpr DisplayMode kOther{11, u"NodeSel2"};

}  // namespace

bool PriceDown::Show(const Value& parentWindow) {
  // Pending messages may close the host's window, and with it the control.
  const auto step = [&](auto&& run) {
    if (!HasEnded()) SkipFailing(run);
  };
  step([&] { ReadCaption(); });
  step([&] { KeepParent(parentWindow); });
  // Each of the next steps changes what those before would have painted.
  ports_.screen.SetPainting(false);
  const ScopeExit paintOnce([&] { ports_.screen.SetPainting(true); });
  step([&] { LoadTree(); });
  step([&] { environment_.rights.ReadDataScope(); });
  step([&] { grid_.ApplyScopeLock(); });
  step([&] { ports_.screen.RunPendingMessages(); });
  step([&] { RestoreSelection(); });
  step([&] { RestoreFont(); });
  return true;
}

void PriceDown::ReadCaption() {
  SkipFailing([&] { title_ = Translate(Trim(ports_.container.Caption())); });
  const DisplayMode& mode = title_ == Translate(kMaintenanceTitle) ? kMaintenance : kOther;
  ports_.state.objectType = mode.objectType;
  treeSelectionKey_ = mode.treeSelectionKey;
  ports_.view.SetTitle(title_);
}

void PriceDown::KeepParent(const Value& parentWindow) {
  const Value& parent = parentWindow.Resolved();
  if (!parent.Is(Value::Kind::Object) || parent.Object() == nullptr) return;
  parentWindow_ = parent.Object();
  SkipFailing([&] { RefreshToolbar(); });
  ports_.screen.RunPendingMessages();
}

void PriceDown::LoadTree() {
  const WaitCursor wait(ports_.screen);
  tree_.LoadClassTree();
}

void PriceDown::RestoreSelection() {
  const Value key =
      ReadUserSetting(ports_.factory, ports_.application, treeSelectionKey_, NodeId{}.Key());
  tree_.RestoreSelection(ToText(key));
}

void PriceDown::RestoreFont() {
  const std::u16string settings =
      ToText(ReadUserSetting(ports_.factory, ports_.application, kGridFontKey, u""));
  if (settings.empty()) {
    font_.Refresh();
  } else {
    font_.Restore(settings);
  }
}

void PriceDown::NotifyMessage(std::u16string_view message) {
  // "QueryUnload" and "FirstShow" ask for nothing.
  if (!HasEnded() && message == u"Activate") font_.Refresh();
}

void PriceDown::RefreshToolbar() {
  // A separate reference, because merging may end the control.
  const ObjectPtr parent = parentWindow_;
  if (parent != nullptr) parent->CallForEffect(kMergeOperation, {Value(ObjectPtr(commandBar_))});
}

void PriceDown::SelBlock(const ObjectPtr& grid, const Value& column, const Value& column2,
                         const Value& row, const Value& row2) {
  if (!HasEnded()) SelectBlock(grid, column, column2, row, row2);
}

void PriceDown::NodeClicked(NodeIndex node) {
  if (HasEnded()) return;
  find_.NodeClicked();
  tree_.NodeClick(node);
}

}  // namespace pricedown
