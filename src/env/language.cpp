// The suite's form resources: captions and fonts of other languages.
#include "env/language.h"

#include "env/suite_properties.h"
#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kResources = u"ZEPFrmRes.FrmResLoader";
constexpr std::u16string_view kColumnHeaders = u"NeedMLColumnHeaders";
constexpr std::u16string_view kLoadTexts = u"LoadFrmResStrings";

bool HasBuiltInLanguage(ObjectFactory& factory) {
  return EqualsIgnoringCase(SuiteLanguage(factory), kBuiltInLanguage);
}

}  // namespace

void LoadControlTexts(ObjectFactory& factory, const ObjectPtr& form) {
  if (HasBuiltInLanguage(factory)) return;
  const ObjectPtr resources = factory.Create(kResources);
  resources->CallForEffect(kColumnHeaders);
  resources->CallForEffect(kLoadTexts, {form});
}

void LoadFormTexts(ObjectFactory& factory, const ObjectPtr& form, std::u16string_view key) {
  if (HasBuiltInLanguage(factory)) return;
  const ObjectPtr resources = factory.Create(kResources);
  resources->Put(kColumnHeaders, true);
  resources->CallForEffect(kLoadTexts, {form, key});
}

void ReadFontProperties(ObjectFactory& factory, Font& font) {
  const ObjectPtr resources = factory.Create(kResources);
  const ObjectPtr properties = RequireObject(
      resources->Call(u"GetQ7FontProps", {SuiteLanguage(factory)}), u"GetQ7FontProps");
  font.name = ToText(properties->Call(u"", {u"Font.Name"}));
  const Value charset = properties->Call(u"", {u"Font.Charset"});
  if (!charset.IsNothing()) font.charset = ToInt32(charset);
}

}  // namespace pricedown
