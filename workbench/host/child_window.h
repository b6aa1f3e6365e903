// One child window of the host with a control in the system's container, reached as by any host: by
// ProgID, late-bound, and as an OLE object for keys.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "platform/automation.h"
#include "windows/com/com_ptr.h"
#include "workbench/host/merged_toolbar.h"
#include "workbench/host/parent_window.h"

namespace workbench {

class ChildWindow;

// What a child reports to the window that holds it.
class ChildWindowEvents {
 public:
  // `child` is null when none is active any more.
  virtual void ChildActivated(ChildWindow* child) = 0;
  virtual void ChildMerged(ChildWindow& child) = 0;
  virtual void ChildToolChanged(ChildWindow& child) = 0;
  virtual void ChildClosed(ChildWindow& child) = 0;

 protected:
  ~ChildWindowEvents() = default;
};

class ChildWindow final : public MergeTarget {
 public:
  // Makes the window inside `client` (an MDI client) with the control in it, and shows both.
  // Throws AutomationError when the control cannot be made; then there is no window. Null when the
  // user closed the window while it was being shown.
  static ChildWindow* Open(ChildWindowEvents& frame, HINSTANCE module, HWND client,
                           const std::wstring& caption);

  static void RegisterClass(HINSTANCE module);
  static ChildWindow* Of(HWND window);

  HWND Handle() const override { return window_; }
  std::wstring Caption() const override;
  // The control's own window; null while there is none.
  HWND ControlHandle() const;
  // To the control itself: its container need not pass it on.
  void FocusControl() const;

  // The control's command bar, as handed over by the last merge.
  const pricedown::ObjectPtr& Bar() const { return bar_; }
  void MergeToolBar(const pricedown::ObjectPtr& bar) override;
  void ToolChanged() override;
  // Forwards a click on a merged tool. Throws AutomationError when the command fails.
  void ClickTool(const pricedown::ObjectPtr& tool);
  // True when the control used the key.
  bool TranslateKey(MSG& message);

 private:
  ChildWindow(ChildWindowEvents& frame, HINSTANCE module) : frame_(frame), module_(module) {}
  ~ChildWindow();

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void CreateControl();
  void ShowControl();
  void Notify(std::u16string_view message);

  ChildWindowEvents& frame_;
  HINSTANCE module_;
  HWND window_ = nullptr;
  HWND container_ = nullptr;
  pricedown::ObjectPtr control_;
  pricedown::windows::ComPtr<IUnknown> controlObject_;
  std::shared_ptr<ParentWindow> parent_;
  pricedown::ObjectPtr bar_;
  bool shown_ = false;
};

}  // namespace workbench
