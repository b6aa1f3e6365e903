// The member tables of the form object and its parts.
#include "windows/base/captioned_form.h"

#include <algorithm>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"

namespace pricedown::windows {
void FormControl::Detach() {
  access_.read = nullptr;
  access_.write = nullptr;
}

std::span<const Member<FormControl>> FormControl::Members() {
  static constexpr Member<FormControl> kMembers[]{
      {u"Name", MemberKind::Get,
       [](FormControl& control, Access, std::span<Value>) -> Value { return control.Name(); }},
      {u"Caption", MemberKind::GetPut,
       [](FormControl& control, Access access, std::span<Value> arguments) -> Value {
         if (access == Access::Call) {
           return control.access_.read ? control.access_.read() : std::u16string();
         }
         if (control.access_.write) control.access_.write(ToText(arguments[0]));
         return {};
       }},
  };
  return kMembers;
}

FormControls::FormControls(std::vector<CaptionAccess> captions) {
  for (CaptionAccess& caption : captions) {
    controls_.push_back(std::make_shared<FormControl>(std::move(caption)));
  }
}

void FormControls::Detach() {
  for (const auto& control : controls_) control->Detach();
}

ObjectPtr FormControls::Item(const Value& index) const {
  const Value& position = index.Resolved();
  if (position.Is(Value::Kind::Text)) {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const auto& control) {
      return NamesEqual(control->Name(), position.Text());
    });
    if (found != controls_.end()) return *found;
  } else {
    const std::int32_t number = ToInt32(position);
    if (number >= 0 && static_cast<std::size_t>(number) < controls_.size()) {
      return controls_[static_cast<std::size_t>(number)];
    }
  }
  throw AutomationError(ErrorNumber::InvalidArgument, u"没有该控件", u"Controls");
}

std::optional<std::vector<Value>> FormControls::Elements() {
  std::vector<Value> elements;
  for (const auto& control : controls_) elements.emplace_back(ObjectPtr(control));
  return elements;
}

std::span<const Member<FormControls>> FormControls::Members() {
  static constexpr Member<FormControls> kMembers[]{
      {u"Count", MemberKind::Get,
       [](FormControls& controls, Access, std::span<Value>) -> Value {
         return static_cast<std::int32_t>(controls.controls_.size());
       }},
      {u"Item", MemberKind::Get,
       [](FormControls& controls, Access, std::span<Value> arguments) -> Value {
         return controls.Item(arguments[0]);
       },
       1, 1, true},
  };
  return kMembers;
}

std::span<const Member<CaptionedForm>> CaptionedForm::Members() {
  static constexpr Member<CaptionedForm> kMembers[]{
      {u"Name", MemberKind::Get,
       [](CaptionedForm& form, Access, std::span<Value>) -> Value { return form.name_; }, 0, 0,
       true},
      {u"Controls", MemberKind::Get,
       [](CaptionedForm& form, Access, std::span<Value> arguments) -> Value {
         if (arguments.empty()) return ObjectPtr(form.controls_);
         return form.controls_->Item(arguments[0]);
       },
       0, 1},
  };
  return kMembers;
}

}  // namespace pricedown::windows
