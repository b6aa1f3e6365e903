// Reading a recording, and comparing what is called with it.
#include "workbench/recording/replay.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace workbench {

using pricedown::Access;
using pricedown::AutomationError;
using pricedown::Concatenate;
using pricedown::EqualsIgnoringCase;
using pricedown::ErrorNumber;
using pricedown::FromUtf8;
using pricedown::MemberId;
using pricedown::ObjectPtr;
using pricedown::ToUtf8;
using pricedown::Value;

namespace {

constexpr std::u16string_view kSource = u"Replay";

std::u16string Digits(std::size_t number) { return FromUtf8(std::to_string(number)); }

[[noreturn]] void ThrowUnreadable(std::u16string_view text) {
  throw AutomationError(ErrorNumber::InvalidArgument, std::u16string(text),
                        std::u16string(kSource));
}

std::u16string TextIn(const Json& json, const char* member) {
  const auto found = json.find(member);
  return found != json.end() && found->is_string() ? FromUtf8(found->get<std::string>())
                                                   : std::u16string();
}

// "0x80020009" as a signed number; 0 for anything else.
std::int32_t CodeIn(const Json& json, const char* member) {
  const std::string text = ToUtf8(TextIn(json, member));
  std::uint32_t code = 0;
  if (text.size() > 2) std::from_chars(text.data() + 2, text.data() + text.size(), code, 16);
  return static_cast<std::int32_t>(code);
}

void ThrowRecordedFailure(const Json& call) {
  const auto failure = call.find("failure");
  if (failure == call.end()) return;
  throw AutomationError(CodeIn(*failure, "number"), TextIn(*failure, "description"),
                        TextIn(*failure, "source"));
}

const char* KindOf(Access access) {
  switch (access) {
    case Access::Put:
      return "put";
    case Access::PutReference:
      return "putref";
    case Access::Call:
      break;
  }
  return "call";
}

Json ArgumentValues(const Json& call) {
  Json values = Json::array();
  const auto arguments = call.find("arguments");
  if (arguments == call.end()) return values;
  for (const Json& argument : *arguments) values.push_back(argument.at("value"));
  return values;
}

ObjectNumber ObjectIn(const Json& call) { return call.value("object", ObjectNumber{0}); }

// The part of a line that a call must equal.
Json Shown(const char* kind, ObjectNumber object, std::u16string_view member, Json arguments) {
  Json json = Json::object();
  json["kind"] = kind;
  if (object != 0) json["object"] = object;
  json["member"] = ToUtf8(member);
  json["arguments"] = std::move(arguments);
  return json;
}

}  // namespace

struct Replay::Call {
  std::size_t line = 0;
  Json json;
};

struct Replay::Actual {
  const char* kind;
  ObjectNumber object = 0;
  std::u16string member{};
  bool isDefault = false;
  Json arguments = Json::array();
};

Replay::Replay() = default;
Replay::~Replay() = default;

std::size_t Replay::CallsLeft() const { return calls_.size() - next_; }

class Replay::Object final : public pricedown::AutomationObject {
 public:
  Object(std::shared_ptr<Replay> replay, ObjectNumber number)
      : replay_(std::move(replay)), number_(number) {}

  MemberId Find(std::u16string_view name) override { return replay_->Find(number_, name); }
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    return replay_->Invoke(number_, member, access, arguments);
  }

  ObjectNumber Number() const { return number_; }

 private:
  std::shared_ptr<Replay> replay_;
  const ObjectNumber number_;
};

std::shared_ptr<Replay> Replay::Read(std::istream& lines) {
  std::shared_ptr<Replay> replay(new Replay);
  std::string line;
  std::size_t number = 0;
  while (std::getline(lines, line)) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty() || number == 1) replay->ReadLine(number, line);
  }
  if (lines.bad() || number == 0) ThrowUnreadable(u"记录文件无法读取，或是空的。");
  return replay;
}

std::shared_ptr<Replay> Replay::Open(const std::filesystem::path& file) {
  std::ifstream lines(file, std::ios::binary);
  if (!lines) ThrowUnreadable(Concatenate({u"记录文件无法打开: ", file.u16string()}));
  return Read(lines);
}

void Replay::ReadLine(std::size_t number, const std::string& line) {
  Json json = Json::parse(line, nullptr, false);
  try {
    if (number == 1) {
      if (json.is_discarded() || json.value("recording", 0) != 1) {
        ThrowUnreadable(u"这不是调用记录，或版本不同。");
      }
      if (!json.at("values").get<bool>()) {
        ThrowUnreadable(u"这份记录不含数据，不能回放；请记录数据后再试。");
      }
      return;
    }
    const auto kind = json.at("kind").get<std::string>();
    if (kind == "release" || json.contains("depth")) return;
    // What a replay reads later.
    ArgumentValues(json);
    if (json.contains("result")) json.at("result").at("value");
    if (kind == "create" && !json.contains("failure")) json.at("result");
    calls_.push_back({number, std::move(json)});
  } catch (const Json::exception&) {
    ThrowUnreadable(Concatenate({u"记录文件第 ", Digits(number), u" 行无法识别。"}));
  }
}

