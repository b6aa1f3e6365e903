// The conversions between values and variants.
#include "windows/com/variant_value.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/error.h"
#include "platform/skip.h"
#include "windows/com/bstr.h"
#include "windows/com/by_reference.h"
#include "windows/com/safe_array_block.h"
#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

[[noreturn]] void ThrowTypeMismatch() {
  throw AutomationError(ErrorNumber::TypeMismatch, u"类型不匹配");
}

template <typename Integer>
Value WholeNumber(Integer number) {
  if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return static_cast<double>(number);
}

double FromCurrency(const CY& currency) {
  double number = 0;
  ThrowIfFailed(VarR8FromCy(currency, &number));
  return number;
}

double FromDecimal(DECIMAL decimal) {
  double number = 0;
  ThrowIfFailed(VarR8FromDec(&decimal, &number));
  return number;
}

Value FromUnknown(IUnknown* object) {
  if (object == nullptr) return nullptr;
  const auto dispatch = ComPtr<IUnknown>::Share(object).As<IDispatch>();
  if (!dispatch) ThrowTypeMismatch();
  return FromDispatch(dispatch.get());
}

// The elements of an array, locked as long as this object lives.
class ArrayData {
 public:
  explicit ArrayData(SAFEARRAY* array) : array_(array) {
    ThrowIfFailed(SafeArrayAccessData(array, &data_));
  }
  ArrayData(const ArrayData&) = delete;
  ArrayData& operator=(const ArrayData&) = delete;
  ~ArrayData() { SafeArrayUnaccessData(array_); }

  // The element at `index`, 0 for the first.
  template <typename T>
  T* As(std::size_t index = 0) const {
    return static_cast<T*>(data_) + index;
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

Value FromVector(SAFEARRAY* array) {
  LONG lower = 0;
  LONG upper = -1;
  VARTYPE type = VT_EMPTY;
  ThrowIfFailed(SafeArrayGetLBound(array, 1, &lower));
  ThrowIfFailed(SafeArrayGetUBound(array, 1, &upper));
  ThrowIfFailed(SafeArrayGetVartype(array, &type));
  const std::size_t size = SafeArrayGetElemsize(array);
  const ArrayData data(array);
  auto* at = data.As<std::byte>();
  std::vector<Value> list;
  if (lower <= upper) list.reserve(static_cast<std::size_t>(upper - lower) + 1);
  for (LONG index = lower; index <= upper; ++index, at += size) {
    if (type == VT_VARIANT) {
      list.push_back(FromVariant(*data.As<VARIANT>(list.size())));
      continue;
    }
    VARIANT element;
    VariantInit(&element);
    element.byref = at;
    element.vt = static_cast<VARTYPE>(type | VT_BYREF);
    list.push_back(FromVariant(element));
  }
  return list;
}

Value FromBlock(SafeArray array) {
  return CellBlockPtr(std::make_shared<const SafeArrayBlock>(std::move(array), FromVariant));
}

Value FromArray(SAFEARRAY* array) {
  if (array == nullptr) return std::vector<Value>();
  if (SafeArrayGetDim(array) == 1) return FromVector(array);
  if (SafeArrayGetDim(array) != 2) ThrowTypeMismatch();
  SafeArray copy;
  ThrowIfFailed(SafeArrayCopy(array, copy.put()));
  return FromBlock(std::move(copy));
}

SafeArray ToVector(const std::vector<Value>& list) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(list.size())));
  if (!array) throw std::bad_alloc();
  const ArrayData data(array.get());
  auto* element = data.As<VARIANT>();
  for (const Value& value : list) *element++ = ToVariant(value).release();
  return array;
}

std::vector<Value> CellsOf(const BlockRow& row) {
  std::vector<Value> cells;
  cells.reserve(row.block->ColumnCount());
  for (std::size_t column = 0; column < row.block->ColumnCount(); ++column) {
    cells.push_back(row.block->CellValue(column, row.row));
  }
  return cells;
}

// Copies the cell's text once.
Variant CellToVariant(const CellBlock& block, std::size_t column, std::size_t row) {
  const CellView view = block.Cell(column, row);
  if (view.kind != CellView::Kind::Text) return ToVariant(block.CellValue(column, row));
  VARIANT variant;
  VariantInit(&variant);
  variant.bstrVal = Bstr(view.text).release();
  variant.vt = VT_BSTR;
  Variant owner;
  owner.attach(variant);
  return owner;
}

// An array of variants with the block's cells, columns first.
SafeArray ToSafeArray(const CellBlock& block) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(block.ColumnCount()), 0},
                             {static_cast<ULONG>(block.RowCount()), 0}};
  SafeArray array;
  array.attach(SafeArrayCreate(VT_VARIANT, 2, bounds));
  if (!array) throw std::bad_alloc();
  // What was filled is freed with the array.
  const ArrayData data(array.get());
  auto* cell = data.As<VARIANT>();
  for (std::size_t row = 0; row < block.RowCount(); ++row) {
    for (std::size_t column = 0; column < block.ColumnCount(); ++column) {
      *cell++ = CellToVariant(block, column, row).release();
    }
  }
  return array;
}

