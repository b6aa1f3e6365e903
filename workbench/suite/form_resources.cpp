// The stand-in's texts in other languages, by control name. Texts in the built-in language are the
// library's own.
#include "workbench/suite/form_resources.h"

#include "platform/convert.h"
#include "platform/text.h"

namespace workbench {

using pricedown::Access;
using pricedown::EqualsIgnoringCase;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::ObjectPtr;
using pricedown::ToText;
using pricedown::Value;

namespace {

struct Caption {
  std::u16string_view form;
  std::u16string_view control;
  std::u16string_view traditional;
  std::u16string_view english;
};

constexpr std::u16string_view kControl = u"PriceDown";
constexpr std::u16string_view kEditor = u"frmItemClass";
constexpr Caption kCaptions[] = {
    {kControl, u"SSPTitleClass", u"物料類別", u"Item classes"},
    {kControl, u"SSPTitleItem", u"對應明細物料", u"Items of the class"},
    {kControl, u"tbToolBar.Add", u"新增", u"New"},
    {kControl, u"tbToolBar.Edit", u"修改", u"Change"},
    {kControl, u"tbToolBar.Del", u"刪除", u"Delete"},
    {kControl, u"tbToolBar.Print", u"列印", u"Print"},
    {kControl, u"tbToolBar.PrintView", u"預覽", u"Preview"},
    {kControl, u"tbToolBar.Exit", u"退出", u"Exit"},
    {kEditor, u"frmItemClass", u"物料類別維護", u"Item class"},
    {kEditor, u"Label1", u"物料類別代碼：", u"Class number:"},
    {kEditor, u"Label2", u"物料類別名稱：", u"Class name:"},
    {kEditor, u"Label3", u"對應存貨跌價損失科目：", u"Loss account:"},
    {kEditor, u"Label4", u"對應存貨跌價準備科目：", u"Reserve account:"},
    {kEditor, u"Label5", u"計提跌價比例(%)：", u"Provision (%):"},
    {kEditor, u"Frame1", u"對應明細物料：", u"Items of the class:"},
    {kEditor, u"FrameAdd", u"物料類別：", u"Item class:"},
    {kEditor, u"tlbSPCA.Add", u"新增", u"New"},
    {kEditor, u"tlbSPCA.Save", u"儲存", u"Save"},
    {kEditor, u"tlbSPCA.AddItem", u"增加物料", u"Add items"},
    {kEditor, u"tlbSPCA.DelItem", u"刪除物料", u"Remove items"},
    {kEditor, u"tlbSPCA.iExit", u"退出", u"Close"},
};

std::u16string_view TextFor(std::u16string_view form, std::u16string_view control,
                            std::u16string_view language) {
  for (const Caption& caption : kCaptions) {
    if (!EqualsIgnoringCase(caption.form, form)) continue;
    if (!EqualsIgnoringCase(caption.control, control)) continue;
    if (EqualsIgnoringCase(language, u"cht")) return caption.traditional;
    if (EqualsIgnoringCase(language, u"en")) return caption.english;
  }
  return {};
}

}  // namespace

void FrmResLoader::LoadFormStrings(const ObjectPtr& form) {
  const ObjectPtr controls = pricedown::RequireObject(form->Get(u"Controls"), u"Controls");
  const std::u16string name = ToText(form->Get(u"Name"));
  const std::int32_t count = pricedown::ToInt32(controls->Get(u"Count"));
  for (std::int32_t i = 0; i < count; ++i) {
    const ObjectPtr control = pricedown::RequireObject(controls->Call(u"Item", {i}), u"Item");
    const std::u16string_view text = TextFor(name, ToText(control->Get(u"Name")), suite_->language);
    if (!text.empty()) control->Put(u"Caption", text);
  }
}

Value FrmResLoader::FontProperties(std::u16string_view language) {
  constexpr std::int32_t kGb2312Charset = 134;
  constexpr std::int32_t kBig5Charset = 136;
  constexpr std::int32_t kAnsiCharset = 0;
  auto properties = std::make_shared<Dictionary>();
  if (EqualsIgnoringCase(language, u"cht")) {
    properties->Set(u"Font.Name", u"新細明體");
    properties->Set(u"Font.Charset", kBig5Charset);
  } else if (EqualsIgnoringCase(language, u"en")) {
    properties->Set(u"Font.Name", u"Tahoma");
    properties->Set(u"Font.Charset", kAnsiCharset);
  } else {
    properties->Set(u"Font.Name", u"宋体");
    properties->Set(u"Font.Charset", kGb2312Charset);
  }
  return ObjectPtr(properties);
}

std::span<const Member<FrmResLoader>> FrmResLoader::Members() {
  static constexpr Member<FrmResLoader> kMembers[] = {
      {u"LoadFrmResStrings", MemberKind::Method,
       [](FrmResLoader& loader, Access, std::span<Value> arguments) {
         loader.LoadFormStrings(pricedown::RequireObject(arguments[0].Resolved(), u"form"));
         return Value(true);
       },
       1, 2},
      {u"NeedMLColumnHeaders", MemberKind::GetPut,
       [](FrmResLoader& loader, Access access, std::span<Value> arguments) {
         if (access == Access::Call) return Value(loader.needColumnHeaders);
         loader.needColumnHeaders = pricedown::ToBoolean(arguments[0].Resolved());
         return Value();
       }},
      {u"GetQ7FontProps", MemberKind::Method,
       [](FrmResLoader&, Access, std::span<Value> arguments) {
         return FontProperties(ToText(arguments[0]));
       },
       1, 1},
  };
  return kMembers;
}

}  // namespace workbench
