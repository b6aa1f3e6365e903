// The table of keys in the tester guide, line by line at the print preview: the key is pressed, and
// the command has run.
#include <functional>
#include <map>
#include <string>

#include "tests/control/guide_keys.h"
#include "tests/windows/control/guide_user.h"
#include "tests/windows/print/preview_world.h"

namespace pricedown::testing {
namespace {

class PressedPreviewKeys : public PreviewWorld {
 protected:
  bool Called(const std::string& call) const {
    return std::find(printing.calls.begin(), printing.calls.end(), call) != printing.calls.end();
  }
  bool IsPageSelected() const {
    DWORD from = 0;
    DWORD to = 0;
    const HWND field = Child(preview_ids::kPage);
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return GetFocus() == field && from == 0 && to == TextIn(preview_ids::kPage).size();
  }
  bool IsOnPage(const char* page) const { return Page().starts_with(page); }

  // On the third page of five, at 100 percent.
  const std::map<std::string, std::function<bool()>> ran_{
      {"打印", [this] { return Called("print"); }},
      {"页面设置", [this] { return Called("page set-up"); }},
      {"字体", [this] { return !fonts.shown.empty(); }},
      {"首页", [this] { return IsOnPage("1 "); }},
      {"上一页", [this] { return IsOnPage("2 "); }},
      {"下一页", [this] { return IsOnPage("4 "); }},
      {"末页", [this] { return IsOnPage("5 "); }},
      {"缩小", [this] { return Zoom() == "75%"; }},
      {"放大", [this] { return Zoom() == "125%"; }},
      {"整页", [this] { return ScrollRange(SB_VERT) == 0; }},
      {"页宽", [this] { return Zoom() != "100%" && ScrollRange(SB_VERT) > 0; }},
      {"页码", [this] { return IsPageSelected(); }},
      {"关闭", [this] { return Window() == nullptr; }},
  };
};

TEST_F(PressedPreviewKeys, RunTheCommandsOfThePreview) {
  FillDocument(document, 200);
  std::size_t pressed = 0;
  const auto run = [&](const GuideKey& row, const std::string& by, const Steps& way) {
    const std::string name = by + ", " + row.command;
    SCOPED_TRACE(name);
    ASSERT_TRUE(ran_.contains(row.command));
    const std::function<bool()>& ran = ran_.at(row.command);
    printing.calls.clear();
    fonts.shown.clear();
    Steps steps{[&] { TypeZoom(u"100"); }, [&] { TypePage(u"3"); },
                [&] {
                  SetFocus(Child(preview_ids::kPane));
                  EXPECT_FALSE(ran()) << name << " before: " << Page() << " at " << Zoom();
                }};
    if (row.command == "关闭") {
      // No step runs behind it; a preview that stays fails the test.
      steps.push_back(way.front());
    } else {
      Append(steps, way);
      steps.push_back([&] {
        EXPECT_TRUE(ran()) << name << ": " << Page() << " at " << Zoom();
        CloseByFrame();
      });
    }
    Show(std::move(steps));
    ++pressed;
  };
  for (const GuideKey& row : ReadGuideKeys()) {
    if (row.place != "preview") continue;
    for (const std::string& key : row.keys) run(row, key, StepsOfKey(PressOfText(key)));
    if (row.way == "bar") run(row, row.way, StepsByBar(row.command));
  }
  EXPECT_EQ(pressed, 13u);
}

}  // namespace
}  // namespace pricedown::testing
