// Titles and rows of the item grid.
// How a grid splits a row's text is the grid's business.
#include "editor/ic_list.h"

#include "env/translation.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "store/tables.h"

namespace pricedown {

bool ICList::Refresh(std::u16string_view dataSource, std::u16string_view serverName,
                     std::u16string_view tableId) {
  const ObjectPtr server = factory_.Create(serverName);
  titles_ =
      Recordset(RequireObject(server->Call(u"GetLdgTitle", {dataSource, tableId}), u"GetLdgTitle"));
  rows_ = Recordset(RequireObject(server->Call(u"GetLdgInfo", {dataSource}), u"GetLdgInfo"));
  return false;
}

std::u16string ICList::FieldTitle(std::u16string_view) const {
  constexpr std::u16string_view kSign = u"|";
  return Concatenate({Translate(u"物料代码"), kSign, Translate(u"物料名称"), kSign,
                      Translate(u"规格型号"), kSign});
}

std::u16string ICList::FieldData(std::int32_t, std::u16string_view sign) {
  if (rows_.AtEnd()) return {};
  std::u16string text =
      Concatenate({ToText(rows_.Field(columns::kNumber)), sign, ToText(rows_.Field(columns::kName)),
                   sign, ToText(rows_.Field(columns::kModel)), sign});
  rows_.MoveNext();
  return text;
}

}  // namespace pricedown
