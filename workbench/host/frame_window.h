// The host's main window: menus, merged toolbar, status line, and the child windows.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "platform/automation.h"
#include "workbench/host/child_window.h"
#include "workbench/host/merged_toolbar.h"

namespace workbench {

inline constexpr const wchar_t* kItemClassesCaption = L"物料类别维护";
inline constexpr const wchar_t* kPriceDownCaption = L"存货跌价准备";

class FrameWindow final : private ChildWindowEvents {
 public:
  // `settings` is the suite's settings object. Throws AutomationError.
  FrameWindow(HINSTANCE module, pricedown::ObjectPtr settings);
  ~FrameWindow();
  FrameWindow(const FrameWindow&) = delete;
  FrameWindow& operator=(const FrameWindow&) = delete;

  void Show(int command);
  // Runs messages until the window is closed; returns the exit code.
  int Run();
  // The message that Run handles; in a loop of the control or of a modal window still the one that
  // led there.
  const MSG& Handled() const { return handled_; }

  HWND Handle() const { return window_; }
  const pricedown::ObjectPtr& Settings() const { return settings_; }

  // Opens a company file or connection string and closes the previous one's children. Throws
  // AutomationError when it cannot be opened; the previous one and its children stay then.
  void OpenCompany(const std::wstring& location);
  // The same for the user: reports a failure and asks for another company until one opens or the
  // user cancels; keeps the opened one among the recent ones. Returns whether it opened one.
  bool OpenCompanyOrAsk(std::wstring location);
  // Answers the control from a recording from now on, without a company, and opens its window.
  // Throws AutomationError for another file.
  void ReplayRecording(const std::wstring& file);
  // Opens a child window, or brings it to the front. Null when that fails, after a message, or
  // when the user has closed it meanwhile.
  ChildWindow* OpenChild(const wchar_t* caption);
  ChildWindow* ActiveChild() const;
  void CloseChildren();
  // Clicks the merged tool of that name; a no-op if there is none.
  void ClickTool(ChildWindow& child, std::u16string_view name);

 private:
  // ChildWindowEvents
  void ChildActivated(ChildWindow* child) override;
  void ChildMerged(ChildWindow& child) override;
  void ChildToolChanged(ChildWindow& child) override;
  void ChildClosed(ChildWindow& child) override;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnCreate();
  void OnCommand(int id, WPARAM wParam, LPARAM lParam);
  LRESULT OnNotify(NMHDR& header) const;
  void LayOut();
  void ChooseCompany();
  void ShowStatusText(const std::wstring& text);
  void ChangeSettings();
  void ShowStatus();
  void RebuildEditMenu(HMENU menu);

  HINSTANCE module_;
  pricedown::ObjectPtr settings_;
  HWND window_ = nullptr;
  HWND client_ = nullptr;
  HWND status_ = nullptr;
  HACCEL accelerators_ = nullptr;
  MSG handled_{};
  std::unique_ptr<MergedToolbar> toolbar_;
  ChildWindow* merged_ = nullptr;
  HMENU businessMenu_ = nullptr;  // ends with the tools of the active child
};

}  // namespace workbench
