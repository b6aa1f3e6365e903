// The splitter as UI Automation sees it: a name and a range value.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/layout.h"
#include "tests/windows/base/recording_automation.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/com/module_counts.h"
#include "windows/control/splitter_window.h"

namespace pricedown::testing {
namespace {

// A splitter alone in a host window.
class SplitterProviderTest : public ::testing::Test, public windows::ChildEvents {
 protected:
  SplitterProviderTest() {
    splitter_->Create(host_.Handle(), GetModuleHandleW(nullptr), u"分隔条");
    MoveTo(start_);
    provider_ = automation_.ProviderOf(Handle());
    automation_.log.clear();
  }

  HWND Handle() const { return splitter_->Handle(); }
  void MoveTo(int left) {
    SetWindowPos(Handle(), nullptr, left, 0, 5, 300, SWP_NOZORDER);
    RunMessages();
  }
  windows::ComPtr<IRangeValueProvider> Range() const {
    windows::ComPtr<IUnknown> pattern;
    EXPECT_EQ(provider_->GetPatternProvider(UIA_RangeValuePatternId, pattern.put()), S_OK);
    return pattern.As<IRangeValueProvider>();
  }
  double Number(HRESULT (STDMETHODCALLTYPE IRangeValueProvider::*member)(double*)) const {
    double number = -1;
    EXPECT_EQ((Range().get()->*member)(&number), S_OK);
    return number;
  }
  int Pixels(std::int32_t twips) const { return windows::Dpi::Of(Handle()).ToPixels(twips); }

  // ChildEvents
  void NodeClicked(NodeIndex) override {}
  void FindTextChanged(std::u16string_view, bool) override {}
  void FindKeyPressed(FindKey) override {}
  void FindIdle() override {}
  void FindTabPressed() override {}
  void CommandChosen(const Command&) override {}
  bool KeyPressed(HWND, const KeyPress&, bool) override { return false; }
  void MenuRequested(HWND, POINT) override {}
  void SplitterEvent(windows::SplitterAction action, std::int32_t pixels) override {
    if (action == windows::SplitterAction::Press) events_.emplace_back("press");
    if (action == windows::SplitterAction::Drag)
      events_.push_back("drag " + std::to_string(pixels));
    if (action == windows::SplitterAction::Release) events_.emplace_back("release");
    if (endsAtRelease_ && action == windows::SplitterAction::Release) splitter_.reset();
  }
  void TabPressed(bool) override {}
  void FocusEntered() override {}
  void ItemsChanged() override {}
  void ItemsFilling() override {}
  bool Waiting() const override { return false; }

  HostWindow host_{900, 400};
  const int start_ = windows::Dpi::Of(host_.Handle()).Scale(200);
  RecordingAutomation automation_;
  std::shared_ptr<windows::SplitterWindow> splitter_ =
      std::make_shared<windows::SplitterWindow>(*this, automation_);
  windows::ComPtr<IRawElementProviderSimple> provider_;
  std::vector<std::string> events_;
  bool endsAtRelease_ = false;
};

using Log = std::vector<std::string>;

TEST_F(SplitterProviderTest, IsANamedSeparator) {
  EXPECT_EQ(PropertyOf(provider_.get(), UIA_NamePropertyId), "分隔条");
  EXPECT_EQ(PropertyOf(provider_.get(), UIA_ControlTypePropertyId),
            std::to_string(UIA_SeparatorControlTypeId));
  EXPECT_EQ(PropertyOf(provider_.get(), UIA_AutomationIdPropertyId),
            std::to_string(windows::control_ids::kSplitter));
}

TEST_F(SplitterProviderTest, HasItsPositionAndItsLimitsAsARange) {
  BOOL readOnly = TRUE;
  EXPECT_EQ(Range()->get_IsReadOnly(&readOnly), S_OK);
  EXPECT_FALSE(readOnly);
  EXPECT_EQ(Number(&IRangeValueProvider::get_Value), start_);
  EXPECT_EQ(Number(&IRangeValueProvider::get_Minimum), Pixels(kMinimumPaneWidth));
  const int width = host_.Inside().right;
  EXPECT_NEAR(Number(&IRangeValueProvider::get_Maximum), width - Pixels(kMinimumPaneWidth),
              Pixels(kSplitterWidth) + 1);
  EXPECT_EQ(Number(&IRangeValueProvider::get_SmallChange), Pixels(kSplitterStep));
  MoveTo(3);
  EXPECT_EQ(Number(&IRangeValueProvider::get_Value), Pixels(kMinimumPaneWidth))
      << "a value is inside its range";
}

TEST_F(SplitterProviderTest, AValueIsADragToThatPosition) {
  EXPECT_EQ(Range()->SetValue(start_ + 60), S_OK);
  EXPECT_EQ(events_, (Log{"press", "drag 60", "release"}));
}

TEST_F(SplitterProviderTest, AcceptsBothEndsOfItsRange) {
  double least = 0;
  double greatest = 0;
  ASSERT_EQ(Range()->get_Minimum(&least), S_OK);
  ASSERT_EQ(Range()->get_Maximum(&greatest), S_OK);
  EXPECT_EQ(Range()->SetValue(least), S_OK);
  EXPECT_EQ(Range()->SetValue(greatest), S_OK);
}

TEST_F(SplitterProviderTest, RefusesValuesOutsideItsRange) {
  EXPECT_EQ(Range()->SetValue(Pixels(kMinimumPaneWidth) - 1), E_INVALIDARG);
  EXPECT_EQ(Range()->SetValue(5000), E_INVALIDARG);
  EXPECT_EQ(events_, Log{});
}

TEST_F(SplitterProviderTest, RefusesValuesWhileTheMouseDragsOrAModalWindowIsOpen) {
  SendMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  events_.clear();
  EXPECT_EQ(Range()->SetValue(start_ + 60), UIA_E_INVALIDOPERATION);
  SendMessageW(Handle(), WM_LBUTTONUP, 0, MAKELPARAM(2, 50));
  EnableWindow(host_.Handle(), FALSE);
  events_.clear();
  EXPECT_EQ(Range()->SetValue(start_ + 60), UIA_E_ELEMENTNOTENABLED);
  EnableWindow(host_.Handle(), TRUE);
  EXPECT_EQ(events_, Log{});
}

TEST_F(SplitterProviderTest, AMoveRaisesItsValueOnceForThoseWhoListen) {
  MoveTo(240);
  SetWindowPos(Handle(), nullptr, 240, 0, 5, 200, SWP_NOZORDER);
  EXPECT_EQ(automation_.log, Log{"range value 109 = 240"});
  automation_.listening = false;
  automation_.log.clear();
  MoveTo(300);
  EXPECT_EQ(automation_.log, Log{});
}

TEST_F(SplitterProviderTest, TheControlMayEndWhileItMoves) {
  const auto range = Range();
  endsAtRelease_ = true;
  EXPECT_EQ(range->SetValue(start_ + 60), S_OK);
  double value = 0;
  EXPECT_EQ(range->get_Value(&value), UIA_E_ELEMENTNOTAVAILABLE);
}

TEST_F(SplitterProviderTest, KeptAfterTheWindowsEndIsNotAvailableAndThenFreed) {
  auto range = Range();
  DestroyWindow(Handle());
  EXPECT_EQ(automation_.log, (Log{"return nothing", "disconnect"}));
  double value = 0;
  EXPECT_EQ(range->get_Value(&value), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(range->SetValue(start_ + 60), UIA_E_ELEMENTNOTAVAILABLE);
  provider_.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, 1) << "the client's own";
  range.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, 0);
}

}  // namespace
}  // namespace pricedown::testing
