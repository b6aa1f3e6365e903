// The preview's page as UI Automation sees it: a document with its lines.
#include "tests/windows/base/recording_automation.h"
#include "tests/windows/print/preview_world.h"
#include "windows/com/bstr.h"
#include "windows/com/module_counts.h"
#include "windows/print/preview_pane.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;
using Log = std::vector<std::string>;

// A pane alone in a host window, with a document of `kRows` rows on several pages.
class PageProviderTest : public ::testing::Test, public windows::PaneEvents {
 protected:
  static constexpr std::int32_t kRows = 100;

  PageProviderTest() {
    FillDocument(document_, kRows);
    pages_.Remake();
    state_.SetPages(pages_.Count(), pages_.PrintedPaper());
    pane_->Create(host_.Handle(), GetModuleHandleW(nullptr), preview_ids::kPane, L"页面");
    SetWindowPos(Handle(), nullptr, 0, 0, 600, 500, SWP_NOZORDER);
    GoTo(1);
    provider_ = automation_.ProviderOf(Handle());
    automation_.log.clear();
  }

  HWND Handle() const { return pane_->Handle(); }
  void GoTo(std::int32_t page) {
    PaneChanges([&] { state_.GoTo(page); });
  }
  std::string Text() const {
    windows::Bstr text;
    EXPECT_EQ(provider_.As<IValueProvider>()->get_Value(text.put()), S_OK);
    return Utf8(text.Text());
  }
  static ComPtr<IRawElementProviderFragment> Neighbour(
      const ComPtr<IRawElementProviderFragment>& of, NavigateDirection direction) {
    ComPtr<IRawElementProviderFragment> neighbour;
    EXPECT_EQ(of->Navigate(direction, neighbour.put()), S_OK);
    return neighbour;
  }
  ComPtr<IRawElementProviderFragment> Root() const {
    return provider_.As<IRawElementProviderFragment>();
  }
  static std::string Property(const ComPtr<IRawElementProviderFragment>& element, PROPERTYID id) {
    return PropertyOf(element.As<IRawElementProviderSimple>().get(), id);
  }

  // PaneEvents
  void PaneChanges(const std::function<void()>& change) override {
    change();
    pages_.Turn(state_.Page());
    pane_->ShowState();
  }
  void PaneCommand(PreviewCommand) override {}

  HostWindow host_{700, 560};
  RecordingAutomation automation_;
  PrintDocument document_;
  ScriptedPrinting printing_;
  windows::PreviewPages pages_{document_, printing_};
  PreviewState state_;
  std::unique_ptr<windows::PreviewPane> pane_ =
      std::make_unique<windows::PreviewPane>(*this, state_, pages_, automation_);
  ComPtr<IRawElementProviderSimple> provider_;
};

TEST_F(PageProviderTest, IsADocumentWithTheTextOfThePage) {
  EXPECT_EQ(Property(Root(), UIA_ControlTypePropertyId), std::to_string(UIA_DocumentControlTypeId));
  EXPECT_EQ(Property(Root(), UIA_NamePropertyId), "页面");
  EXPECT_EQ(Property(Root(), UIA_AutomationIdPropertyId), std::to_string(preview_ids::kPane));
  EXPECT_NE(Text().find("01.1 六角头螺栓 1 M8×40 GB/T 5782 1.50\r\n"), std::string::npos);
  EXPECT_EQ(Text().find("01.100 "), std::string::npos) << "it is on another page";
  BOOL readOnly = FALSE;
  EXPECT_EQ(provider_.As<IValueProvider>()->get_IsReadOnly(&readOnly), S_OK);
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(provider_.As<IValueProvider>()->SetValue(L"x"), UIA_E_INVALIDOPERATION);
}

