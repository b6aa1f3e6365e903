// A control or a form as the suite's form resources see it: captions that they may replace, by
// name. It reaches the windows through functions that their owner sets and clears.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/local_object.h"

namespace pricedown::windows {

struct CaptionAccess {
  std::u16string name;
  std::function<std::u16string()> read;
  std::function<void(std::u16string_view)> write;
};

class FormControl : public LocalObject<FormControl> {
 public:
  explicit FormControl(CaptionAccess access) : access_(std::move(access)) {}
  // From then on the caption is empty and setting it does nothing.
  void Detach();
  const std::u16string& Name() const { return access_.name; }

  static std::span<const Member<FormControl>> Members();

 private:
  CaptionAccess access_;
};

class FormControls : public LocalObject<FormControls> {
 public:
  explicit FormControls(std::vector<CaptionAccess> captions);
  void Detach();
  // By position from 0 or by name. Throws AutomationError (InvalidArgument) when there is none.
  ObjectPtr Item(const Value& index) const;
  std::optional<std::vector<Value>> Elements() override;

  static std::span<const Member<FormControls>> Members();

 private:
  std::vector<std::shared_ptr<FormControl>> controls_;
};

class CaptionedForm : public LocalObject<CaptionedForm> {
 public:
  // `name` is the class of the control or form.
  CaptionedForm(std::u16string name, std::vector<CaptionAccess> captions)
      : name_(std::move(name)), controls_(std::make_shared<FormControls>(std::move(captions))) {}
  void Detach() { controls_->Detach(); }

  static std::span<const Member<CaptionedForm>> Members();

 private:
  std::u16string name_;
  std::shared_ptr<FormControls> controls_;
};

}  // namespace pricedown::windows
