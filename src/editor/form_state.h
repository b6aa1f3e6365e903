// State of one showing of the item class form, shared by the form's commands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "editor/form_view.h"
#include "editor/member_rows.h"
#include "env/environment.h"
#include "platform/lifetime.h"
#include "platform/recordset.h"

namespace pricedown {

// The mode that adds a new class; any other edits.
inline constexpr std::int16_t kAddMode = 1;

inline constexpr double kMinimumPercentage = 0;
inline constexpr double kMaximumPercentage = 100;

// The class's own attributes.
struct ClassHeader {
  std::u16string number;
  std::u16string name;
  std::u16string lossAccount;
  std::u16string reserveAccount;
  double percentage = 0;
  bool operator==(const ClassHeader&) const = default;
};

// The header as typed; `percentage` is the leading number of its text.
struct TypedHeader : ClassHeader {
  // The number that the whole text of the percentage is; none when it is no number.
  std::optional<double> wholePercentage;
  std::size_t percentageLength = 0;  // characters
};

// Reads the fields. A percentage beyond a double is the largest one.
TypedHeader ReadHeader(const ItemClassFormView& view);

struct FormState {
  // Set by the browser.
  std::int16_t mode = 0;
  std::u16string openingNumber;  // empty when adding; a save does not change it
  Recordset memberList;
  // Nothing reads it, but the suite sees its creation and its release.
  Recordset secondRecordSet;
  // Called when a class has been written; may be empty.
  std::function<void(bool added, std::u16string_view number)> whenSaved;
  // Called before a failure is shown to the user; may be empty.
  std::function<void(const Failure& failure)> whenFailed;

  // Items of all other classes, read again by every AddItem.
  Recordset otherClasses;
  // The member list as the last save wrote it; none before the first save.
  Recordset keptCopy;
  MemberRows rows;
  // The header as loaded or as last saved.
  ClassHeader savedValues;
  std::int32_t lossAccountId = 0;
  std::int32_t reserveAccountId = 0;
  bool saved = false;
  // A save failed while it put the header into the rows: only some of them carry it.
  bool headersMixed = false;

  bool IsAdding() const { return mode == kAddMode; }
};

// What every command of the form works on.
struct FormContext {
  Environment& environment;
  ItemClassFormView& view;
  MemberListView& members;
  FormState state;
  // Of one showing, from Load to Unload. A command asks it after each call that may run messages.
  Lifetime showing;

  bool HasEnded() const { return showing.HasEnded(); }
  // The handler may end the showing.
  void NotifyFailed(const Failure& failure) const {
    const auto handler = state.whenFailed;
    if (handler) handler(failure);
  }
};

// Counts the member list's rows again, from the first one on; the next read gets their texts. A
// no-op when the showing has ended. Throws AutomationError.
void CountRows(FormContext& form);

}  // namespace pricedown
