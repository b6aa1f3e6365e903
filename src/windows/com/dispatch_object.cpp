// Calls from COM to an automation object, and objects on their way in and out.
#include "windows/com/dispatch_object.h"

#include "platform/error.h"
#include "platform/local_object.h"
#include "platform/text.h"
#include "windows/com/call_result.h"
#include "windows/com/com_object.h"
#include "windows/com/dispatch_value.h"
#include "windows/com/enumerator.h"
#include "windows/com/incoming_arguments.h"
#include "windows/com/variant_value.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kNewEnum = u"_NewEnum";

Access AccessOf(WORD flags) {
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) return Access::PutReference;
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return Access::Put;
  return Access::Call;
}

struct VariantElements {
  using Item = Value;
  using Element = VARIANT;
  static VARIANT Copy(const Value& value) { return ToVariant(value).release(); }
  static void Free(VARIANT& element) { VariantClear(&element); }
};

// What `For Each` asks a collection for.
Variant Enumeration(AutomationObject& collection) {
  auto elements = collection.Elements();
  if (!elements) ThrowMemberNotFound(kNewEnum);
  VARIANT variant;
  VariantInit(&variant);
  variant.punkVal = MakeCom<Enumerator<IEnumVARIANT, VariantElements>>(
                        std::make_shared<const std::vector<Value>>(std::move(*elements)))
                        .release();
  variant.vt = VT_UNKNOWN;
  Variant owner;
  owner.attach(variant);
  return owner;
}

}  // namespace

ObjectPtr DispatchObject::TargetOf(IUnknown* object) {
  const auto own = ComPtr<IUnknown>::Share(object).As<OwnObject>();
  if (!own || own->Module() != &Counts()) return nullptr;
  return *own->Target();
}

const void* STDMETHODCALLTYPE DispatchObject::Module() noexcept { return &Counts(); }

STDMETHODIMP DispatchObject::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** result) noexcept {
  if (result != nullptr) *result = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                           DISPID* ids) noexcept {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  if (GetCurrentThreadId() != thread_) return RefuseThread();
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const ObjectPtr target = target_;
  const HRESULT code = AtBoundary(
      [&] {
        const std::u16string name = FromWide(names[0]);
        const bool enumerates = EqualsIgnoringCase(name, kNewEnum) && target->Elements();
        ids[0] = enumerates ? DISPID_NEWENUM : target->Find(name);
      },
      IID_IDispatch);
  // Parameters have no names here.
  return SUCCEEDED(code) && count > 1 ? DISP_E_UNKNOWNNAME : code;
}

STDMETHODIMP DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* record,
                                    UINT* badArgument) noexcept {
  if (parameters == nullptr) return E_INVALIDARG;
  if (GetCurrentThreadId() != thread_) return RefuseThread();
  if (result != nullptr) VariantInit(result);
  // The call may release this object.
  const ObjectPtr target = target_;
  try {
    const Access access = AccessOf(flags);
    IncomingArguments arguments(
        *parameters, access != Access::Call, badArgument,
        [](std::size_t, const VARIANT& argument) { return FromArgument(argument); });
    Variant answer = id == DISPID_NEWENUM && access == Access::Call
                         ? Enumeration(*target)
                         : ToVariant(target->Invoke(id, access, arguments.Values()));
    arguments.WriteBack();
    if (result != nullptr) *result = answer.release();
    return S_OK;
  } catch (...) {
    const Failure failure = CurrentFailure();
    if (!IsDispatchRefusal(failure.code)) return ReportException(failure, record);
    return PublishFailure(failure, IID_IDispatch);
  }
}

STDMETHODIMP DispatchObject::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID_IDispatch ? S_OK : S_FALSE;
}

ObjectPtr FromDispatch(IDispatch* object) {
  if (object == nullptr) return nullptr;
  if (ObjectPtr ours = DispatchObject::TargetOf(object)) return ours;
  return std::make_shared<ComObject>(ComPtr<IDispatch>::Share(object));
}

ComPtr<IDispatch> ToDispatch(const ObjectPtr& object) {
  if (object == nullptr) return {};
  if (const auto* theirs = dynamic_cast<const ComObject*>(object.get())) {
    return theirs->Dispatch();
  }
  return ComPtr<IDispatch>::Adopt(MakeCom<DispatchObject>(object).release());
}

}  // namespace pricedown::windows