bool Replay::Creates(std::u16string_view progId) const {
  return std::any_of(calls_.begin(), calls_.end(), [progId](const Call& call) {
    return TextIn(call.json, "kind") == u"create" &&
           EqualsIgnoringCase(TextIn(call.json, "member"), progId);
  });
}

Json Replay::JsonOf(const Value& value) const {
  return ToJson(value, [](const ObjectPtr& object) {
    const auto* ours = dynamic_cast<const Object*>(object.get());
    return ours == nullptr ? kForeignObject : ours->Number();
  });
}

ObjectPtr Replay::ObjectOf(ObjectNumber number) {
  if (number < 0) ThrowUnreadable(u"记录中的这个对象没有被记录，不能回放。");
  const auto position = static_cast<std::size_t>(number);
  if (position >= objects_.size()) objects_.resize(position + 1);
  std::shared_ptr<Object> object = objects_[position].lock();
  if (object == nullptr) {
    object = std::make_shared<Object>(shared_from_this(), number);
    objects_[position] = object;
  }
  return object;
}

void Replay::Differ(const Actual& actual) {
  const std::u16string called =
      FromUtf8(LineOf(Shown(actual.kind, actual.object, actual.member, actual.arguments)));
  if (next_ == calls_.size()) {
    difference_ = Concatenate({u"记录已经结束，实际调用: ", called});
  } else {
    const Json& expected = calls_[next_].json;
    difference_ = Concatenate(
        {u"与记录第 ", Digits(calls_[next_].line), u" 行不同。记录: ",
         FromUtf8(LineOf(Shown(ToUtf8(TextIn(expected, "kind")).c_str(), ObjectIn(expected),
                               TextIn(expected, "member"), ArgumentValues(expected)))),
         u" 实际: ", called});
  }
  ThrowUnreadable(difference_);
}

const Json& Replay::Expect(const Actual& actual) {
  if (!difference_.empty()) ThrowUnreadable(difference_);
  if (next_ == calls_.size()) Differ(actual);
  const Json& expected = calls_[next_].json;
  const bool sameMember = actual.isDefault
                              ? expected.value("dispid", -1) == pricedown::kDefaultMember
                              : EqualsIgnoringCase(TextIn(expected, "member"), actual.member);
  if (!sameMember || expected.at("kind") != actual.kind || ObjectIn(expected) != actual.object ||
      ArgumentValues(expected) != actual.arguments) {
    Differ(actual);
  }
  ++next_;
  return expected;
}

ObjectPtr Replay::Create(std::u16string_view progId) {
  try {
    Expect({.kind = "create", .member = std::u16string(progId)});
  } catch (const AutomationError&) {
    // COM passes no description of a failed creation: the first call of the object fails with it.
    return std::make_shared<Object>(shared_from_this(), kForeignObject);
  }
  const Json& call = calls_[next_ - 1].json;
  ThrowRecordedFailure(call);
  return FromJson(call.at("result").at("value"),
                  [this](ObjectNumber number) { return ObjectOf(number); })
      .Object();
}

MemberId Replay::Find(ObjectNumber object, std::u16string_view name) {
  if (name.empty()) return pricedown::kDefaultMember;
  // Only look-ups that failed are recorded.
  if (difference_.empty() && next_ < calls_.size()) {
    const Json& expected = calls_[next_].json;
    if (expected.at("kind") == "name" && ObjectIn(expected) == object &&
        EqualsIgnoringCase(TextIn(expected, "member"), name)) {
      ++next_;
      ThrowRecordedFailure(expected);
    }
  }
  const auto known = std::find_if(members_.begin(), members_.end(), [name](const auto& member) {
    return EqualsIgnoringCase(member, name);
  });
  if (known == members_.end()) {
    members_.emplace_back(name);
    return static_cast<MemberId>(members_.size());
  }
  return static_cast<MemberId>(known - members_.begin() + 1);
}

Value Replay::Invoke(ObjectNumber object, MemberId member, Access access,
                     std::span<Value> arguments) {
  Actual actual{
      .kind = KindOf(access), .object = object, .isDefault = member == pricedown::kDefaultMember};
  if (!actual.isDefault) actual.member = members_.at(static_cast<std::size_t>(member) - 1);
  for (const Value& argument : arguments) actual.arguments.push_back(JsonOf(argument));
  const Json& call = Expect(actual);
  const auto objectOf = [this](ObjectNumber number) { return ObjectOf(number); };
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Json& argument = call.at("arguments").at(i);
    if (argument.contains("after") && arguments[i].Is(Value::Kind::Reference)) {
      arguments[i].Target() = FromJson(argument.at("after"), objectOf);
    }
  }
  ThrowRecordedFailure(call);
  const auto result = call.find("result");
  return result == call.end() ? Value() : FromJson(result->at("value"), objectOf);
}

}  // namespace workbench
