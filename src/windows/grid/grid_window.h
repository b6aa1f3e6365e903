// The window of the item grid `vaList`: shows a Grid and lets the user move, select, copy, type
// numbers and drag columns.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "browser/grid_selection.h"
#include "browser/grid_viewport.h"
#include "browser/type_ahead.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/grid/grid_accessibility.h"
#include "windows/grid/grid_editor.h"
#include "windows/grid/grid_events.h"
#include "windows/grid/grid_painter.h"

namespace pricedown::windows {

class GridWindow final : public BoundWindow,
                         public GridView,
                         private EditorEvents,
                         private GridAccess {
 public:
  explicit GridWindow(GridEvents& events, UiAutomation& automation = SystemUiAutomation())
      : events_(events), accessibility_(*this, automation) {}
  ~GridWindow() override;
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, std::u16string_view name);

  // Shows the grid; null shows an empty grid. Requires: Show(nullptr) before the grid is destroyed.
  void Show(Grid* grid);
  // Applies the system's settings and the resolution. Another resolution closes the field of a cell
  // and keeps its number.
  void UpdateAppearance();

  // For screen readers: speaks a status that belongs to the grid.
  // Events that a wait has held back are raised before.
  void Announce(std::u16string_view text);
  // Speaks a text once, whatever was spoken before.
  void Speak(std::u16string_view text) { accessibility_.Speak(text); }

  const GridSelection& Selection() const { return selection_; }
  const GridViewport& Viewport() const override { return viewport_; }
  // Whether a number may be typed into the current cell.
  bool CanEdit() const;
  // Whether the key edits or clears the current cell.
  bool UsesCellKey(const KeyPress& press) const;

  // Makes the cell the current one and scrolls to it.
  void GoTo(std::int32_t column, std::int32_t row);
  // Whether the current cell, a hit of the find bar, stands out without the focus, too.
  void MarkCurrentCell(bool marked);
  // Puts the selected cells on the clipboard, `titled` below the titles of their columns.
  void Copy(bool titled);

  // GridView
  void GridChanged() override;
  void GridMetricsChanged() override;
  void GridFilling() override;
  void AcceptTyping() override { FinishEditing(); }

 private:
  enum class Mouse { Idle, Selecting, Sizing };
  struct ScrollBar {
    int last = -1;
    int page = 0;
    int position = 0;
    bool operator==(const ScrollBar&) const = default;
  };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnFocus(UINT message, WPARAM wParam);

  void OnPaint();
  LRESULT OnFramePaint(WPARAM wParam, LPARAM lParam);
  GridScene Scene() const;
  void UpdateScrolling();
  void FitViewport(const RECT& area);
  void SetScrollBars();
  void SetScrollBar(int bar, const ScrollBar& wanted);
  // Repaints after the visible part moved.
  void Scrolled(bool moved);
  // End the typing, which moves the focus. False when the host has ended the window then; it may
  // have destroyed this object.
  bool FinishEditing();
  bool CancelEditing();
  void OnScrollBar(int bar, int code);
  void OnWheel(int delta, bool horizontal);
  void Invalidate();

  void OnPress(POINT point, bool extend);
  void OnRightPress(POINT point);
  void OnDoubleClick(POINT point);
  void OnDrag(POINT point);
  void EndMouse(bool keep);
  bool OnSetCursor();
  GridHit HitAt(POINT point) const;
  void SizeColumn(std::int32_t column, int pixels);
  void FitColumn(std::int32_t column);

  bool OnKeyDown(WPARAM key);
  void OnCellKey(const KeyPress& press);
  void OnCharacter(char16_t character);
  bool OnContextMenu(LPARAM place);
  void MoveTo(std::int32_t column, std::int32_t row, bool extend);
  void RevealSelection();

  // Starts typing over the current cell; a `first` that is not empty replaces its text.
  void BeginEditing(std::u16string_view first);
  void EditingAccepted(std::u16string_view text, WPARAM key) override;
  void EditingCancelled(bool left) override;
  void EditorLeft(HWND to) override { events_.FocusLeft(to); }
  void CommandKeyPressed(WPARAM key) override;

  // GridAccess
  HWND Window() const override { return Handle(); }
  GridElements Elements() const override;
  void SetSelection(const GridSelection& selection) override;
  void ScrollTo(std::int32_t topRow, int left) override;
  bool SetNumber(GridElement cell, std::u16string_view text) override;

  GridEvents& events_;
  GridAccessibility accessibility_;
  Grid* grid_ = nullptr;
  HINSTANCE module_ = nullptr;
  Dpi dpi_;
  FontHandle font_;
  int lineHeight_ = 1;
  GridViewport viewport_;
  std::array<ScrollBar, 2> scrollBars_;  // as set, by SB_HORZ and SB_VERT
  bool updatingScrolling_ = false;
  bool scrollBarsDue_ = false;  // when the grid is painted next
  GridSelection selection_;
  bool marked_ = false;
  GridEditor editor_{*this};
  TypeAhead typeAhead_;
  Mouse mouse_ = Mouse::Idle;
  std::int32_t sizedColumn_ = 0;
  double widthBefore_ = 0;
};

}  // namespace pricedown::windows
