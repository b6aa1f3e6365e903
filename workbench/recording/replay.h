// A recording as a scripted suite: its calls are answered in their order.
#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"
#include "workbench/recording/value_json.h"

namespace workbench {

// Calls that were made while another one ran, and releases, are not part of a replay. The first
// call that differs fails, and so does every later one, with the same text: source "Replay", the
// number of the line, what it says and what was called.
class Replay final : public pricedown::ObjectFactory, public std::enable_shared_from_this<Replay> {
 public:
  // Throws AutomationError for a stream or file that is no recording, that has no values or a bad
  // line, which is named.
  static std::shared_ptr<Replay> Read(std::istream& lines);
  static std::shared_ptr<Replay> Open(const std::filesystem::path& file);

  ~Replay() override;

  // The object whose creation is the next line; where that differs, one whose calls fail. Throws
  // AutomationError where the creation failed.
  pricedown::ObjectPtr Create(std::u16string_view progId) override;

  // Whether the recording creates an object of that ProgID.
  bool Creates(std::u16string_view progId) const;
  // Of calls that were not made yet.
  std::size_t CallsLeft() const;
  // Text of the first difference; empty while there was none.
  const std::u16string& Difference() const { return difference_; }

 private:
  class Object;
  struct Call;
  // What was called, in the form of a line.
  struct Actual;

  Replay();
  void ReadLine(std::size_t number, const std::string& line);
  // The next line, if it is that call; throws AutomationError for the difference otherwise.
  const Json& Expect(const Actual& actual);
  [[noreturn]] void Differ(const Actual& actual);
  pricedown::ObjectPtr ObjectOf(ObjectNumber number);
  Json JsonOf(const pricedown::Value& value) const;

  pricedown::MemberId Find(ObjectNumber object, std::u16string_view name);
  pricedown::Value Invoke(ObjectNumber object, pricedown::MemberId member, pricedown::Access access,
                          std::span<pricedown::Value> arguments);

  std::vector<Call> calls_;
  std::size_t next_ = 0;
  std::u16string difference_;
  std::vector<std::u16string> members_;  // ids are positions + 1
  std::vector<std::weak_ptr<Object>> objects_;
};

}  // namespace workbench
