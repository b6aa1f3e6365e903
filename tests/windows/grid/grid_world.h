// A grid's window alone in a host window, with one hundred rows whose last column is unlocked.
// Records what the grid reports to the control.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/utf8.h"
#include "tests/windows/base/recording_automation.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/grid/grid_window.h"

namespace pricedown::testing {

class GridWindow : public ::testing::Test, public windows::GridEvents {
 protected:
  GridWindow() {
    for (std::int32_t column = 1; column <= 4; ++column) {
      grid_.SetText(column, kTitleRow,
                    std::u16string(u"列") + static_cast<char16_t>(u'0' + column));
      grid_.SetColumnWidth(column, 10);
    }
    Fill(100);
    window_.Create(host_.Handle(), GetModuleHandleW(nullptr), u"物料明细");
    window_.Show(&grid_);
    SetWindowPos(window_.Handle(), nullptr, 0, 0, Scale(460), Scale(300), SWP_NOZORDER);
    SetFocus(window_.Handle());
    RunMessages();
  }

  void Fill(std::int32_t rows) {
    grid_.SetMaxRows(0);
    grid_.SetRedraw(false);
    grid_.SetMaxRows(rows);
    for (std::int32_t row = 1; row <= rows; ++row) {
      for (std::int32_t column = 1; column <= 3; ++column) {
        grid_.SetText(column, row, column == 1 ? u"甲" : u"乙");
      }
    }
    grid_.SetUpperBound(4, rows, 99999999999.99);
    grid_.SetRedraw(true);
    grid_.LockColumns(3);
  }

  int Scale(int pixels) const { return windows::Dpi::Of(host_.Handle()).Scale(pixels); }
  HWND Handle() const { return window_.Handle(); }
  HWND Editor() const { return GetDlgItem(Handle(), windows::control_ids::kCellEditor); }

  POINT CellPoint(std::int32_t column, std::int32_t row) const {
    const auto& geometry = window_.Viewport().Geometry();
    return {(geometry.Left(column) + geometry.Right(column)) / 2 - window_.Viewport().Left(),
            geometry.TitleHeight() + (row - window_.Viewport().TopRow()) * geometry.RowHeight() +
                geometry.RowHeight() / 2};
  }
  POINT EdgePoint(std::int32_t column) const {
    return {window_.Viewport().Geometry().Right(column) - window_.Viewport().Left(), 5};
  }

  std::string Current() const {
    const auto& selection = window_.Selection();
    return std::to_string(selection.column) + "," + std::to_string(selection.row);
  }
  CellRange Range() const { return window_.Selection().Range(); }
  std::string Cell(std::int32_t column, std::int32_t row) const {
    return Utf8(grid_.Text(column, row));
  }

  // GridEvents
  // As the control's table has them.
  bool KeyPressed(HWND, const KeyPress& press, bool repeated) override {
    const bool known = press.key == Key::Enter || press.key == Key::Insert ||
                       press.key == Key::Delete || press.key == Key::F2 || press.key == Key::F5;
    if (press != KeyPress{press.key} || !known) return false;
    if (!repeated) commands_.push_back(press.key);
    return true;
  }
  void MenuRequested(HWND, POINT) override { ++menus_; }
  void TabPressed(bool backwards) override { tabs_ += backwards ? "<" : ">"; }
  void FocusEntered() override {
    if (whenFocused_) std::exchange(whenFocused_, nullptr)();
  }
  void ItemsChanged() override { ++itemsChanged_; }
  void ItemsFilling() override {}
  bool Waiting() const override { return waiting_; }

  HostWindow host_{700, 500};
  Input input_;
  Grid grid_{4};
  RecordingAutomation automation_;
  windows::GridWindow window_{*this, automation_};
  std::string tabs_;
  std::vector<Key> commands_;
  int menus_ = 0;
  int itemsChanged_ = 0;
  bool waiting_ = false;
  std::function<void()> whenFocused_;  // once
};

}  // namespace pricedown::testing
