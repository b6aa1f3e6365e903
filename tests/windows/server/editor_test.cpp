// The item class form of addRecord and editRecord of the built DLL, over a real host window.
#include <gtest/gtest.h>

#include <string>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/support/modal_steps.h"
#include "windows/editor/form_ids.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

HWND Form() { return FindWindowW(L"PriceDown.ItemClass", nullptr); }

void CloseForm() { PostMessageW(Form(), WM_CLOSE, 0, 0); }

std::wstring TextIn(int id) {
  wchar_t text[64] = {};
  GetWindowTextW(GetDlgItem(Form(), id), text, 64);
  return text;
}

TEST(ItemClassForm, IsShownOverTheHostUntilItIsClosed) {
  ControlHost host;
  host.Open();
  ModalSteps user({[&] {
                     EXPECT_EQ(GetWindow(Form(), GW_OWNER), host.frame.Handle());
                     EXPECT_EQ(IsWindowEnabled(host.frame.Handle()), FALSE);
                   },
                   CloseForm});
  EXPECT_EQ(Expression(host.control.get(), L"addRecord"), "S_OK Empty");
  EXPECT_TRUE(user.Ended());
  EXPECT_NE(IsWindowEnabled(host.frame.Handle()), FALSE);
  EXPECT_EQ(Form(), nullptr);
}

TEST(ItemClassForm, ShowsTheClassOfTheGrid) {
  ControlHost host;
  host.Open();
  ModalSteps user({[] { EXPECT_EQ(TextIn(windows::form_ids::kClassNumber), L"01"); }, CloseForm});
  EXPECT_EQ(Expression(host.control.get(), L"editRecord"), "S_OK Empty");
  EXPECT_TRUE(user.Ended());
}

TEST(ItemClassForm, IsRefusedToASecondCommandWhileItIsShown) {
  ControlHost host;
  host.Open();
  std::string answer;
  ModalSteps user({[&] { answer = Statement(host.control.get(), L"addRecord"); },
                   [] { EXPECT_NE(IsWindowVisible(Form()), FALSE); }, CloseForm});
  EXPECT_EQ(Expression(host.control.get(), L"addRecord"), "S_OK Empty");
  EXPECT_TRUE(user.Ended());
  EXPECT_NE(answer.find("物料类别维护窗口已经打开"), std::string::npos) << answer;
}

TEST(ItemClassForm, IsOneForTwoControls) {
  ControlHost host;
  host.Open();
  ComPtr<IDispatch> second = host.library.NewPriceDown();
  std::string answer;
  ModalSteps user({[&] { answer = Statement(second.get(), L"addRecord"); }, CloseForm});
  EXPECT_EQ(Expression(host.control.get(), L"addRecord"), "S_OK Empty");
  EXPECT_TRUE(user.Ended());
  EXPECT_NE(answer.find("物料类别维护窗口已经打开"), std::string::npos) << answer;
}

TEST(ItemClassForm, EndsWhenTheHostEndsWhileItIsShown) {
  ControlHost host;
  host.Open();
  ModalSteps user({[&] { host.frame.Destroy(); }});
  EXPECT_EQ(Statement(host.control.get(), L"addRecord"), "S_OK");
  EXPECT_TRUE(user.Ended());
  EXPECT_EQ(Form(), nullptr);
}

TEST(ItemClassForm, MayOutliveTheControlThatShowsIt) {
  ControlHost host;
  host.Open();
  ModalSteps user({[&] {
                     host.Close();
                     host.LeaveSite();
                   },
                   CloseForm});
  EXPECT_EQ(Statement(host.control.get(), L"addRecord"), "S_OK");
  EXPECT_TRUE(user.Ended());
}

TEST(ItemClassForm, LeavesNothingWhenItCannotBeLoaded) {
  ControlHost host;
  host.Open();
  host.world.factory.Refuses(u"ADODB.Recordset");
  const std::string answer = Statement(host.control.get(), L"addRecord");
  EXPECT_EQ(answer.substr(0, 9), "exception") << answer;
  EXPECT_NE(IsWindowEnabled(host.frame.Handle()), FALSE);
  EXPECT_EQ(Form(), nullptr);
}

}  // namespace
}  // namespace pricedown::testing
