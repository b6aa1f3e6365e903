// A form with recording views and a scripted suite, for the tests of the editor.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/item_class_form.h"
#include "tests/editor/recording_form.h"
#include "tests/env/recording_screen.h"
#include "tests/support/failure.h"
#include "tests/support/recording_factory.h"
#include "tests/support/recording_questions.h"
#include "tests/support/scripted_recordset.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

inline constexpr std::u16string_view kLedgerViewId = u"ZEPEBCGLView.GLView";
inline constexpr std::u16string_view kConnectionId = u"ZEPConnection.AppConnection";

// The log of clearing the form for the next class.
inline const std::string kEmptied = Lines(R"(
    text itemClassNumber = ""
    enable Save
    text ItemClassName = ""
    enable Save
    text txtitem(0) = ""
    enable Save
    text txtitem(1) = ""
    enable Save
    text txtPencent = ""
    enable Save
    focus itemClassNumber
    enable Save
    rows 3
    )");

// A member item; the class columns are those of the class in the test.
struct MemberItem {
  std::int32_t id = 0;
  std::u16string code;
  std::u16string name;
  Value model;
};

// The class "01" of most tests.
ClassHeader RawMaterials();
// Bolts and nuts; the nut has no model.
std::vector<MemberItem> BoltAndNut();

// The inventory module is in period 3 of 2008.
void AnswerPeriod(RecordingFactory& factory);

// Everything of one form; a test may create several.
struct EditorWorld {
  EditorWorld();
  EditorWorld(const EditorWorld&) = delete;
  EditorWorld& operator=(const EditorWorld&) = delete;

  // A member list with the fifteen fields, positioned after its last row.
  Recordset Members(const ClassHeader& header, const std::vector<MemberItem>& items);
  // Open the form for a new class or on a class, and empty the log.
  void OpenForAdd();
  void OpenForEdit(const ClassHeader& header, const std::vector<MemberItem>& items);
  void OpenForEdit() { OpenForEdit(RawMaterials(), BoltAndNut()); }
  void Type(const ClassHeader& header, std::u16string_view percentage);

  // The company's answers to the statements of a save of class "01", or of a new class.
  void AnswerChecks(bool adding, std::vector<std::u16string> otherNumbers = {});
  void AnswerAccountIds();
  // Any save statement returns nothing; the checks' statements have their own scripts.
  void AcceptSaves();
  // As after any change of the list: the form reads its rows again.
  void ReadRows();
  // The item ids of the member list, in order.
  std::vector<std::int32_t> MemberIds();
  // The values of one column of the member list, as readable texts.
  std::vector<std::string> Column(std::u16string_view name);

  CallLog log;
  RecordingFactory factory{log};
  RecordingQuestions questions{log};
  RecordingScreen screen{factory.GetRecorder()};
  ThreadState state;
  Environment environment{factory, state, questions, screen, u"Host"};
  RecordingFormView view{log};
  RecordingMemberListView list{log};
  ItemClassForm form{environment, view, list};
};

class EditorTest : public ::testing::Test, protected EditorWorld {};

}  // namespace pricedown::testing
