// The account picker and the item picker.
#include "workbench/pickers/picker_description.h"

namespace workbench {

const PickerDescription& AccountPicker() {
  static constexpr PickerColumn kColumns[] = {{u"科目代码", 130}, {u"科目名称", 0}};
  static const PickerDescription description{
      AccountTable(), u"选择科目",           kColumns, u"输入科目代码或名称查找",
      u"个科目",      u"没有符合条件的科目", 460,      460};
  return description;
}

const PickerDescription& ItemPicker() {
  static constexpr PickerColumn kColumns[] = {
      {u"物料代码", 150}, {u"物料名称", 210}, {u"规格型号", 0}};
  static const PickerDescription description{
      ItemTable(), u"选择物料",           kColumns, u"输入物料代码、名称或规格型号查找",
      u"种物料",   u"没有符合条件的物料", 660,      500};
  return description;
}

}  // namespace workbench
