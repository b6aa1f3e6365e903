// The value type of the core: arguments and results of late-bound calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pricedown {

class AutomationObject;
class CellBlock;
class Value;

using ObjectPtr = std::shared_ptr<AutomationObject>;
using CellBlockPtr = std::shared_ptr<const CellBlock>;
using ValueListPtr = std::shared_ptr<const std::vector<Value>>;

// A database null: the field exists and has no value.
struct Null {
  bool operator==(const Null&) const = default;
};

// An optional argument that the caller left out.
struct Missing {
  bool operator==(const Missing&) const = default;
};

// A point in time: days since 1899-12-30, the fraction is the time of day.
struct Date {
  double days = 0;
  bool operator==(const Date&) const = default;
};

// A row of a block as a one-dimensional array of its cells, which are not copied.
struct BlockRow {
  CellBlockPtr block;  // never null
  std::size_t row = 0;
  bool operator==(const BlockRow&) const = default;
};

// Copyable; objects, blocks and lists are shared, everything else is copied.
class Value {
 public:
  // In the order of the alternatives of the storage.
  enum class Kind {
    Empty,
    Null,
    Missing,
    Boolean,
    Int16,
    Int32,
    Double,
    Date,
    Text,
    Object,
    Block,
    List,
    Row,
    Reference
  };

  Value() = default;
  Value(Null null) : storage_(null) {}
  Value(Missing missing) : storage_(missing) {}
  Value(bool truth) : storage_(truth) {}
  Value(std::int16_t number) : storage_(number) {}
  Value(std::int32_t number) : storage_(number) {}
  Value(double number) : storage_(number) {}
  Value(Date date) : storage_(date) {}
  Value(std::u16string text);
  Value(std::u16string_view text);
  Value(const char16_t* text);
  // A null pointer is the object "nothing".
  Value(ObjectPtr object) : storage_(std::move(object)) {}
  Value(std::nullptr_t) : storage_(ObjectPtr()) {}
  Value(CellBlockPtr block) : storage_(std::move(block)) {}
  Value(std::vector<Value> list);
  Value(BlockRow row) : storage_(std::move(row)) {}
  // Without this an unrelated pointer would silently become a boolean.
  Value(const void*) = delete;

  // Each of them distinguishes all alternatives: compiled once, and not where a value is used.
  Value(const Value& other);
  Value(Value&& other) noexcept;
  Value& operator=(const Value& other);
  Value& operator=(Value&& other) noexcept;
  ~Value();

  // An argument by reference: what the callee sets is written to `target`, which must outlive the
  // call.
  static Value ByReference(Value& target);

  Kind GetKind() const { return static_cast<Kind>(storage_.index()); }
  bool Is(Kind kind) const { return GetKind() == kind; }
  // True for Empty, Null and Missing.
  bool IsNothing() const { return storage_.index() <= static_cast<std::size_t>(Kind::Missing); }

  // The alternative itself; throws AutomationError (type mismatch) when it is another one.
  bool Boolean() const;
  std::int16_t Int16() const;
  std::int32_t Int32() const;
  double Double() const;
  Date DateValue() const;
  const std::u16string& Text() const;
  const ObjectPtr& Object() const;
  const CellBlockPtr& Block() const;
  const std::vector<Value>& List() const;
  const BlockRow& Row() const;
  Value& Target() const;

  // The value behind a reference, or this value.
  const Value& Resolved() const;

  // Same kind and same content; objects, blocks, lists and references by identity.
  bool operator==(const Value& other) const;

 private:
  // std::variant of g++ 12 assumes that copying strings and shared pointers cannot fail halfway,
  // and then destroys an alternative that a failed copy has not constructed; other types are
  // checked.
  struct StoredText {
    std::u16string text;
    bool operator==(const StoredText&) const = default;
  };
  using Storage =
      std::variant<std::monostate, Null, Missing, bool, std::int16_t, std::int32_t, double, Date,
                   StoredText, ObjectPtr, CellBlockPtr, ValueListPtr, BlockRow, Value*>;

  template <typename T>
  const T& As() const;

  Storage storage_;
};

}  // namespace pricedown
