// The window of a picker: search field, list, texts and buttons over one Picking.
//
// While the search field has the focus, the arrow and page keys move in the list. Where several
// may be chosen, Space ticks the current row as soon as such a key was pressed, until the text is
// edited again, and always while the field is empty; Ctrl+A ticks all that was found, or unticks
// it. Characters typed in the list go to the search field.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>
#include <vector>

#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/base/visual_styles.h"
#include "workbench/pickers/picker_layout.h"
#include "workbench/pickers/picking.h"

namespace workbench {

class PickerDialog {
 public:
  // `module` carries the manifest of the common controls, as resource 2. `dpi` defaults to the
  // screen's.
  PickerDialog(HINSTANCE module, Picking& picking, std::optional<int> dpi = std::nullopt);
  PickerDialog(const PickerDialog&) = delete;
  PickerDialog& operator=(const PickerDialog&) = delete;

  // Shows the window modally over `owner` (may be null) with `text` as the search text. Returns the
  // chosen ids; empty when cancelled. Throws what failed while the window was open, and
  // AutomationError when the window cannot be created.
  std::vector<std::int32_t> Show(HWND owner, std::u16string_view text);

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  // Subclass procedure of the search field and the list.
  static LRESULT CALLBACK ControlProcedure(HWND control, UINT message, WPARAM wParam,
                                           LPARAM lParam) noexcept;

  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void Create();
  void CreateControls();
  HWND AddControl(const wchar_t* className, const wchar_t* text, DWORD style, int id,
                  DWORD extendedStyle = 0);
  void AddColumns();
  void SetListColours();
  void AddRowImages();
  void Measure();
  void Place(HWND owner);
  void LayOut();
  void FitLastColumn();
  INT_PTR OnCommand(int id, int code);
  LRESULT OnNotify(const NMHDR& header, LPARAM lParam);
  LRESULT OnDrawRow(NMLVCUSTOMDRAW& drawing) const;
  void OnLimits(MINMAXINFO& limits) const;
  void OnSystemChange(UINT message);
  void OnDpiChanged(pricedown::windows::Dpi dpi, const RECT& suggested);

  // True when the message was handled.
  bool OnSearchKey(UINT message, WPARAM wParam);
  bool OnListKey(UINT message, WPARAM wParam);
  bool MovesInList(WPARAM key);
  void OnListClick(bool isDouble);
  void FillItem(LVITEMW& item);

  void ReadSearchText();
  // Continues the search for a short time and shows the new rows.
  void SearchOn();
  void ShowFound(bool fromTop);
  void ShowTexts();
  void Refuse();
  void ToggleCurrent();
  void ToggleAll();
  void Redraw() const;
  void MoveTo(std::size_t position);
  std::optional<std::size_t> Current() const;
  void Accept();
  void Fail() noexcept;

  HWND Control(int id) const { return GetDlgItem(dialog_, id); }

  HINSTANCE module_;
  Picking& picking_;
  pricedown::windows::VisualStyles styles_;
  pricedown::windows::Dpi dpi_;
  pricedown::windows::FontHandle font_;
  PickerMeasures measures_;
  HWND dialog_ = nullptr;
  WNDPROC searchProcedure_ = nullptr;
  WNDPROC listProcedure_ = nullptr;
  std::u16string_view text_;
  bool textChanged_ = false;  // since the search began
  bool keysInList_ = false;
  std::vector<std::int32_t> answer_;
  std::exception_ptr failure_;
};

}  // namespace workbench
