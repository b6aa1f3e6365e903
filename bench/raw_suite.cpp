// The same calls as the library, in its order. Single values use the library's readers, which add
// no calls.
#include "bench/raw_suite.h"

#include <functional>
#include <initializer_list>
#include <string>

#include "bench/silent_user.h"
#include "browser/display_font.h"
#include "control/update_price.h"
#include "env/language.h"
#include "env/messages.h"
#include "env/rights.h"
#include "env/system_profile.h"
#include "env/thread_state.h"
#include "env/user_settings.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace bench {
namespace {

using namespace pricedown;

using RowSeen = std::function<void(std::u16string_view first, std::u16string_view second)>;

// Sends the statement and reads those columns of each row; `row` sees the first two.
void Walk(ObjectFactory& factory, std::u16string_view statement,
          std::vector<std::u16string_view> columns, const RowSeen& row) {
  const std::size_t count = columns.size();
  RowReader rows(Connection(factory).Execute(statement), std::move(columns),
                 NullCells::AsEmptyText);
  std::u16string first;
  std::u16string second;
  while (rows.Next()) {
    for (std::size_t column = 2; column < count; ++column) rows.Field(column);
    row(CellText(rows.Field(0), first), CellText(rows.Field(1), second));
  }
}

}  // namespace

std::vector<std::u16string> TreeTexts(ObjectFactory& factory) {
  std::vector<std::u16string> texts;
  std::u16string last;
  Walk(factory, statements::ClassTree(), {columns::kItemClassNumber, columns::kItemClassName},
       [&](auto number, auto name) {
         if (number == last) return;
         last = number;
         texts.push_back(Concatenate({number, u"(", Trim(name), u")"}));
       });
  return texts;
}

void WalkItems(ObjectFactory& factory, std::u16string_view classNumber) {
  Walk(factory, statements::ItemsOfClass(classNumber),
       {columns::kNumber, columns::kName, columns::kModel}, [](auto, auto) {});
}

void WalkAllItems(ObjectFactory& factory) {
  Walk(factory, statements::AllItems(), {columns::kNumber, columns::kName, columns::kModel},
       [](auto, auto) {});
}

void WalkMembers(ObjectFactory& factory, std::u16string_view classNumber) {
  Walk(factory, statements::ItemsOfClass(classNumber),
       {columns::kNumber, columns::kName, columns::kShortNumber, columns::kModel, columns::kItemId,
        columns::kItemClassNumber, columns::kItemClassName, columns::kLossAccountId,
        columns::kLossAccountNumber, columns::kReserveAccountId, columns::kReserveAccountNumber,
        columns::kPercentage},
       [](auto, auto) {});
}

void AskForCreation(ObjectFactory& factory) {
  ThreadState state;
  LoadControlTexts(factory, nullptr);
  SystemSetting(factory, u"IC", u"UseShortNumber");
  ReadCurrentPeriod(factory, state);
  UpdatePrice(factory).ReadItemClassType();
  Font font;
  ReadFontProperties(factory, font);
}

void AskForShowing(ObjectFactory& factory) {
  ThreadState state;
  SilentUser user;
  Messages messages(user);
  Rights(factory, state, messages).ReadDataScope();
  for (const std::u16string_view key :
       std::initializer_list<std::u16string_view>{u"NodeSel1", kGridFontKey, kReportFontSizeKey}) {
    ReadUserSetting(factory, u"pricedown_bench", key, u"");
  }
  WalkItems(factory, u"0");
}

void DeleteClass(ObjectFactory& factory, std::u16string_view classNumber) {
  const auto [year, period] = ReadYearAndPeriod(factory, u"IC");
  Connection connection(factory);
  connection.Execute(statements::ProvisionVoucher(year, period));
  connection.Execute(statements::ClassHistory(year, period, classNumber));
  connection.Execute(statements::DeleteClassProvision(year, period, classNumber));
  connection.Execute(statements::DeleteClass(classNumber));
  TreeTexts(factory);
  WalkItems(factory, u"0");
}

}  // namespace bench
