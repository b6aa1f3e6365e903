// The rights check through the suite's ledger-data object.
#include "env/rights.h"

#include <array>

#include "env/translation.h"
#include "platform/convert.h"

namespace pricedown {
namespace {

// The object on which all rights but the data scope are checked.
constexpr std::int32_t kCheckedObjectType = 1002;
constexpr std::int32_t kCheckedObjectNumber = 35;
constexpr std::int32_t kDataScopeNumber = 151;

struct ScopeMask {
  std::int32_t mask;
  std::int32_t scope;
};
// The widest scope first.
constexpr std::array<ScopeMask, 3> kScopeMasks{{{0x400000, 2}, {0x200000, 1}, {0x100000, 0}}};

}  // namespace

bool Rights::Check(std::int32_t accessMask) {
  if (IsGranted(kCheckedObjectType, kCheckedObjectNumber, accessMask)) return true;
  if (lifetime_.HasEnded()) return false;
  messages_.Inform(Translate(u"没有权限,请与系统管理员联系"));
  return false;
}

void Rights::ReadDataScope() {
  for (const ScopeMask& candidate : kScopeMasks) {
    const bool granted = IsGranted(state_.objectType, kDataScopeNumber, candidate.mask);
    if (granted) state_.dataScope = candidate.scope;
    if (granted || lifetime_.HasEnded()) return;
  }
}

bool Rights::IsGranted(std::int32_t objectType, std::int32_t objectNumber,
                       std::int32_t accessMask) {
  // Held for the call, in which the last control may end.
  ObjectPtr data = state_.ledgerData;
  if (data == nullptr) {
    data = factory_.Create(u"ZEPEBCGLView.GLData");
    if (lifetime_.HasEnded()) return false;
    state_.ledgerData = data;
  }
  const Value answer = data->Call(u"AccessCheck", {objectType, objectNumber, accessMask});
  return !lifetime_.HasEnded() && ToBoolean(answer);
}

}  // namespace pricedown
