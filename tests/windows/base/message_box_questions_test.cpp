// Message boxes: icon, buttons and owner, and the report of a failure.
#include "windows/base/message_box_questions.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/windows/base/message_boxes.h"
#include "tests/windows/control/ui_world.h"

namespace pricedown::testing {
namespace {

const std::vector<int> kOkOnly{IDOK};
const std::vector<int> kYesAndNo{IDYES, IDNO};

TEST(MessageBoxQuestions, HaveTheirIconAndButtonsAndTheHostsWindowAsOwner) {
  UiWorld world;
  world.Start();
  MessageBoxes boxes;
  boxes.WillPress({IDOK, IDOK, IDYES, IDNO});
  windows::MessageBoxQuestions questions(*world.window);
  questions.ShowMessage(u"没有权限,请与系统管理员联系", u"岚禾提示", MessageIcon::Information);
  questions.ShowMessage(u"\r\n超时", u"岚禾提示", MessageIcon::None);
  EXPECT_TRUE(questions.Confirm(u"确实要删除吗?", u"岚禾提示", MessageIcon::Question));
  EXPECT_FALSE(questions.Confirm(u"确实要保存吗?", u"岚禾提示", MessageIcon::None));
  const std::vector<MessageBoxes::Shown>& shown = boxes.All();
  ASSERT_EQ(shown.size(), 4u);
  EXPECT_EQ(shown[0].text, "没有权限,请与系统管理员联系");
  EXPECT_EQ(shown[0].icon, LoadIconW(nullptr, IDI_INFORMATION));
  EXPECT_EQ(shown[0].buttons, kOkOnly);
  EXPECT_EQ(shown[1].icon, nullptr);
  EXPECT_EQ(shown[1].buttons, kOkOnly);
  EXPECT_EQ(shown[2].icon, LoadIconW(nullptr, IDI_QUESTION));
  EXPECT_EQ(shown[2].buttons, kYesAndNo);
  EXPECT_EQ(shown[3].icon, nullptr);
  EXPECT_EQ(shown[3].buttons, kYesAndNo);
  for (const auto& box : shown) {
    EXPECT_EQ(box.title, "岚禾提示");
    EXPECT_EQ(box.owner, world.host.Handle());
  }
}

TEST(ReportFailure, ReturnsTheFocusInAHostThatPassesNone) {
  HostWindow host(300, 200);
  const HWND field = CreateWindowExW(0, L"EDIT", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 100, 20,
                                     host.Handle(), nullptr, nullptr, nullptr);
  SetFocus(field);
  MessageBoxes boxes;
  boxes.WillPress({IDOK});
  windows::ReportFailure(host.Handle(), {E_OUTOFMEMORY, {}, {}});
  EXPECT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(GetFocus(), field);
}

TEST(ReportFailure, ShowsAnInformationThatSomethingUnexpectedFailedWithoutDescription) {
  MessageBoxes boxes;
  windows::ReportFailure(nullptr, {E_OUTOFMEMORY, {}, {}});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "意外错误");
  EXPECT_EQ(boxes.All()[0].icon, LoadIconW(nullptr, IDI_INFORMATION));
  EXPECT_EQ(boxes.All()[0].buttons, kOkOnly);
}

}  // namespace
}  // namespace pricedown::testing
