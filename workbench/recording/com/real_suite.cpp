// Three ways to the real object.
#include "workbench/recording/com/real_suite.h"

#include <ole2.h>

#include <map>
#include <mutex>
#include <string>

#include "windows/com/registry_key.h"
#include "workbench/recording/com/recorder.h"
#include "workbench/recording/com/recorder_registration.h"

namespace workbench {
namespace {

constexpr DWORD kContext = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

// A manifest's assembly, active for this thread as long as this object lives.
class ActiveManifest {
 public:
  explicit ActiveManifest(const std::wstring& file) {
    const HANDLE context = ContextOf(file);
    active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != FALSE;
  }
  ActiveManifest(const ActiveManifest&) = delete;
  ActiveManifest& operator=(const ActiveManifest&) = delete;
  ~ActiveManifest() {
    if (active_) DeactivateActCtx(0, cookie_);
  }

  explicit operator bool() const { return active_; }

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

HRESULT CreateByManifest(const std::wstring& file, const RecordedClass& recorded, REFIID id,
                         void** result) {
  const ActiveManifest manifest(file);
  if (!manifest) return HRESULT_FROM_WIN32(GetLastError());
  CLSID classId{};
  const HRESULT code = CLSIDFromProgID(recorded.progId, &classId);
  return FAILED(code) ? code : CoCreateInstance(classId, nullptr, kContext, id, result);
}

}  // namespace

HANDLE ContextOf(const std::wstring& manifest) {
  static std::mutex mutex;
  static std::map<std::wstring, HANDLE> contexts;
  const std::scoped_lock lock(mutex);
  const auto known = contexts.find(manifest);
  if (known != contexts.end()) return known->second;
  ACTCTXW description{};
  description.cbSize = sizeof(description);
  description.lpSource = manifest.c_str();
  const HANDLE context = CreateActCtxW(&description);
  if (context != INVALID_HANDLE_VALUE) contexts.emplace(manifest, context);
  return context;
}

HRESULT CreateReal(const RecordedClass& recorded, REFIID id, void** result) {
  const std::wstring manifest = EnvironmentText(L"SUITE_RECORDER_SUITE");
  if (!manifest.empty()) return CreateByManifest(manifest, recorded, id, result);
  std::wstring text = ClassBehind(recorded);
  if (text.empty()) {
    text =
        pricedown::windows::ReadText(HKEY_CLASSES_ROOT, std::wstring(recorded.progId) + L"\\CLSID");
  }
  CLSID classId{};
  if (text.empty() || FAILED(CLSIDFromString(text.c_str(), &classId))) return CO_E_CLASSSTRING;
  // An installation without anything behind it.
  if (classId == recorded.id) return REGDB_E_CLASSNOTREG;
  return CoCreateInstance(classId, nullptr, kContext, id, result);
}

}  // namespace workbench
