// Three ways to the real object.
#include "workbench/recording/com/real_suite.h"

#include <ole2.h>

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
    ACTCTXW description{};
    description.cbSize = sizeof(description);
    description.lpSource = file.c_str();
    context_ = CreateActCtxW(&description);
    if (context_ == INVALID_HANDLE_VALUE) return;
    active_ = ActivateActCtx(context_, &cookie_) != FALSE;
  }
  ActiveManifest(const ActiveManifest&) = delete;
  ActiveManifest& operator=(const ActiveManifest&) = delete;
  ~ActiveManifest() {
    if (active_) DeactivateActCtx(0, cookie_);
    // Kept: the system may still read the entries of objects that were made by it.
  }

  explicit operator bool() const { return active_; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
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
