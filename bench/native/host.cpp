// The native host: the core on views that draw nothing. The plain side only creates the list of the
// tree's texts.
#include "bench/host.h"

#include "bench/native/silent_control.h"
#include "platform/text.h"
#include "workbench/suite/suite_factory.h"

namespace bench {
namespace {

using namespace pricedown;

class NativeHost final : public Host {
 public:
  explicit NativeHost(const std::string& path) { suite_->OpenCompany(FromUtf8(path)); }

  ObjectFactory& Factory() override { return factory_; }

  void MakeControls(int count) override {
    std::vector<std::unique_ptr<SilentControl>> controls;
    for (int i = 0; i < count; ++i) {
      controls.push_back(std::make_unique<SilentControl>(factory_, state_));
    }
  }
  void MakePlain(int) override {}

  std::size_t ShowControl() override {
    shown_ = std::make_unique<SilentControl>(factory_, state_);
    shown_->core.Show(nullptr);
    return shown_->views.nodes.size();
  }
  std::size_t ShowPlain(const std::vector<std::u16string>& nodes) override {
    plain_.emplace_back(u"root");
    plain_.insert(plain_.end(), nodes.begin(), nodes.end());
    return plain_.size();
  }
  void EndShown() override {
    shown_.reset();
    plain_.clear();
  }

 private:
  std::shared_ptr<workbench::SuiteState> suite_ = std::make_shared<workbench::SuiteState>();
  workbench::SuiteFactory factory_{suite_};
  ThreadState state_;
  std::unique_ptr<SilentControl> shown_;
  std::vector<std::u16string> plain_;
};

}  // namespace

std::unique_ptr<Host> MakeHost(const std::string& path) {
  return std::make_unique<NativeHost>(path);
}

}  // namespace bench
