// Which ProgID is which class.
#include "workbench/suite/suite_factory.h"

#include "platform/error.h"
#include "platform/text.h"
#include "workbench/recording/replay.h"
#include "workbench/suite/form_resources.h"
#include "workbench/suite/lookups.h"
#include "workbench/suite/recordset.h"
#include "workbench/suite/settings.h"

namespace workbench {

using pricedown::ObjectPtr;

namespace {

template <typename T>
ObjectPtr OnSuite(const SuiteStatePtr& suite) {
  return std::make_shared<T>(suite);
}

template <typename T>
ObjectPtr Alone(const SuiteStatePtr&) {
  return std::make_shared<T>();
}

constexpr std::u16string_view kRecordset = u"ADODB.Recordset";
constexpr std::u16string_view kSettings = u"ZEPWorkbench.Settings";

constexpr SuiteClass kClasses[] = {
    {u"ZEPConnection.AppConnection", OnSuite<AppConnection>},
    {u"ZEPEBSBase.SystemProfile", OnSuite<SystemProfile>},
    {u"ZEPCBSSystemData.AisInfo", OnSuite<AisInfo>},
    {u"ZEPPropsMgr.ShareProps", OnSuite<ShareProps>},
    {u"ZEPEBCGLView.GLData", OnSuite<GLData>},
    {u"ZEPEBCGLView.GLView", OnSuite<GLView>},
    {u"ZEPFrmRes.FrmResLoader", OnSuite<FrmResLoader>},
    {u"ZEPEBCBASE.UserProfile", OnSuite<UserProfile>},
    {u"ZEPEBCBASE.Dictionary", Alone<Dictionary>},
    {kRecordset, Alone<Recordset>},
    {kSettings, OnSuite<Settings>},
};

}  // namespace

std::span<const SuiteClass> SuiteClasses() { return kClasses; }

ObjectPtr CreateObject(const SuiteClass& suiteClass, const SuiteStatePtr& suite) {
  const std::u16string_view progId = suiteClass.progId;
  const bool isReplayed = suite->replay != nullptr && progId != kSettings &&
                          (progId != kRecordset || suite->replay->Creates(progId));
  return isReplayed ? suite->replay->Create(progId) : suiteClass.create(suite);
}

ObjectPtr SuiteFactory::Create(std::u16string_view progId) {
  for (const SuiteClass& suiteClass : kClasses) {
    if (pricedown::EqualsIgnoringCase(suiteClass.progId, progId))
      return CreateObject(suiteClass, suite_);
  }
  throw pricedown::AutomationError(pricedown::ErrorNumber::CannotCreateObject,
                                   pricedown::Concatenate({u"无法创建对象“", progId, u"”。"}),
                                   std::u16string(progId));
}

}  // namespace workbench
