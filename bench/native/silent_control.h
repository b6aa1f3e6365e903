// The control's core on views that draw nothing. The tree keeps its texts, as a real tree does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bench/no_editor.h"
#include "bench/silent_output.h"
#include "bench/silent_user.h"
#include "browser/class_tree_view.h"
#include "browser/display_font.h"
#include "control/price_down.h"
#include "control/views.h"
#include "env/screen.h"
#include "platform/text_arena.h"

namespace bench {

class SilentViews final : public pricedown::PriceDownView,
                          public pricedown::ClassTreeView,
                          public pricedown::FontView,
                          public pricedown::ContainerWindow,
                          public pricedown::Screen {
 public:
  std::vector<std::u16string_view> nodes;

  void SetTitle(std::u16string_view) override {}
  void SetTitleFont(const pricedown::Font&) override {}
  void SetPeriod(std::u16string_view) override {}
  void DisableButton(const pricedown::Command&) override {}
  void OpenFind(pricedown::FindPane, std::u16string_view) override {}
  void CloseFind(pricedown::FindPane) override {}
  void ShowFindCount(std::u16string_view, bool) override {}
  void ShowFoundCell(std::int32_t, std::int32_t) override {}
  void ShowFoundNode(std::int32_t) override {}
  std::int32_t CurrentRow() const override { return 1; }
  pricedown::FindPane FocusedPane() const override { return pricedown::FindPane::Grid; }
  void CopyCells(bool) override {}
  bool HasWindow() const override { return true; }
  pricedown::Size ControlSize() const override { return {15000, 9000}; }
  void Place(const pricedown::Layout&) override {}
  void ShowDragBar(const pricedown::Rectangle&) override {}
  void HideDragBar() override {}

  void ClearNodes() override {
    nodes = std::vector<std::u16string_view>();
    texts_.Clear();
  }
  void InsertNode(pricedown::NodeIndex, pricedown::NodeIndex, std::u16string_view text) override {
    nodes.push_back(texts_.Keep(text));
  }
  void SelectNode(pricedown::NodeIndex) override {}
  pricedown::NodeIndex SelectedNode() const override { return pricedown::kNoNode; }
  void MarkNode(pricedown::NodeIndex) override {}
  void SetRedraw(bool) override {}

  void SetPainting(bool) noexcept override {}
  void SetTreeFont(const pricedown::Font&) override {}
  std::int32_t MeasureLabel(const pricedown::Font&) override { return 255; }

  std::u16string Caption() const override { return u"物料类别维护"; }
  void Close() override {}

  void SetMousePointer(pricedown::MousePointer) noexcept override {}
  void RunPendingMessages() override {}
  double TwipsPerPixelY() const override { return 15; }

 private:
  pricedown::TextArena texts_;
};

struct SilentControl {
  // Initialised, not shown. Both must outlive it.
  SilentControl(pricedown::ObjectFactory& factory, pricedown::ThreadState& state)
      : core(pricedown::PriceDownPorts{factory, state, user, views, views, views, views, views,
                                       u"pricedown_bench", nullptr, editor, output}) {
    core.Initialize();
  }

  SilentUser user;
  SilentViews views;
  NoEditor editor;
  SilentOutput output;
  pricedown::PriceDown core;
};

}  // namespace bench
