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
    PriceDownRow{{u"NotifyMessage", 1, DISPATCH_METHOD, kNotifyMessage}, NotifyMessage},
    PriceDownRow{{u"RefreshToolbar", 2, DISPATCH_METHOD, {}}, RefreshToolbar},
    PriceDownRow{{u"Show", 3, DISPATCH_METHOD, kShow}, Show},
    PriceDownRow{{u"ShowMode", 4, DISPATCH_PROPERTYPUT, kShowMode}, SetShowMode},
    PriceDownRow{{u"ParentWindow_ToolBarClick", 5, DISPATCH_METHOD, kToolBarClick}, ToolBarClick},
    PriceDownRow{{u"SelBlock", 6, DISPATCH_METHOD, kSelBlock}, SelBlock},
    PriceDownRow{{u"PreviewPara", 7, DISPATCH_METHOD, {}}, Run<&PriceDown::PreviewPara>},
    PriceDownRow{{u"PrintPara", 8, DISPATCH_METHOD, {}}, Run<&PriceDown::PrintPara>},
    PriceDownRow{{u"ModelCurrent", 9, DISPATCH_METHOD, {}}, Run<&PriceDown::ModelCurrent>},
    PriceDownRow{{u"addRecord", 10, DISPATCH_METHOD, {}}, Run<&PriceDown::addRecord>},
    PriceDownRow{{u"editRecord", 11, DISPATCH_METHOD, {}}, Run<&PriceDown::editRecord>},
    PriceDownRow{{u"delRecord", 12, DISPATCH_METHOD, {}}, Run<&PriceDown::delRecord>},
    PriceDownRow{{u"Ready", 101, DISPATCH_PROPERTYGET, {}}, Ready},
    PriceDownRow{{u"CreationError", 102, DISPATCH_PROPERTYGET, {}}, CreationError},
    PriceDownRow{{u"Listener", 103, DISPATCH_PROPERTYGET, {}}, GetListener},
    PriceDownRow{{u"Listener", 103, DISPATCH_PROPERTYPUT, kListener}, SetListener},
    PriceDownRow{{u"Listener", 103, DISPATCH_PROPERTYPUTREF, kListener}, SetListener},
};

}  // namespace

std::span<const DispatchRow<HostedControl>> PriceDownMembers() { return kPriceDownMembers; }

}  // namespace pricedown::windows
