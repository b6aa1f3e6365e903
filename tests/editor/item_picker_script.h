// A suite whose item picker offers a washer and a rivet.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/editor/editor_test.h"

namespace pricedown::testing {

inline constexpr std::u16string_view kOthersOfNew =
    u"SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>''";
inline constexpr std::u16string_view kOthersOf01 =
    u"SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'01'";

// An item of the picker.
inline void ScriptItem(RecordingFactory& factory, std::u16string_view object, std::int32_t id,
                       std::u16string_view code, std::u16string_view name, Value model) {
  factory.Object(object)
      .On(u"Properties", R"("FItemID")", Reply(id))
      .On(u"Properties", R"("FNumber")", Reply(code))
      .On(u"Properties", R"("FName")", Reply(name))
      .On(u"Properties", R"("FModel")", Reply(std::move(model)));
}

// A suite whose picker offers a washer and a rivet; the test sets the choice.
inline void ScriptPicker(RecordingFactory& factory, std::vector<std::vector<Value>> otherItems) {
  factory.Object(u"ZEPEBCBASE.Dictionary").On(u"Add", Reply(Value()));
  factory.Object(kLedgerViewId).On(u"ItemLookUp", factory.Answering(u"result"));
  ScriptItem(factory, u"washer", 201, u"02.001", u"垫圈", u"φ4");
  ScriptItem(factory, u"rivet", 202, u"02.002", u"铆钉", Null{});
  for (const std::u16string_view statement : {kOthersOfNew, kOthersOf01}) {
    AnswerStatement(factory, statement, Rows({u"FItemID"}, otherItems));
  }
}

inline void ChooseOne(RecordingFactory& factory, std::u16string_view item) {
  factory.Object(u"result")
      .On(u"ReturnOK", Reply(true))
      .On(u"ReturnValue", Reply(u"02.001"))
      .On(u"ReturnObject", factory.Answering(item));
}

inline void ChooseBoth(RecordingFactory& factory) {
  factory.Object(u"result")
      .On(u"ReturnOK", Reply(true))
      .On(u"ReturnValue", Reply(u""))
      .On(u"ReturnObject", factory.Answering(u"chosen"));
  factory.Object(u"chosen")
      .On(u"Size", Reply(2))
      .On(u"", "1", factory.Answering(u"washer"))
      .On(u"", "2", factory.Answering(u"rivet"));
}

inline void Cancel(RecordingFactory& factory) {
  factory.Object(u"result").On(u"ReturnOK", Reply(false));
}

}  // namespace pricedown::testing
