// The item list `ItemLedger` of the item class form as a list view of the system: a title row and
// one row per member item. It asks the form for its rows and decides nothing.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "editor/form_view.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

class MemberListEvents {
 public:
  // The texts of a row, each followed by "|"; row 1 holds the titles. Throws AutomationError.
  virtual std::u16string MemberRow(std::int32_t row) = 0;
  // The Insert key. Delete is no key of the list: it takes provisions away for good and does not
  // ask. The last step of the message; the list's window may be gone after it.
  virtual void InsertPressed() = 0;

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
  // Asks for all rows when they are due. Throws what a row throws; the rows before it are shown.
  void Fill();
  LRESULT OnNotify(NMHDR& header);

  // MemberListView
  void SetColumnWidth(std::int32_t column, std::int32_t twips) override;
  std::int32_t RowCount() const override { return rowCount_; }
  void SetRowCount(std::int32_t count) override;
  void Reload() override { due_ = true; }
  std::vector<std::int32_t> SelectedRows() const override;
  std::u16string Text(std::int32_t column, std::int32_t row) const override;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyDown(WPARAM key);
  std::u16string_view Cell(std::int32_t column, std::size_t row) const;
  void ShowTitles();
  void ShowRows();
  void AnswerText(LVITEMW& item) const;
  int FindRow(const NMLVFINDITEMW& search) const;
  void SelectAll();
  void CopySelected();
  void PaintHint();

  MemberListEvents& events_;
  Dpi dpi_;
  std::int32_t rowCount_ = 0;
  bool due_ = false;
  std::vector<std::u16string> rows_;  // the title row first
};

}  // namespace pricedown::windows
