// The control's window; implements the core's views.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "browser/class_tree_view.h"
#include "browser/display_font.h"
#include "control/price_down.h"
#include "control/views.h"
#include "platform/automation.h"
#include "windows/base/bound_window.h"
#include "windows/base/command_window.h"
#include "windows/base/ui_automation.h"
#include "windows/control/child_events.h"

namespace pricedown::windows {

struct ControlChildren;

// After the parent has destroyed the window, every method is a no-op and numbers are 0.
class ControlWindow final : public PriceDownView,
                            public ClassTreeView,
                            public FontView,
                            public CommandWindow,
                            private BoundWindow,
                            private ChildEvents {
 public:
  // Creates the window, hidden, in a hidden parking window of its own. Throws AutomationError when
  // a window cannot be created.
  explicit ControlWindow(HINSTANCE module, UiAutomation& automation = SystemUiAutomation());
  ~ControlWindow() override;

  // Sends window events to `control` and shows its grid; null detaches, which cannot fail.
  // Requires: detached before `control` is destroyed.
  void Attach(PriceDown* control);
  // Called before an event goes to the core; the returned object is held until the event ends. It
  // must keep the control with this window alive, because the host may close everything during the
  // event.
  void HoldDuringEvents(std::function<std::shared_ptr<void>()> hold);
  // Called with true when one of the children has the focus, and with false when it has moved
  // outside.
  void OnFocusChange(std::function<void(bool gained)> handler);

  HWND Handle() const { return BoundWindow::Handle(); }
  // Whether the window accepts mouse and keyboard while it is shown; a hidden one never does.
  void SetAcceptsInput(bool accepts);
  // Whether the window is shown, even if its container is not.
  bool IsShown() const;
  // Shows the window at `pixels` of `parent`.
  void MoveInto(HWND parent, const RECT& pixels);
  void MoveTo(const RECT& pixels);
  // Hides the window. A focus inside goes to the window around it before that.
  void Hide();
  // Hides the window and moves it back into the parking window.
  void Park();

  // What the suite's form resources see: `Name`, and `Controls` with `Count` and `Item(index)`
  // (from 0, or a control's name), each with `Name` and `Caption`. It may outlive the window.
  ObjectPtr Form() const;

  // Handles a key message before the host does: Tab within the control, and the keys that tree,
  // grid and tool strip need. Returns whether it was handled.
  bool TranslateKey(MSG& message);
  // Sets the focus to the first child in tab order, or to the last one.
  void SetFocusFirst(bool last);
  // Draws the control as it is into `pixels`.
  void Draw(HDC context, const RECT& pixels);

  // CommandWindow
  HWND Window() const override { return Handle(); }
  HWND DialogOwner() const override;
  void SetWaiting(bool waiting) override;
  void SetPainting(bool on) noexcept override;

  // PriceDownView
  void SetTitle(std::u16string_view text) override;
  void SetTitleFont(const Font& font) override;
  void SetPeriod(std::u16string_view text) override;
  void DisableButton(const Command& command) override;
  void CopyCells(bool titled) override;
  void OpenFind(FindPane pane, std::u16string_view text) override;
  void CloseFind(FindPane pane) override;
  void ShowFindCount(std::u16string_view text, bool counting) override;
  void ShowFoundCell(std::int32_t column, std::int32_t row) override;
  void ShowFoundNode(std::int32_t node) override;
  std::int32_t CurrentRow() const override;
  FindPane FocusedPane() const override;
  bool HasWindow() const override { return Handle() != nullptr; }
  Size ControlSize() const override;
  void Place(const Layout& layout) override;
  void ShowDragBar(const Rectangle& bar) override;
  void HideDragBar() override;

  // ClassTreeView
  void ClearNodes() override;
  void InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) override;
  void SelectNode(NodeIndex index) override;
  NodeIndex SelectedNode() const override;
  void MarkNode(NodeIndex index) override;
  void SetRedraw(bool redraw) override;

  // FontView
  void SetTreeFont(const Font& font) override;
  std::int32_t MeasureLabel(const Font& font) override;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  // ChildEvents
  void NodeClicked(NodeIndex node) override;
  void CommandChosen(const Command& command) override;
  bool KeyPressed(HWND child, const KeyPress& press, bool repeated) override;
  void MenuRequested(HWND child, POINT place) override;
  void SplitterEvent(SplitterAction action, std::int32_t pixels) override;
  void FindTextChanged(std::u16string_view text, bool composing) override;
  void FindKeyPressed(FindKey key) override;
  void FindIdle() override;
  void FindTabPressed() override;
  void TabPressed(bool backwards) override;
  void FocusEntered() override;
  void FocusLeft(HWND to) override;
  void ItemsChanged() override;
  void ItemsFilling() override;
  bool Waiting() const override { return work_.Waiting(); }

  std::shared_ptr<void> Hold() const { return hold_ ? hold_() : nullptr; }
  void UpdateInput(bool shown);
  bool Holds(HWND window) const;
  unsigned MenuOf(HWND child) const;
  bool UsesCommandKey(HWND focus, const KeyPress& press) const;
  template <typename Command>
  void RunCommand(Command&& command);
  void SystemChanged(UINT message);
  void MoveUnder(HWND parent);
  void ShowStatus();
  void ResumePainting() const;
  void ShowProgress();

  std::unique_ptr<ControlChildren> children_;
  PriceDown* control_ = nullptr;
  std::function<std::shared_ptr<void>()> hold_;
  std::function<void(bool)> focusChange_;
  LongWork work_;
  bool acceptsInput_ = true;
  // While it is, the system takes the window for hidden. A dialog, for which a const member
  // returns the owner, ends it.
  mutable bool paintingPaused_ = false;
};

}  // namespace pricedown::windows
