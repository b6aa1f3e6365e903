// The member list `ItemLedger` of the item class form as a list view of the system.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "editor/form_view.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

class MemberListEvents {
 public:
  // A key that adds items. The last step of the message; the list's window may be gone when it
  // returns.
  virtual void AddItemPressed() = 0;

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
  void TakeAppearance(Dpi dpi);
  LRESULT OnNotify(NMHDR& header);

  // MemberListView
  void SetColumnWidth(std::int32_t column, std::int32_t twips) override;
  void ShowRows(const MemberRows& rows) override;
  std::vector<std::int32_t> SelectedRows() const override;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyDown(WPARAM key);
  bool IsEmpty() const { return rows_ == nullptr || rows_->Items() == 0; }
  std::u16string_view Text(std::int32_t column, std::int32_t row) const;
  void ShowTitles();
  void SetItemText(LVITEMW& item) const;
  int FindItem(const NMLVFINDITEMW& search) const;
  void CopySelected();
  void PaintHint();

  MemberListEvents& events_;
  Dpi dpi_;
  const MemberRows* rows_ = nullptr;  // the form's, once they have been shown
};

}  // namespace pricedown::windows
