// Wraps the stand-in suite's objects: counts their calls and makes any one of them fail.
// A call that fails does not reach the suite.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "tests/support/recorder.h"
#include "tests/support/utf8.h"

namespace workbench {

// Forwards calls; the objects that it returns are wrapped too.
class CountedObject : public pricedown::AutomationObject {
 public:
  CountedObject(pricedown::ObjectPtr object, pricedown::testing::RecorderPtr recorder,
                std::string name)
      : object_(std::move(object)), recorder_(std::move(recorder)), name_(std::move(name)) {
    recorder_->ObjectMade();
  }
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  ~CountedObject() override { recorder_->ObjectGone(); }

  pricedown::MemberId Find(std::u16string_view member) override {
    const pricedown::MemberId id = object_->Find(member);
    names_[id] = pricedown::testing::Utf8(member);
    return id;
  }

  pricedown::Value Invoke(pricedown::MemberId member, pricedown::Access access,
                          std::span<pricedown::Value> arguments) override {
    const std::string name = name_ + "." + names_[member];
    recorder_->QuietCall(name, u"suite");
    std::vector<pricedown::Value> bare;
    for (pricedown::Value& argument : arguments) {
      if (argument.Is(pricedown::Value::Kind::Reference)) {
        pricedown::Value& target = argument.Target();
        target = Bare(target);
      }
      bare.push_back(Bare(argument));
    }
    return Counted(object_->Invoke(member, access, bare), name);
  }

 private:
  static pricedown::Value Bare(const pricedown::Value& value) {
    if (!value.Is(pricedown::Value::Kind::Object)) return value;
    const auto counted = std::dynamic_pointer_cast<CountedObject>(value.Object());
    return counted ? pricedown::Value(counted->object_) : value;
  }
  pricedown::Value Counted(pricedown::Value value, const std::string& name) {
    if (!value.Is(pricedown::Value::Kind::Object) || value.Object() == nullptr) return value;
    return pricedown::ObjectPtr(std::make_shared<CountedObject>(value.Object(), recorder_, name));
  }

  pricedown::ObjectPtr object_;
  pricedown::testing::RecorderPtr recorder_;
  std::string name_;
  std::map<pricedown::MemberId, std::string> names_;
};

class CountingFactory : public pricedown::ObjectFactory {
 public:
  // `suite` must outlive the factory.
  CountingFactory(pricedown::ObjectFactory& suite, pricedown::testing::RecorderPtr recorder)
      : suite_(suite), recorder_(std::move(recorder)) {}

  pricedown::ObjectPtr Create(std::u16string_view progId) override {
    const std::string name = pricedown::testing::Utf8(progId);
    recorder_->QuietCall("create " + name, u"suite");
    return std::make_shared<CountedObject>(suite_.Create(progId), recorder_, name);
  }

 private:
  pricedown::ObjectFactory& suite_;
  pricedown::testing::RecorderPtr recorder_;
};

}  // namespace workbench
