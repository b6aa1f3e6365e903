// The native stage: the suite's objects called directly, views that keep what they are given.
#include "bench/stage.h"
#include "bench/no_editor.h"
#include "bench/silent_ledger.h"

#include <vector>

#include "platform/text.h"
#include "workbench/suite/suite_factory.h"

namespace bench {
namespace {

using namespace pricedown;

class SilentViews final : public PriceDownView,
                          public ClassTreeView,
                          public FontView,
                          public ContainerWindow,
                          public UserQuestions,
                          public Screen {
 public:
  std::vector<std::u16string> nodes;

  void SetTitle(std::u16string_view) override {}
  void SetTitleFont(std::u16string_view, std::int32_t, double) override {}
  void SetPeriod(std::u16string_view) override {}
  void SetStripButtonEnabled(std::size_t, bool) override {}
  Size ControlSize() const override { return {15000, 9000}; }
  void Place(const Layout&) override {}
  void ShowDragBar(const Rectangle&) override {}
  void HideDragBar() override {}

  void ClearNodes() override { nodes.clear(); }
  void InsertNode(NodeIndex, NodeIndex, std::u16string_view text) override {
    nodes.emplace_back(text);
  }
  void SelectNode(NodeIndex) override {}
  NodeIndex SelectedNode() const override { return kNoNode; }
  void SetRedraw(bool) override {}

  void SetTreeFont(const Font&) override {}
  std::int32_t MeasureLabel(const Font&) override { return 255; }

  std::u16string Caption() const override { return u"物料类别维护"; }
  void Close() override {}

  void Tell(std::u16string_view, std::u16string_view, MessageIcon) override {}
  bool Confirm(std::u16string_view, std::u16string_view, MessageIcon) override { return false; }

  void SetMousePointer(MousePointer) noexcept override {}
  void RunPendingMessages() override {}
  double TwipsPerPixelY() const override { return 15; }
};

class NativeStage final : public Stage {
 public:
  explicit NativeStage(const std::string& path) {
    suite_->OpenCompany(FromUtf8(path));
    control_.Initialize();
    control_.Show(nullptr);
  }
  ObjectFactory& Factory() override { return factory_; }
  PriceDown& Control() override { return control_; }
  void BeginRawTree() override { raw_.clear(); }
  void InsertRaw(std::u16string_view text) override { raw_.emplace_back(text); }
  void EndRawTree() override {}

 private:
  std::shared_ptr<workbench::SuiteState> suite_ = std::make_shared<workbench::SuiteState>();
  workbench::SuiteFactory factory_{suite_};
  ProcessState state_;
  SilentViews views_;
  NoEditor editor_;
  SilentLedger ledger_;
  PriceDown control_{PriceDownPorts{factory_, state_, views_, views_, views_, views_, views_,
                                    views_, u"pricedown_bench", nullptr, editor_, ledger_}};
  std::vector<std::u16string> raw_;
};

}  // namespace

std::unique_ptr<Stage> MakeStage(const std::string& path) {
  return std::make_unique<NativeStage>(path);
}

}  // namespace bench
