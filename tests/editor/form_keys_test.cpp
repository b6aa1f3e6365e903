// Key tables of the item class form.
#include "editor/form_keys.h"

#include <gtest/gtest.h>

#include <string>

namespace pricedown {
namespace {

constexpr KeyPress Control(Key key) { return {key, false, true}; }

TEST(FormKeys, ControlSSavesAndControlNStartsANewClass) {
  EXPECT_EQ(ToolOfKey(Control(Key::S)), FormTool::Save);
  EXPECT_EQ(ToolOfKey(Control(Key::N)), FormTool::Add);
  EXPECT_EQ(ToolOfKey({Key::S}), std::nullopt);
  EXPECT_EQ(ToolOfKey(Control(Key::A)), std::nullopt);
  // AltGr arrives as Ctrl+Alt.
  EXPECT_EQ(ToolOfKey({Key::S, false, true, true}), std::nullopt);
}

TEST(FormKeys, F7F4AndAltDownOpenTheLookup) {
  EXPECT_TRUE(OpensLookup({Key::F7}));
  EXPECT_TRUE(OpensLookup({Key::F4}));
  EXPECT_TRUE(OpensLookup({Key::Down, false, false, true}));
  EXPECT_FALSE(OpensLookup({Key::F4, false, false, true})) << "Alt+F4 closes the form";
  EXPECT_FALSE(OpensLookup({Key::Down}));
  EXPECT_FALSE(OpensLookup(Control(Key::F4)));
  EXPECT_FALSE(OpensLookup({Key::Down, false, true, true}));
  for (const Key key : {Key::Enter, Key::F6, Key::F10, Key::None}) EXPECT_FALSE(OpensLookup({key}));
}

TEST(FormKeys, F7OpensTheLookupWithShiftAndControlButNotWithAlt) {
  EXPECT_TRUE(OpensLookup(Control(Key::F7)));
  EXPECT_TRUE(OpensLookup({Key::F7, true}));
  EXPECT_TRUE(OpensLookup({Key::F7, true, true}));
  EXPECT_FALSE(OpensLookup({Key::F7, false, false, true}));
}

TEST(FormKeys, EnterGoesFromTheTopDownAndThenToTheList) {
  EXPECT_EQ(FieldAfter(FormField::ClassNumber), FormField::ClassName);
  EXPECT_EQ(FieldAfter(FormField::ClassName), FormField::ReserveAccount);
  EXPECT_EQ(FieldAfter(FormField::ReserveAccount), FormField::LossAccount);
  EXPECT_EQ(FieldAfter(FormField::LossAccount), FormField::Percentage);
  EXPECT_EQ(FieldAfter(FormField::Percentage), std::nullopt);
}

TEST(FormKeys, TheListSelectsCopiesAndAddsButNeverRemoves) {
  EXPECT_EQ(MemberListCommandOf(Control(Key::A)), MemberListCommand::SelectAll);
  EXPECT_EQ(MemberListCommandOf(Control(Key::C)), MemberListCommand::Copy);
  EXPECT_EQ(MemberListCommandOf(Control(Key::Insert)), MemberListCommand::Copy);
  EXPECT_EQ(MemberListCommandOf({Key::Insert}), MemberListCommand::AddItem);
  EXPECT_EQ(MemberListCommandOf({Key::C, true, true}), MemberListCommand::CopyTitled);
  EXPECT_EQ(MemberListCommandOf({Key::Delete}), std::nullopt);
  EXPECT_EQ(MemberListCommandOf({Key::A}), std::nullopt);
}

TEST(FormKeys, TheListsMenuOffersWhatHasSomethingToDo) {
  const auto enabled = [](std::size_t items, std::size_t selected) {
    std::string commands;
    for (const MemberListRow& row : kMemberListMenu) {
      commands += HasItemsFor(row.command, items, selected) ? 'x' : '-';
    }
    return commands;
  };
  EXPECT_EQ(enabled(0, 0), "x----");
  EXPECT_EQ(enabled(3, 0), "x---x");
  EXPECT_EQ(enabled(3, 1), "xxxxx");
}

TEST(FormFields, NumberAndNameRefuseBlanksAndApostrophes) {
  for (const FormField field : kFormFields) {
    const bool filters = field == FormField::ClassNumber || field == FormField::ClassName;
    EXPECT_EQ(IsTypeable(field, u' '), !filters);
    EXPECT_EQ(IsTypeable(field, u'\''), !filters);
    for (const char16_t character : {u'a', u'Z', u'0', u'"', u'\t', u'\b', u'-', u'类', u'　'}) {
      EXPECT_TRUE(IsTypeable(field, character));
    }
  }
}

}  // namespace
}  // namespace pricedown
