// Makes arguments: half of them plain, the others by reference or invalid. Everything that a
// caller may legally send, and invalid arguments that do not endanger the callee's memory.
#include "tests/windows/conformance/random_argument.h"

#include <array>
#include <limits>
#include <string>

#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"
#include "windows/com/system_error.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::SafeArray;

std::uint32_t Below(std::mt19937& random, std::uint32_t bound) { return random() % bound; }

template <typename T, std::size_t count>
const T& OneOf(std::mt19937& random, const std::array<T, count>& choices) {
  return choices[Below(random, count)];
}

std::u16string RandomText(std::mt19937& random) {
  static const std::array<std::u16string, 12> kTexts{u"",
                                                     u"0",
                                                     u"-1",
                                                     u"12.5",
                                                     u"1e999",
                                                     u"True",
                                                     u" 7 ",
                                                     u"Activate",
                                                     u"iRefresh",
                                                     u"物料",
                                                     std::u16string(u"a\0b", 3),
                                                     std::u16string(1, u'\xD800')};
  if (Below(random, 20) == 0) return std::u16string(Below(random, 0x10000), u'x');
  return OneOf(random, kTexts);
}

double RandomNumber(std::mt19937& random) {
  using Limits = std::numeric_limits<double>;
  static constexpr std::array kNumbers{0.0,
                                       -0.0,
                                       1.0,
                                       2.5,
                                       32767.5,
                                       -32768.5,
                                       2147483647.5,
                                       1e300,
                                       -1e300,
                                       Limits::infinity(),
                                       Limits::quiet_NaN(),
                                       Limits::denorm_min()};
  return OneOf(random, kNumbers);
}

std::int64_t RandomInteger(std::mt19937& random) {
  if (Below(random, 2) == 0) return static_cast<std::int64_t>(Below(random, 8)) - 2;
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(random()) << 32 | random());
}

SAFEARRAY* RandomArray(std::mt19937& random, VARTYPE type) {
  if (Below(random, 5) == 0) return nullptr;
  std::array<SAFEARRAYBOUND, 3> bounds{};
  const UINT dimensions = 1 + Below(random, 3);
  for (UINT i = 0; i < dimensions; ++i) {
    bounds[i].cElements = Below(random, 4);
    bounds[i].lLbound = static_cast<LONG>(Below(random, 5)) - 2;
  }
  SAFEARRAY* array = SafeArrayCreate(type, dimensions, bounds.data());
  if (array == nullptr || type != VT_VARIANT || dimensions != 1) return array;
  for (ULONG i = 0; i < bounds[0].cElements; ++i) {
    LONG index = bounds[0].lLbound + static_cast<LONG>(i);
    VARIANT element;
    VariantInit(&element);
    element.vt = VT_I4;
    element.lVal = static_cast<LONG>(random());
    windows::ThrowIfFailed(SafeArrayPutElement(array, &index, &element));
  }
  return array;
}

constexpr std::array<VARTYPE, 24> kTypes{VT_EMPTY,
                                         VT_NULL,
                                         VT_I1,
                                         VT_UI1,
                                         VT_I2,
                                         VT_UI2,
                                         VT_I4,
                                         VT_UI4,
                                         VT_INT,
                                         VT_UINT,
                                         VT_I8,
                                         VT_UI8,
                                         VT_R4,
                                         VT_R8,
                                         VT_CY,
                                         VT_DATE,
                                         VT_BOOL,
                                         VT_DECIMAL,
                                         VT_BSTR,
                                         VT_ERROR,
                                         VT_DISPATCH,
                                         VT_UNKNOWN,
                                         VT_ARRAY | VT_VARIANT,
                                         VT_ARRAY | VT_I4};

VARIANT RandomValue(std::mt19937& random, IDispatch* object) {
  VARIANT value;
  VariantInit(&value);
  value.vt = OneOf(random, kTypes);
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      break;
    case VT_R4:
      value.fltVal = static_cast<float>(Below(random, 100)) / 3;
      break;
    case VT_R8:
    case VT_DATE:
      value.dblVal = RandomNumber(random);
      break;
    case VT_DECIMAL:
      value.decVal.Lo64 = random();
      value.decVal.Hi32 = random();
      value.decVal.scale = static_cast<BYTE>(Below(random, 29));
      value.decVal.sign = Below(random, 2) == 0 ? BYTE{0} : BYTE{DECIMAL_NEG};
      value.vt = VT_DECIMAL;
      break;
    case VT_BSTR:
      value.bstrVal = Below(random, 6) == 0 ? nullptr : Bstr(RandomText(random)).release();
      break;
    case VT_ERROR:
      value.scode = Below(random, 2) == 0 ? DISP_E_PARAMNOTFOUND : static_cast<SCODE>(random());
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      value.pdispVal = Below(random, 3) == 0 ? nullptr : object;
      if (value.pdispVal != nullptr) object->AddRef();
      break;
    case VT_ARRAY | VT_VARIANT:
    case VT_ARRAY | VT_I4:
      value.parray = RandomArray(random, static_cast<VARTYPE>(value.vt & ~VT_ARRAY));
      break;
    default:
      value.llVal = RandomInteger(random);
      break;
  }
  return value;
}

}  // namespace

RandomArgument::RandomArgument(std::mt19937& random, IDispatch* object) {
  owned_.attach(RandomValue(random, object));
  sent_ = owned_.get();
  const std::uint32_t form = Below(random, 16);
  if (form == 0) {
    Nonsense(random);
  } else if (form < 8) {
    ByReference(random);
  }
}

void RandomArgument::ByReference(std::mt19937& random) {
  VARIANT& target = *owned_.share();
  inner_.vt = static_cast<VARTYPE>(target.vt | VT_BYREF);
  inner_.byref = target.vt == VT_DECIMAL ? static_cast<void*>(&target.decVal) : &target.llVal;
  sent_ = VARIANT{};
  sent_.vt = VT_BYREF | VT_VARIANT;
  switch (Below(random, 4)) {
    case 0:
      sent_ = inner_;
      break;
    case 1:
      sent_.pvarVal = &inner_;
      break;
    case 2:
      sent_.byref = nullptr;
      break;
    default:
      sent_.pvarVal = &target;
      break;
  }
}

// Types that no argument may have, with an empty content.
void RandomArgument::Nonsense(std::mt19937& random) {
  static constexpr std::array<VARTYPE, 12> kNoTypes{
      VT_VARIANT, VT_RECORD,   VT_VOID, VT_HRESULT, VT_SAFEARRAY,      VT_USERDEFINED,
      VT_LPWSTR,  VT_FILETIME, VT_BLOB, VT_CLSID,   VT_VECTOR | VT_I4, 0x0FFF};
  sent_ = VARIANT{};
  sent_.vt = OneOf(random, kNoTypes);
}

}  // namespace pricedown::testing
