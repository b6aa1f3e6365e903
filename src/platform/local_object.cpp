// What the member tables of all local objects share.
#include "platform/local_object.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {

void ThrowUnknownName(std::u16string_view name) {
  throw AutomationError(ErrorNumber::UnknownName,
                        name.empty() ? std::u16string(u"对象没有默认成员")
                                     : Concatenate({u"对象不支持此属性或方法: ", name}));
}

void ThrowMemberNotFound(std::u16string_view name) {
  throw AutomationError(ErrorNumber::MemberNotFound,
                        name.empty() ? std::u16string(u"对象没有此编号的成员")
                                     : Concatenate({u"成员不能这样使用: ", name}));
}

void CheckArgumentCount(std::u16string_view name, std::size_t given, std::size_t least,
                        std::size_t most) {
  if (given >= least && given <= most) return;
  throw AutomationError(
      ErrorNumber::BadParameterCount,
      Concatenate({u"参数个数错误: ", name, u" (", NumberText(static_cast<double>(given)), u")"}));
}

bool NamesEqual(std::u16string_view left, std::u16string_view right) {
  return EqualsIgnoringCase(left, right);
}

}  // namespace pricedown