SafeArray CopyOf(const CellBlock& block) {
  const auto* theirs = dynamic_cast<const SafeArrayBlock*>(&block);
  if (theirs == nullptr) return ToSafeArray(block);
  SafeArray copy;
  ThrowIfFailed(SafeArrayCopy(theirs->Array(), copy.put()));
  return copy;
}

VARTYPE ArrayType(SAFEARRAY* array) {
  VARTYPE type = VT_EMPTY;
  ThrowIfFailed(SafeArrayGetVartype(array, &type));
  return static_cast<VARTYPE>(type | VT_ARRAY);
}

}  // namespace

Value FromArgument(const VARIANT& argument) {
  const bool isRow = argument.vt == (VT_ARRAY | VT_VARIANT) && argument.parray != nullptr &&
                     SafeArrayGetDim(argument.parray) == 1;
  if (!isRow) return FromVariant(argument);
  return BlockRow{std::make_shared<const SafeArrayBlock>(argument.parray, FromVariant), 0};
}

Value ToRow(const std::vector<Value>& list) {
  return BlockRow{std::make_shared<const SafeArrayBlock>(ToVector(list), FromVariant), 0};
}

Value FromVariant(const VARIANT& variant) {
  if ((variant.vt & VT_BYREF) != 0) return FromVariant(Dereferenced(variant));
  if ((variant.vt & VT_ARRAY) != 0) return FromArray(variant.parray);
  switch (variant.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_ERROR:
      if (variant.scode != DISP_E_PARAMNOTFOUND) ThrowTypeMismatch();
      return Missing{};
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
      return static_cast<std::int16_t>(variant.cVal);
    case VT_UI1:
      return static_cast<std::int16_t>(variant.bVal);
    case VT_I2:
      return static_cast<std::int16_t>(variant.iVal);
    case VT_UI2:
      return static_cast<std::int32_t>(variant.uiVal);
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(variant.lVal);
    case VT_UI4:
    case VT_UINT:
      return WholeNumber(variant.ulVal);
    case VT_I8:
      return WholeNumber(variant.llVal);
    case VT_UI8:
      return WholeNumber(variant.ullVal);
    case VT_R4:
      return static_cast<double>(variant.fltVal);
    case VT_R8:
      return variant.dblVal;
    case VT_CY:
      return FromCurrency(variant.cyVal);
    case VT_DECIMAL:
      return FromDecimal(variant.decVal);
    case VT_DATE:
      return Date{variant.date};
    case VT_BSTR:
      return FromBstr(variant.bstrVal);
    case VT_DISPATCH:
      return FromDispatch(variant.pdispVal);
    case VT_UNKNOWN:
      return FromUnknown(variant.punkVal);
    default:
      ThrowTypeMismatch();
  }
}

Value FromVariantOrNullBlock(const VARIANT& variant) {
  Value value = CellBlockPtr();
  SkipFailing([&] { value = FromVariant(variant); });
  return value;
}

Value ConsumeVariant(Variant variant) {
  const VARIANT& content = variant.get();
  const bool block = (content.vt & VT_ARRAY) != 0 && (content.vt & VT_BYREF) == 0 &&
                     content.parray != nullptr && SafeArrayGetDim(content.parray) == 2;
  if (!block) return FromVariant(content);
  SafeArray array;
  array.attach(variant.release().parray);
  return FromBlock(std::move(array));
}

Variant ToVariant(const Value& value) {
  VARIANT variant;
  VariantInit(&variant);
  switch (value.GetKind()) {
    case Value::Kind::Empty:
      break;
    case Value::Kind::Null:
      variant.vt = VT_NULL;
      break;
    case Value::Kind::Missing:
      variant.scode = DISP_E_PARAMNOTFOUND;
      variant.vt = VT_ERROR;
      break;
    case Value::Kind::Boolean:
      variant.boolVal = value.Boolean() ? VARIANT_TRUE : VARIANT_FALSE;
      variant.vt = VT_BOOL;
      break;
    case Value::Kind::Int16:
      variant.iVal = value.Int16();
      variant.vt = VT_I2;
      break;
    case Value::Kind::Int32:
      variant.lVal = value.Int32();
      variant.vt = VT_I4;
      break;
    case Value::Kind::Double:
      variant.dblVal = value.Double();
      variant.vt = VT_R8;
      break;
    case Value::Kind::Date:
      variant.date = value.DateValue().days;
      variant.vt = VT_DATE;
      break;
    case Value::Kind::Text:
      variant.bstrVal = Bstr(value.Text()).release();
      variant.vt = VT_BSTR;
      break;
    case Value::Kind::Object:
      variant.pdispVal = ToDispatch(value.Object()).release();
      variant.vt = VT_DISPATCH;
      break;
    case Value::Kind::Block:
      if (value.Block() == nullptr) ThrowTypeMismatch();
      variant.parray = CopyOf(*value.Block()).release();
      variant.vt = ArrayType(variant.parray);
      break;
    case Value::Kind::List:
      variant.parray = ToVector(value.List()).release();
      variant.vt = VT_ARRAY | VT_VARIANT;
      break;
    case Value::Kind::Row:
      variant.parray = ToVector(CellsOf(value.Row())).release();
      variant.vt = VT_ARRAY | VT_VARIANT;
      break;
    case Value::Kind::Reference:
      return ToVariant(value.Resolved());
  }
  Variant owner;
  owner.attach(variant);
  return owner;
}

}  // namespace pricedown::windows
