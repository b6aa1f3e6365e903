// The members of the host's child window that the control may call.
#include "workbench/host/parent_window.h"

#include "platform/error.h"
#include "windows/com/wide_text.h"

namespace workbench {

using pricedown::Access;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::Value;

MergeTarget& ParentWindow::Child() {
  if (child_ == nullptr) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::ObjectNotSet, u"窗口已经关闭。",
                                     u"WorkbenchHost");
  }
  return *child_;
}

std::span<const Member<ParentWindow>> ParentWindow::Members() {
  static constexpr Member<ParentWindow> kMembers[] = {
      {u"MergeToolBar", MemberKind::Method,
       [](ParentWindow& parent, Access, std::span<Value> arguments) {
         parent.Child().MergeToolBar(pricedown::RequireObject(arguments[0].Resolved(), u"bar"));
         return Value();
       },
       1, 1},
      {u"ToolChanged", MemberKind::Method,
       [](ParentWindow& parent, Access, std::span<Value>) {
         parent.Child().ToolChanged();
         return Value();
       },
       1, 1},
      {u"Caption", MemberKind::Get,
       [](ParentWindow& parent, Access, std::span<Value>) {
         return Value(pricedown::windows::FromWide(parent.Child().Caption()));
       }},
      {u"hWnd", MemberKind::Get,
       [](ParentWindow& parent, Access, std::span<Value>) {
         // Window handles have 32 significant bits on every Windows.
         const auto handle = reinterpret_cast<std::intptr_t>(parent.Child().Handle());
         return Value(static_cast<std::int32_t>(handle));
       }},
  };
  return kMembers;
}

}  // namespace workbench
