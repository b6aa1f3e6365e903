// The member list `ItemLedger` of the item class form as a list view of the system.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "editor/form_keys.h"
#include "editor/form_view.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

class MemberListEvents {
 public:
  // Reported as the last step of a message; the list's window may be destroyed when they return.
  // A command that is a tool of the form.
  virtual void ToolChosen(FormTool tool) = 0;
  // The user asks for the context menu at `place` on the screen.
  virtual void MenuRequested(POINT place) = 0;

 protected:
  ~MemberListEvents() = default;
};

class MemberListWindow final : public BoundWindow, public MemberListView {
 public:
  explicit MemberListWindow(MemberListEvents& events) : events_(events) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, Dpi dpi, std::u16string_view name);

  // The font must outlive the window or the next call.
  void SetFont(HFONT font);
  void UpdateAppearance(Dpi dpi);
  LRESULT OnNotify(NMHDR& header);
  bool IsEnabled(MemberListCommand command) const;
  void Run(MemberListCommand command);

  // MemberListView
  void SetColumnWidth(std::int32_t column, std::int32_t twips) override;
  void ShowRows(const MemberRows& rows) override;
  std::vector<std::int32_t> SelectedRows() const override;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyDown(WPARAM key);
  bool OnContextMenu(LPARAM place);
  bool IsEmpty() const { return rows_ == nullptr || rows_->Items() == 0; }
  std::u16string_view Text(std::int32_t column, std::int32_t row) const;
  void ShowTitles();
  void SetItemText(LVITEMW& item) const;
  int FindItem(const NMLVFINDITEMW& search) const;
  void CopySelected(bool titled);
  void PaintHint();

  MemberListEvents& events_;
  Dpi dpi_;
  const MemberRows* rows_ = nullptr;  // the form's, once they have been shown
};

}  // namespace pricedown::windows
