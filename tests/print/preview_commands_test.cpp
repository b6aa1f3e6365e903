// The preview's buttons and keys.
#include "print/preview_commands.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/case_name.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

template <typename Buttons>
std::string Tooltips(const Buttons& buttons) {
  std::string tooltips;
  for (const PreviewButton& button : buttons) tooltips += Utf8(TooltipOf(button)) + "\n";
  return tooltips;
}

TEST(PreviewButtons, SayWhatTheyDoAndByWhichKey) {
  EXPECT_EQ(Tooltips(kDocumentButtons),
            "打印 (Ctrl+P)\n纸张、方向和页边距\n字体，与列表共用\n\n首页 (Ctrl+Home)\n"
            "上一页 (Ctrl+PgUp)\n下一页 (Ctrl+PgDn)\n末页 (Ctrl+End)\n");
  EXPECT_EQ(Tooltips(kViewButtons), "缩小 (-)\n放大 (+)\n显示整页\n按页宽显示\n\n关闭 (Esc)\n");
}

TEST(PreviewButtons, RunByTheirKeysExceptEscapeWhichIsTheDialogs) {
  const auto check = [](const PreviewButton& button) {
    for (const KeyPress& key : button.keys) {
      if (key == KeyPress{}) continue;
      const auto expected = key.key == Key::Escape ? std::nullopt : std::optional(button.command);
      EXPECT_EQ(CommandOfKey(key, PreviewFocus::Page), expected) << Utf8(button.key);
    }
  };
  for (const PreviewButton& button : kDocumentButtons) check(button);
  for (const PreviewButton& button : kViewButtons) check(button);
}

using C = PreviewCommand;
constexpr auto kNone = std::optional<PreviewCommand>();

struct KeyCase {
  const char* name;
  KeyPress press;
  // With the focus in the page, in the buttons, in a field.
  std::optional<PreviewCommand> page;
  std::optional<PreviewCommand> buttons;
  std::optional<PreviewCommand> field;
};
void PrintTo(const KeyCase& key, std::ostream* stream) { *stream << key.name; }

KeyPress WithControl(Key key) { return {key, false, true}; }

class PreviewKey : public ::testing::TestWithParam<KeyCase> {};

TEST_P(PreviewKey, DependsOnTheFocus) {
  const KeyCase& key = GetParam();
  EXPECT_EQ(CommandOfKey(key.press, PreviewFocus::Page), key.page);
  EXPECT_EQ(CommandOfKey(key.press, PreviewFocus::Buttons), key.buttons);
  EXPECT_EQ(CommandOfKey(key.press, PreviewFocus::Field), key.field);
}

INSTANTIATE_TEST_SUITE_P(
    CommandOfKey, PreviewKey,
    ::testing::Values(
        KeyCase{"P", {Key::P}, kNone, kNone, kNone},
        KeyCase{"ControlP", WithControl(Key::P), C::Print, C::Print, C::Print},
        KeyCase{"ControlAltP", {Key::P, false, true, true}, kNone, kNone, kNone},
        KeyCase{"ControlG", WithControl(Key::G), C::EnterPage, C::EnterPage, C::EnterPage},
        KeyCase{"PageUp", {Key::PageUp}, C::ScreenUp, C::ScreenUp, C::ScreenUp},
        KeyCase{"ControlPageUp", WithControl(Key::PageUp), C::Previous, C::Previous, C::Previous},
        KeyCase{"ControlPageDown", WithControl(Key::PageDown), C::Next, C::Next, C::Next},
        KeyCase{"Home", {Key::Home}, C::Top, kNone, kNone},
        KeyCase{"ControlHome", WithControl(Key::Home), C::First, C::First, kNone},
        KeyCase{"End", {Key::End}, C::Bottom, kNone, kNone},
        KeyCase{"ControlEnd", WithControl(Key::End), C::Last, C::Last, kNone},
        KeyCase{"Left", {Key::Left}, C::LineLeft, kNone, kNone},
        KeyCase{"ControlDown", WithControl(Key::Down), C::LineDown, kNone, kNone},
        KeyCase{"Plus", {Key::Plus, true}, C::ZoomIn, C::ZoomIn, kNone},
        KeyCase{"ControlPlus", WithControl(Key::Plus), C::ZoomIn, C::ZoomIn, C::ZoomIn},
        KeyCase{"Subtract", {Key::Subtract}, C::ZoomOut, C::ZoomOut, kNone},
        KeyCase{"ControlMinus", WithControl(Key::Minus), C::ZoomOut, C::ZoomOut, C::ZoomOut},
        KeyCase{"None", {}, kNone, kNone, kNone},
        KeyCase{"Minus", {Key::Minus}, C::ZoomOut, C::ZoomOut, kNone},
        KeyCase{"PageDown", {Key::PageDown, true}, C::ScreenDown, C::ScreenDown, C::ScreenDown},
        KeyCase{"Enter", {Key::Enter}, kNone, kNone, kNone}),
    CaseName<KeyCase>);

}  // namespace
}  // namespace pricedown::testing
