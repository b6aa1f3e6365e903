// The native stage: the suite's objects called directly, and a control on silent views.
#include "bench/stage.h"

#include <optional>
#include <vector>

#include "bench/native/silent_control.h"
#include "browser/grid_selection.h"
#include "platform/text.h"
#include "workbench/suite/suite_factory.h"

namespace bench {
namespace {

using namespace pricedown;

class NativeStage final : public Stage {
 public:
  explicit NativeStage(const std::string& path) {
    suite_->OpenCompany(FromUtf8(path));
    control_.emplace(factory_, state_);
    control_->core.Show(nullptr);
  }
  ObjectFactory& Factory() override { return factory_; }
  const SilentUser& User() const override { return control_->user; }
  PriceDown& Control() override { return control_->core; }
  void BeginRawTree() override { raw_.clear(); }
  void InsertRaw(std::u16string_view text) override { raw_.emplace_back(text); }
  void EndRawTree() override {}
  void AskAsClient() override {}
  void MoveDown(int rows) override {
    constexpr std::int32_t kPageRows = 20;
    for (int i = 0; i < rows; ++i) {
      selection_.Move(GridKey::Down, false, kPageRows, control_->core.GetGrid());
    }
  }

 private:
  std::shared_ptr<workbench::SuiteState> suite_ = std::make_shared<workbench::SuiteState>();
  workbench::SuiteFactory factory_{suite_};
  ThreadState state_;
  std::optional<SilentControl> control_;
  std::vector<std::u16string> raw_;
  GridSelection selection_;
};

}  // namespace

std::unique_ptr<Stage> MakeStage(const std::string& path) {
  return std::make_unique<NativeStage>(path);
}

}  // namespace bench
