// The recording factory and its objects.
// Log lines: "create P", "P.Member(arguments)", "put P.Member(index) = value",
// "set P.Member = [object]", "release P"; the default member leaves out ".Member".
#include "tests/support/recording_factory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

[[noreturn]] void FailUnscripted(const std::string& call, std::u16string_view source) {
  ADD_FAILURE() << "not scripted: " << call;
  throw AutomationError(ErrorNumber::Unspecified, FromUtf8("not scripted: " + call),
                        std::u16string(source));
}

}  // namespace

Reply::Reply(Value value) : maker_([value = std::move(value)](auto) { return value; }) {}

Reply Reply::From(Maker maker) {
  Reply reply;
  reply.maker_ = std::move(maker);
  return reply;
}

Reply Reply::Failing(std::int32_t number, std::u16string description) {
  return From([number, description = std::move(description)](auto) -> Value {
    throw AutomationError(number, description);
  });
}

Reply Reply::Writing(std::size_t index, Value value) && {
  writeBacks_.push_back({index, std::move(value)});
  return std::move(*this);
}

Value Reply::Run(std::span<Value> arguments) const {
  for (const WriteBack& writeBack : writeBacks_) {
    if (writeBack.index < arguments.size() &&
        arguments[writeBack.index].Is(Value::Kind::Reference)) {
      arguments[writeBack.index].Target() = writeBack.value;
    } else {
      ADD_FAILURE() << "argument " << writeBack.index << " is not passed by reference";
    }
  }
  return maker_(arguments);
}

ObjectScript::Member& ObjectScript::MemberNamed(std::u16string_view name) {
  for (Member& member : members_) {
    if (EqualsIgnoringCase(member.name, name)) return member;
  }
  members_.emplace_back();
  members_.back().name = name;
  return members_.back();
}

ObjectScript& ObjectScript::On(std::u16string_view member, Reply reply) {
  MemberNamed(member).toAny.inTurn.push_back(std::move(reply));
  return *this;
}

ObjectScript& ObjectScript::On(std::u16string_view member, std::string arguments, Reply reply) {
  Replies& replies = MemberNamed(member).byArguments[std::move(arguments)];
  replies.inTurn.push_back(std::move(reply));
  return *this;
}

ObjectScript& ObjectScript::AllowPut(std::u16string_view member) {
  MemberNamed(member).allowsPut = true;
  return *this;
}

ObjectScript& ObjectScript::Lacks(std::u16string_view member) {
  MemberNamed(member).lacking = true;
  return *this;
}

class RecordingObject : public AutomationObject, public NamedObject {
 public:
  RecordingObject(std::u16string name, std::shared_ptr<ObjectScript> script, RecorderPtr recorder)
      : name_(std::move(name)), script_(std::move(script)), recorder_(std::move(recorder)) {
    recorder_->ObjectMade();
  }
  RecordingObject(const RecordingObject&) = delete;
  RecordingObject& operator=(const RecordingObject&) = delete;
  ~RecordingObject() override {
    recorder_->ObjectGone();
    recorder_->Add("release " + ObjectName());
  }

  std::string ObjectName() const override { return Utf8(name_); }

  MemberId Find(std::u16string_view name) override {
    for (std::size_t index = 0; index < script_->members_.size(); ++index) {
      const ObjectScript::Member& member = script_->members_[index];
      if (!EqualsIgnoringCase(member.name, name)) continue;
      if (member.lacking) {
        throw AutomationError(ErrorNumber::UnknownName, u"对象不支持此属性或方法", name_);
      }
      return static_cast<MemberId>(index) + 1;
    }
    FailUnscripted(Path(name), name_);
  }

  Value Invoke(MemberId id, Access access, std::span<Value> arguments) override {
    if (id == kDefaultMember) id = Find({});
    const auto index = static_cast<std::size_t>(id) - 1;
    if (index >= script_->members_.size()) {
      FailUnscripted(ObjectName() + ".#" + std::to_string(id), name_);
    }
    ObjectScript::Member& member = script_->members_[index];
    if (access == Access::Call) return RunCall(member, arguments);
    RunPut(member, access, arguments);
    return {};
  }

 private:
  std::string Path(std::u16string_view member) const {
    return member.empty() ? ObjectName() : ObjectName() + "." + Utf8(member);
  }

  Value RunCall(ObjectScript::Member& member, std::span<Value> arguments) {
    const std::string given = Arguments(arguments);
    const std::string line = Path(member.name) + "(" + given + ")";
    recorder_->Call(line, name_);
    const auto exact = member.byArguments.find(given);
    auto& replies = exact == member.byArguments.end() ? member.toAny : exact->second;
    if (replies.inTurn.empty()) FailUnscripted(line, name_);
    const std::size_t turn = std::min(replies.given++, replies.inTurn.size() - 1);
    // A copy: running it may extend the script.
    const Reply reply = replies.inTurn[turn];
    return reply.Run(arguments);
  }

  void RunPut(const ObjectScript::Member& member, Access access, std::span<Value> arguments) {
    std::string line = access == Access::Put ? "put " : "set ";
    line += Path(member.name);
    if (arguments.size() > 1) line += "(" + Arguments(arguments.first(arguments.size() - 1)) + ")";
    line += " = " + (arguments.empty() ? "" : Readable(arguments.back()));
    recorder_->Call(line, name_);
    if (!member.allowsPut) FailUnscripted(line, name_);
  }

  std::u16string name_;
  std::shared_ptr<ObjectScript> script_;
  RecorderPtr recorder_;
};

RecordingFactory::RecordingFactory(CallLog log)
    : recorder_(std::make_shared<Recorder>(std::move(log))) {}

RecordingFactory::Class& RecordingFactory::ClassNamed(std::u16string_view name) {
  return classes_[UpperCase(name)];
}

ObjectScript& RecordingFactory::Object(std::u16string_view name) {
  Class& named = ClassNamed(name);
  if (named.script == nullptr) named.script = std::make_shared<ObjectScript>();
  return *named.script;
}

void RecordingFactory::Makes(std::u16string_view progId,
                             std::function<ObjectPtr(const RecorderPtr&)> maker) {
  ClassNamed(progId).maker = std::move(maker);
}

void RecordingFactory::Refuses(std::u16string_view progId) { ClassNamed(progId).refused = true; }

ObjectPtr RecordingFactory::Create(std::u16string_view progId) {
  const std::string line = "create " + Utf8(progId);
  recorder_->Call(line, progId);
  const Class& named = ClassNamed(progId);
  if (named.refused) {
    throw AutomationError(ErrorNumber::CannotCreateObject, Concatenate({u"不能创建对象: ", progId}),
                          std::u16string(progId));
  }
  if (named.maker) return named.maker(recorder_);
  if (named.script == nullptr) FailUnscripted(line, progId);
  return NewObject(progId);
}

ObjectPtr RecordingFactory::NewObject(std::u16string_view name) {
  Object(name);
  return std::make_shared<RecordingObject>(std::u16string(name), ClassNamed(name).script,
                                           recorder_);
}

Reply RecordingFactory::Answering(std::u16string_view name) {
  return Reply::From([this, name = std::u16string(name)](auto) { return NewObject(name); });
}

}  // namespace pricedown::testing
