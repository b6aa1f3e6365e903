// Captions of the item class form, in the order in which loading sets them.
#pragma once

#include <array>
#include <string_view>

#include "editor/form_view.h"

namespace pricedown {

struct FormCaptionRow {
  FormCaption target;
  std::u16string_view name;  // by which the suite's form resources find it
  std::u16string_view text;  // before Translate
};

inline constexpr std::array<FormCaptionRow, 8> kFormCaptions{{
    {FormCaption::Title, u"frmItemClass", u"物料类别维护"},
    {FormCaption::Frame1, u"Frame1", u"对应明细物料："},
    {FormCaption::FrameAdd, u"FrameAdd", u"物料类别："},
    {FormCaption::Label5, u"Label5", u"计提跌价比例(%)："},
    {FormCaption::Label4, u"Label4", u"对应存货跌价准备科目："},
    {FormCaption::Label3, u"Label3", u"对应存货跌价损失科目："},
    {FormCaption::Label2, u"Label2", u"物料类别名称："},
    {FormCaption::Label1, u"Label1", u"物料类别代码："},
}};

}  // namespace pricedown
