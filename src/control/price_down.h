// The core of the control `PriceDown`: creation, showing, host events, layout, commands.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "browser/class_commands.h"
#include "browser/class_tree.h"
#include "browser/display_font.h"
#include "browser/item_grid.h"
#include "browser/print_commands.h"
#include "control/command_bar.h"
#include "control/commands.h"
#include "control/find.h"
#include "control/splitter.h"
#include "control/status.h"
#include "control/views.h"
#include "env/environment.h"

namespace pricedown {

// Everything that a control needs from outside; all must outlive it.
struct PriceDownPorts {
  ObjectFactory& factory;
  ThreadState& state;
  UserQuestions& questions;
  Screen& screen;
  ContainerWindow& container;
  PriceDownView& view;
  ClassTreeView& treeView;
  FontView& fontView;
  std::u16string application;  // the host program's name
  // The control as the suite's form resources see it: its captions by name.
  ObjectPtr form;
  // The thread's one item class form.
  ItemClassEditor& editor;
  PrintOutput& printOutput;
  // Returns an object that keeps the control alive during a click on the bar, which a host starts
  // and which may release the last reference. May be empty.
  std::function<std::shared_ptr<void>()> hold = {};
  // Ended by Terminate.
  Lifetime lifetime = {};
  // May be null.
  std::shared_ptr<HostEvents> events = nullptr;
};

class PriceDown {
 public:
  explicit PriceDown(PriceDownPorts ports);
  ~PriceDown();
  PriceDown(const PriceDown&) = delete;
  PriceDown& operator=(const PriceDown&) = delete;

  // Creation. Runs every step even after a failure, so that the control is complete, then throws
  // the first failure.
  void Initialize();
  // Saves the selected node and releases every object of the suite and the host. Skips failing
  // steps; a no-op when called again. Requires: the tree's window still exists.
  void Terminate();

  // The public members, in the order of the control's interface. After Terminate they and the
  // events below are no-ops.
  void NotifyMessage(std::u16string_view message);
  void RefreshToolbar();
  bool Show(const Value& parentWindow);
  // Accepted from hosts and ignored.
  void SetShowMode(std::int16_t) {}
  void ParentWindow_ToolBarClick(const ObjectPtr& tool);
  void SelBlock(const ObjectPtr& grid, const Value& column, const Value& column2, const Value& row,
                const Value& row2);
  Value PreviewPara();
  Value PrintPara();
  Value ModelCurrent();
  Value addRecord();
  Value editRecord();
  Value delRecord();

  // Events of the control's own windows. Errors of commands are thrown as AutomationError.
  void Resized();
  // Computes the sizes that depend on the resolution again, without a call to the suite.
  void ResolutionChanged();
  void SplitterDown();
  void SplitterMoved(std::int32_t offset);  // twips from the splitter's resting left edge
  void SplitterUp();
  // Moves the splitter from the keyboard by one step.
  void StepSplitter(bool right);
  void NodeClicked(NodeIndex node);
  // By button, key or menu; a no-op while the command is disabled.
  void CommandChosen(const ControlCommand& command);
  bool IsEnabled(const ControlCommand& command) const;
  // A command of the user has failed.
  void CommandFailed(const Failure& failure);

  // Of the find bar; null once the control has ended.
  Find* Finding() { return HasEnded() ? nullptr : &find_; }

  // What the windows show and what hosts reach.
  Grid& GetGrid() { return grid_.GetGrid(); }
  const std::shared_ptr<CommandBar>& BarList() const { return commandBar_; }
  const NodeCollection& Nodes() const { return tree_.Nodes(); }
  const BrowserState& Browser() const { return browser_; }
  std::u16string StatusText() const {
    return pricedown::StatusText(browser_, tree_.Nodes(), grid_.GetGrid().MaxRows());
  }
  bool HasEnded() const { return environment_.lifetime.HasEnded(); }

 private:
  // Steps of Initialize.
  void ReadFullNumber();
  void DisableClassCommands();
  void SetPeriodLabel();
  void SetTitleFont();
  // Steps of Show.
  void ReadCaption();
  void KeepParent(const Value& parentWindow);
  void RestoreSelection();
  void RestoreFont();
  // Steps of Terminate.
  void SaveSelection();

  // Under the hourglass.
  void LoadTree();
  void LayOut();
  Rectangle DragBar() const;
  // What a click on `tool`, the bar's tool of that name or one of the host's, does. False when it
  // does nothing.
  bool RunTool(std::u16string_view name, const ObjectPtr& tool);
  // True also while the bar has no tool of that name.
  bool IsToolEnabled(std::u16string_view name) const;
  void RunFromToolStrip(const ControlCommand& command);
  void ToggleToolStrip(const ObjectPtr& tool);
  void FollowStatusBarTool(const ObjectPtr& tool);
  friend std::span<const ControlCommand> ControlCommands();

  PriceDownPorts ports_;
  Environment environment_;
  BrowserState browser_;
  ItemGrid grid_;
  ClassTree tree_;
  ClassCommands commands_;
  Find find_;
  PrintDocument document_;
  DisplayFont font_;
  PrintCommands printing_;
  std::shared_ptr<CommandBar> commandBar_;
  Splitter splitter_;
  Layout layout_;  // the last one placed
  ObjectPtr parentWindow_;
  std::u16string title_;
  // This control's own: another one of the thread may have been shown in the other mode since.
  std::u16string treeSelectionKey_;
  bool classesLocked_ = false;  // commands that change classes are disabled
};

}  // namespace pricedown
