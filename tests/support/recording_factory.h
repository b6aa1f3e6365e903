// Objects created by ProgID that log every call and reply from a script.
// A call that is not scripted fails the test.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"
#include "tests/support/recorder.h"

namespace pricedown::testing {

// What a scripted member does when it is called.
class Reply {
 public:
  using Maker = std::function<Value(std::span<Value> arguments)>;

  Reply(Value value);
  template <typename T>
  requires std::constructible_from<Value, T> Reply(T&& value)
      : Reply(Value(std::forward<T>(value))) {}
  // A value created for each call, so that the script keeps no reference to an object.
  static Reply From(Maker maker);
  static Reply Failing(std::int32_t number, std::u16string description);
  // Also writes to the argument by reference at `index` (from 0).
  Reply Writing(std::size_t index, Value value) &&;

  Value Run(std::span<Value> arguments) const;

 private:
  Reply() = default;

  struct WriteBack {
    std::size_t index;
    Value value;
  };
  Maker maker_;
  std::vector<WriteBack> writeBacks_;
};

// The members of one kind of object. Member names do not depend on case; the empty name is the
// default member. Replies to the same call are returned in turn, then the last one again.
class ObjectScript {
 public:
  // For a call with any arguments.
  ObjectScript& On(std::u16string_view member, Reply reply);
  // For a call whose arguments are logged as `arguments`; takes precedence over the former.
  ObjectScript& On(std::u16string_view member, std::string arguments, Reply reply);
  // Accepts puts, of any value.
  ObjectScript& AllowPut(std::u16string_view member);
  // The object reports that it has no such member; the test does not fail.
  ObjectScript& Lacks(std::u16string_view member);

 private:
  friend class RecordingObject;

  struct Replies {
    std::vector<Reply> inTurn;
    std::size_t given = 0;
  };
  struct Member {
    std::u16string name;
    std::map<std::string, Replies> byArguments;
    Replies toAny;
    bool allowsPut = false;
    bool lacking = false;
  };
  Member& MemberNamed(std::u16string_view name);

  std::vector<Member> members_;
};

class RecordingFactory : public ObjectFactory {
 public:
  explicit RecordingFactory(CallLog log);

  // The script of the objects of a ProgID, or of other objects by a name of the test's choice.
  // Naming a ProgID makes it creatable.
  ObjectScript& Object(std::u16string_view name);
  // Objects of a ProgID that are made by `maker` and log for themselves.
  void Makes(std::u16string_view progId, std::function<ObjectPtr(const RecorderPtr&)> maker);
  // Creating this ProgID fails as if it were not registered; the test does not fail.
  void Refuses(std::u16string_view progId);

  // Logs "create ProgID".
  ObjectPtr Create(std::u16string_view progId) override;
  // An object of the script `name` that was not created by ProgID. Only its use is logged.
  ObjectPtr NewObject(std::u16string_view name);
  // A reply that returns such an object, a new one for each call.
  Reply Answering(std::u16string_view name);

  // See Recorder. Calls are creations and uses of members, those of recordsets included.
  void FailCall(int n) { recorder_->FailCall(n); }
  int CallCount() const { return recorder_->CallCount(); }
  int LiveObjects() const { return recorder_->LiveObjects(); }
  // The calls of scripted recordsets, which are not logged otherwise.
  void LogRecordsetCalls() { recorder_->LogQuietCalls(); }
  const RecorderPtr& GetRecorder() const { return recorder_; }

 private:
  struct Class {
    std::shared_ptr<ObjectScript> script;
    std::function<ObjectPtr(const RecorderPtr&)> maker;
    bool refused = false;
  };
  Class& ClassNamed(std::u16string_view name);

  RecorderPtr recorder_;
  std::map<std::u16string, Class> classes_;  // by name in upper case
};

}  // namespace pricedown::testing
