// The table of the control's public members.
#include "windows/server/price_down_members.h"

#include <array>

#include "platform/skip.h"
#include "platform/text.h"

namespace pricedown::windows {
namespace {

using Arguments = DispatchArguments;
using PriceDownRow = DispatchRow<HostedControl>;

constexpr std::array kNotifyMessage{DispatchParameter{u"strMsg", Coercion::Text},
                                    DispatchParameter{u"Params", Coercion::Ignored}};
constexpr std::array kShow{DispatchParameter{u"ParentWnd", Coercion::Lenient}};
constexpr std::array kShowMode{DispatchParameter{u"mode", Coercion::Int16}};
constexpr std::array kToolBarClick{DispatchParameter{u"Tool", Coercion::Object},
                                   DispatchParameter{u"bUse", Coercion::Boolean}};
constexpr std::array kSelBlock{DispatchParameter{u"grd", Coercion::Object},
                               DispatchParameter{u"lCol", Coercion::Lenient, true},
                               DispatchParameter{u"lCol2", Coercion::Lenient, true},
                               DispatchParameter{u"lRow", Coercion::Lenient, true},
                               DispatchParameter{u"lRow2", Coercion::Lenient, true}};

constexpr std::array kListener{DispatchParameter{u"object", Coercion::Object}};

Value NotifyMessage(HostedControl& control, Arguments arguments) {
  return control.RunMember([&](PriceDown& core) -> Value {
    core.NotifyMessage(arguments[0].Text());
    return {};
  });
}

Value RefreshToolbar(HostedControl& control, Arguments) {
  return control.RunMember([](PriceDown& core) -> Value {
    core.RefreshToolbar();
    return {};
  });
}

// Never fails, even when the creation does.
Value Show(HostedControl& control, Arguments arguments) {
  SkipFailing([&] {
    control.RunMember([&](PriceDown& core) -> Value { return core.Show(arguments[0]); });
  });
  return true;
}

Value SetShowMode(HostedControl& control, Arguments arguments) {
  return control.RunMember([&](PriceDown& core) -> Value {
    core.SetShowMode(arguments[0].Int16());
    return {};
  });
}

Value ToolBarClick(HostedControl& control, Arguments arguments) {
  return control.RunMember([&](PriceDown& core) -> Value {
    core.ParentWindow_ToolBarClick(arguments[0].Object());
    return {};
  });
}

Value SelBlock(HostedControl& control, Arguments arguments) {
  return control.RunMember([&](PriceDown& core) -> Value {
    core.SelBlock(arguments[0].Object(), arguments[1], arguments[2], arguments[3], arguments[4]);
    return {};
  });
}

Value Ready(HostedControl& control, Arguments) { return control.Session().IsReady(); }

Value CreationError(HostedControl& control, Arguments) {
  const std::optional<Failure>& failure = control.Session().CreationFailure();
  if (!failure) return u"";
  if (failure->source.empty()) return failure->description;
  return Concatenate({failure->source, u": ", failure->description});
}

Value GetListener(HostedControl& control, Arguments) { return control.Events().Listener(); }

Value SetListener(HostedControl& control, Arguments arguments) {
  control.Events().SetListener(arguments[0].Object());
  return {};
}

template <Value (PriceDown::*command)()>
Value Run(HostedControl& control, Arguments) {
  return control.RunMember([](PriceDown& core) { return (core.*command)(); });
}

// In the order of the interfaces.
constexpr std::array kPriceDownMembers{
    PriceDownRow{{u"NotifyMessage", member_ids::kNotifyMessage, DISPATCH_METHOD, kNotifyMessage},
                 NotifyMessage},
    PriceDownRow{{u"RefreshToolbar", member_ids::kRefreshToolbar, DISPATCH_METHOD, {}},
                 RefreshToolbar},
    PriceDownRow{{u"Show", member_ids::kShow, DISPATCH_METHOD, kShow}, Show},
    PriceDownRow{{u"ShowMode", member_ids::kShowMode, DISPATCH_PROPERTYPUT, kShowMode},
                 SetShowMode},
    PriceDownRow{
        {u"ParentWindow_ToolBarClick", member_ids::kToolBarClick, DISPATCH_METHOD, kToolBarClick},
        ToolBarClick},
    PriceDownRow{{u"SelBlock", member_ids::kSelBlock, DISPATCH_METHOD, kSelBlock}, SelBlock},
    PriceDownRow{{u"PreviewPara", member_ids::kPreviewPara, DISPATCH_METHOD, {}},
                 Run<&PriceDown::PreviewPara>},
    PriceDownRow{{u"PrintPara", member_ids::kPrintPara, DISPATCH_METHOD, {}},
                 Run<&PriceDown::PrintPara>},
    PriceDownRow{{u"ModelCurrent", member_ids::kModelCurrent, DISPATCH_METHOD, {}},
                 Run<&PriceDown::ModelCurrent>},
    PriceDownRow{{u"addRecord", member_ids::kAddRecord, DISPATCH_METHOD, {}},
                 Run<&PriceDown::addRecord>},
    PriceDownRow{{u"editRecord", member_ids::kEditRecord, DISPATCH_METHOD, {}},
                 Run<&PriceDown::editRecord>},
    PriceDownRow{{u"delRecord", member_ids::kDelRecord, DISPATCH_METHOD, {}},
                 Run<&PriceDown::delRecord>},
    PriceDownRow{{u"Ready", member_ids::kReady, DISPATCH_PROPERTYGET, {}}, Ready},
    PriceDownRow{{u"CreationError", member_ids::kCreationError, DISPATCH_PROPERTYGET, {}},
                 CreationError},
    PriceDownRow{{u"Listener", member_ids::kListener, DISPATCH_PROPERTYGET, {}}, GetListener},
    PriceDownRow{{u"Listener", member_ids::kListener, DISPATCH_PROPERTYPUT, kListener},
                 SetListener},
    PriceDownRow{{u"Listener", member_ids::kListener, DISPATCH_PROPERTYPUTREF, kListener},
                 SetListener},
};

}  // namespace

std::span<const DispatchRow<HostedControl>> PriceDownMembers() { return kPriceDownMembers; }

}  // namespace pricedown::windows