TEST_F(PageProviderTest, HasItsLinesAsChildrenInReadingOrder) {
  std::string text;
  auto line = Neighbour(Root(), NavigateDirection_FirstChild);
  EXPECT_EQ(Property(line, UIA_AutomationIdPropertyId), "line1");
  ComPtr<IRawElementProviderFragment> last;
  for (; line; line = Neighbour(last, NavigateDirection_NextSibling)) {
    if (!text.empty()) text += "\r\n";
    text += Property(line, UIA_NamePropertyId);
    EXPECT_EQ(Property(line, UIA_ControlTypePropertyId), std::to_string(UIA_TextControlTypeId));
    EXPECT_EQ(Neighbour(line, NavigateDirection_Parent).get(), Root().get());
    last = std::move(line);
  }
  EXPECT_EQ(text, Text());
  EXPECT_EQ(Property(last, UIA_NamePropertyId),
            Property(Neighbour(Root(), NavigateDirection_LastChild), UIA_NamePropertyId));
}

TEST_F(PageProviderTest, HasLinesWhereTheyShow) {
  const auto line = Neighbour(Root(), NavigateDirection_FirstChild);
  UiaRect area{};
  ASSERT_EQ(line->get_BoundingRectangle(&area), S_OK);
  ASSERT_GT(area.width, 0);
  ASSERT_GT(area.height, 0);
  ComPtr<IRawElementProviderFragment> found;
  const auto root = provider_.As<IRawElementProviderFragmentRoot>();
  ASSERT_EQ(root->ElementProviderFromPoint(area.left + area.width / 2, area.top + area.height / 2,
                                           found.put()),
            S_OK);
  EXPECT_EQ(Property(found, UIA_AutomationIdPropertyId), "line1");
  EXPECT_EQ(Property(line, UIA_IsOffscreenPropertyId), "false");
  PaneChanges([&] {
    state_.SetPercent(500);
    state_.ScrollBy(0, 100000);
  });
  EXPECT_EQ(Property(line, UIA_IsOffscreenPropertyId), "true");
  ASSERT_EQ(line->get_BoundingRectangle(&area), S_OK);
  EXPECT_EQ(area.width, 0);
}

TEST_F(PageProviderTest, ATurnedPageRaisesItsTextOnceAndScrollingNothing) {
  GoTo(2);
  ASSERT_EQ(automation_.log.size(), 2u);
  EXPECT_EQ(automation_.log[0], "children 509");
  EXPECT_EQ(automation_.log[1], "value 509 = " + Text());
  automation_.log.clear();
  PaneChanges([&] { state_.SetPercent(200); });
  PaneChanges([&] { state_.ScrollBy(0, 50); });
  EXPECT_EQ(automation_.log, Log{});
}

TEST_F(PageProviderTest, RaisesNothingWithoutListeners) {
  automation_.listening = false;
  GoTo(2);
  EXPECT_EQ(automation_.log, Log{});
}

TEST_F(PageProviderTest, RaisesTheTurnBackForAClientThatListensLater) {
  automation_.listening = false;
  GoTo(2);
  automation_.listening = true;
  GoTo(1);
  EXPECT_EQ(automation_.log, (Log{"children 509", "value 509 = " + Text()}));
}

TEST_F(PageProviderTest, ALineThatThePageLacksIsNotAvailable) {
  auto line = Neighbour(Root(), NavigateDirection_LastChild);
  GoTo(state_.PageCount());
  const std::string text = Text();
  ASSERT_LT(std::count(text.begin(), text.end(), '\n'), 40) << "a short last page";
  UiaRect area{};
  EXPECT_EQ(line->get_BoundingRectangle(&area), UIA_E_ELEMENTNOTAVAILABLE);
}

TEST_F(PageProviderTest, KeptAfterTheWindowsEndIsNotAvailableAndThenFreed) {
  auto line = Neighbour(Root(), NavigateDirection_FirstChild);
  pane_.reset();
  EXPECT_EQ(automation_.log, (Log{"return nothing", "disconnect"}));
  VARIANT name{};
  EXPECT_EQ(provider_->GetPropertyValue(UIA_NamePropertyId, &name), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(line->SetFocus(), UIA_E_ELEMENTNOTAVAILABLE);
  line.attach(nullptr);
  provider_.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, 0);
}

}  // namespace
}  // namespace pricedown::testing
