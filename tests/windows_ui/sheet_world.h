// A sheet's window alone in a host window, with one hundred rows whose last column is open.
// It stands in for the control: what the sheet reports is kept.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/utf8.h"
#include "tests/windows_ui/ui_world.h"
#include "windows/ui/control_ids.h"
#include "windows/ui/dpi.h"
#include "windows/ui/sheet_window.h"

namespace pricedown::testing {

class SheetWindow : public ::testing::Test, private windows::ChildEvents {
 protected:
  SheetWindow() {
    for (std::int32_t column = 1; column <= 4; ++column) {
      sheet_.SetText(column, kTitleRow,
                     std::u16string(u"列") + static_cast<char16_t>(u'0' + column));
      sheet_.SetColumnWidth(column, 10);
    }
    Fill(100);
    window_.Create(host_.Handle(), GetModuleHandleW(nullptr), u"物料明细");
    window_.Show(&sheet_);
    SetWindowPos(window_.Handle(), nullptr, 0, 0, Scale(460), Scale(300), SWP_NOZORDER);
    SetFocus(window_.Handle());
    RunMessages();
  }

  void Fill(std::int32_t rows) {
    sheet_.SetMaxRows(0);
    sheet_.SetRedraw(false);
    sheet_.SetMaxRows(rows);
    for (std::int32_t row = 1; row <= rows; ++row) {
      for (std::int32_t column = 1; column <= 3; ++column) {
        sheet_.SetText(column, row, column == 1 ? u"甲" : u"乙");
      }
      sheet_.SetUpperBound(4, row, 99999999999.99);
    }
    sheet_.SetRedraw(true);
    sheet_.SetBlockMode(true);
    sheet_.SetBlock({1, 1, 3, rows});
    sheet_.LockBlock(true);
    sheet_.SetBlockMode(false);
  }

  int Scale(int pixels) const { return windows::Dpi::Of(host_.Handle()).Scale(pixels); }
  HWND Handle() const { return window_.Handle(); }
  HWND Editor() const { return GetDlgItem(Handle(), windows::control_ids::kCellEditor); }

  POINT CellPoint(std::int32_t column, std::int32_t row) const {
    const auto& geometry = window_.Geometry();
    return {(geometry.Left(column) + geometry.Right(column)) / 2 - window_.Scroll().Left(),
            geometry.TitleHeight() + (row - window_.Scroll().TopRow()) * geometry.RowHeight() +
                geometry.RowHeight() / 2};
  }
  POINT EdgePoint(std::int32_t column) const {
    return {window_.Geometry().Right(column) - window_.Scroll().Left(), 5};
  }

  std::string Current() const {
    const auto& selection = window_.Selection();
    return std::to_string(selection.column) + "," + std::to_string(selection.row);
  }
  CellRange Range() const { return window_.Selection().Range(); }
  std::string Cell(std::int32_t column, std::int32_t row) const {
    return Utf8(sheet_.Text(column, row));
  }

  // ChildEvents
  void NodeClicked(NodeIndex) override {}
  void StripButtonClicked(std::size_t) override {}
  void CommandChosen(windows::UserCommand command) override { commands_.push_back(command); }
  void MenuRequested(HWND, POINT) override { ++menus_; }
  void SplitterEvent(windows::SplitterAction, std::int32_t) override {}
  void TabPressed(bool backwards) override { tabs_ += backwards ? "<" : ">"; }
  void FocusEntered(HWND) override {}
  void ItemsChanged() override {}
  void ItemsFilling() override {}
  bool Waiting() const override { return false; }
  std::shared_ptr<void> Hold() override { return nullptr; }

  HostWindow host_{700, 500};
  Input input_;
  Sheet sheet_{4};
  windows::SheetWindow window_{*this};
  std::string tabs_;
  std::vector<windows::UserCommand> commands_;
  int menus_ = 0;
};

}  // namespace pricedown::testing
