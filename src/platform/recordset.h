// A late-bound recordset: wrappers of the members that the library uses. It owns one reference.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/automation.h"
#include "platform/cell_block.h"

namespace pricedown {

// The declaration of a column of a new recordset.
struct FieldDefinition {
  std::u16string name;
  std::int32_t type = 0;         // ADO DataTypeEnum
  std::int32_t definedSize = 0;  // characters for texts, 0 where the type has its own size
  std::int32_t attributes = 0;   // ADO FieldAttributeEnum
  std::int32_t precision = 0;    // digits, for numeric only
  std::int32_t scale = 0;        // digits after the point, for numeric only
};

// ADO DataTypeEnum and FieldAttributeEnum values that the library uses.
namespace ado {
inline constexpr std::int32_t kInteger = 3;
inline constexpr std::int32_t kDouble = 5;
inline constexpr std::int32_t kNumeric = 131;
inline constexpr std::int32_t kVarWChar = 202;
inline constexpr std::int32_t kFieldIsNullable = 0x20;
inline constexpr std::int32_t kUseClient = 3;
}  // namespace ado

// Every method throws AutomationError when the object fails; a default-made one has no object
// and fails with ObjectNotSet.
class Recordset {
 public:
  Recordset() = default;
  explicit Recordset(ObjectPtr object) : object_(std::move(object)) {}
  // A new client-side ADODB.Recordset without fields, not open.
  static Recordset Create(ObjectFactory& factory);

  explicit operator bool() const { return object_ != nullptr; }
  const ObjectPtr& Object() const { return object_; }
  void Release() { object_.reset(); }

  std::int32_t RecordCount() const;
  bool AtEnd() const;
  void MoveFirst() const;
  void MoveNext() const;

  // The value of a field of the current row; the name's case does not matter.
  Value Field(std::u16string_view name) const;
  void SetField(std::u16string_view name, const Value& value) const;

  // A property that fails keeps its default; a field without a readable name is left out.
  std::vector<FieldDefinition> Fields() const;
  // A numeric field whose precision or scale is refused is appended without it.
  void AppendField(const FieldDefinition& field) const;
  void Open() const;
  void Close() const;

  // Up to `count` rows of those fields, in their order, from the current row on; moves past them.
  // Fails after the last row, and when the result lacks a field.
  CellBlockPtr GetRows(std::int32_t count, const std::vector<std::u16string_view>& fields) const;

  void AddNew() const;
  // Adds a row with those values in those fields, by name or position, and updates it. Both
  // are one-dimensional arrays of one length.
  void AddNew(const Value& fields, const Value& values) const;
  void Update() const;
  // Drops a row that was added and not yet updated.
  void CancelUpdate() const;
  void UpdateBatch() const;
  void Delete() const;
  void SetFilter(std::u16string_view filter) const;

 private:
  AutomationObject& Required() const;

  ObjectPtr object_;
};

}  // namespace pricedown
