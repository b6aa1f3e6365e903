// The table of the control's public members.
// What they do is control/price_down.h.
#include "windows/server/price_down_members.h"

#include <array>

#include "platform/skip.h"

namespace pricedown::windows {
namespace {

using Arguments = DispatchArguments;
using Row = DispatchRow<HostedControl>;

constexpr std::array<DispatchParameter, 0> kNone{};
constexpr std::array kNotifyMessage{DispatchParameter{u"strMsg", Coercion::Text},
                                    DispatchParameter{u"Params"}};
constexpr std::array kShow{DispatchParameter{u"ParentWnd"}};
constexpr std::array kShowMode{DispatchParameter{u"mode", Coercion::Int16}};
constexpr std::array kToolBarClick{DispatchParameter{u"Tool", Coercion::Object},
                                   DispatchParameter{u"bUse", Coercion::Boolean}};
constexpr std::array kSelBlock{DispatchParameter{u"grd", Coercion::Object},
                               DispatchParameter{u"lCol", Coercion::Any, true},
                               DispatchParameter{u"lCol2", Coercion::Any, true},
                               DispatchParameter{u"lRow", Coercion::Any, true},
                               DispatchParameter{u"lRow2", Coercion::Any, true}};

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

// Never fails, whatever becomes of the creation.
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

template <Value (PriceDown::*command)()>
Value Run(HostedControl& control, Arguments) {
  return control.RunMember([](PriceDown& core) { return (core.*command)(); });
}

// In the order of the interface.
constexpr std::array kMembers{
    Row{{u"NotifyMessage", 1, DISPATCH_METHOD, kNotifyMessage}, NotifyMessage},
    Row{{u"RefreshToolbar", 2, DISPATCH_METHOD, kNone}, RefreshToolbar},
    Row{{u"Show", 3, DISPATCH_METHOD, kShow}, Show},
    Row{{u"ShowMode", 4, DISPATCH_PROPERTYPUT, kShowMode}, SetShowMode},
    Row{{u"ParentWindow_ToolBarClick", 5, DISPATCH_METHOD, kToolBarClick}, ToolBarClick},
    Row{{u"SelBlock", 6, DISPATCH_METHOD, kSelBlock}, SelBlock},
    Row{{u"PreviewPara", 7, DISPATCH_METHOD, kNone}, Run<&PriceDown::PreviewPara>},
    Row{{u"PrintPara", 8, DISPATCH_METHOD, kNone}, Run<&PriceDown::PrintPara>},
    Row{{u"ModelCurrent", 9, DISPATCH_METHOD, kNone}, Run<&PriceDown::ModelCurrent>},
    Row{{u"addRecord", 10, DISPATCH_METHOD, kNone}, Run<&PriceDown::addRecord>},
    Row{{u"editRecord", 11, DISPATCH_METHOD, kNone}, Run<&PriceDown::editRecord>},
    Row{{u"delRecord", 12, DISPATCH_METHOD, kNone}, Run<&PriceDown::delRecord>},
};

}  // namespace

std::span<const DispatchRow<HostedControl>> PriceDownMembers() { return kMembers; }

}  // namespace pricedown::windows
