// The creation of an object by its ProgID.
#include "windows/com/com_object_factory.h"

#include <ole2.h>

#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/com_object.h"
#include "windows/com/com_ptr.h"
#include "windows/com/dispatch_object.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

ObjectPtr ComObjectFactory::Create(std::u16string_view progId) {
  CLSID classId{};
  ComPtr<IDispatch> object;
  HRESULT code = CLSIDFromProgID(ToWide(progId).c_str(), &classId);
  if (SUCCEEDED(code)) {
    code = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                            IID_IDispatch, object.putVoid());
  }
  if (FAILED(code) || !object) {
    SetErrorInfo(0, nullptr);
    throw AutomationError(ErrorNumber::CannotCreateObject,
                          Concatenate({u"不能创建对象: ", progId, u" (", SystemText(code), u")"}),
                          std::u16string(progId));
  }
  if (ObjectPtr ours = DispatchObject::TargetOf(object.get())) return ours;
  return std::make_shared<ComObject>(std::move(object), progId);
}

}  // namespace pricedown::windows
