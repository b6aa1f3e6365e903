// Redirecting ProgIDs, and back.
#include "workbench/recording/com/recorder_registration.h"

#include <objbase.h>

#include <array>

#include "platform/error.h"
#include "windows/com/module_path.h"
#include "windows/com/registry_key.h"

namespace workbench {

using pricedown::windows::ReadText;
using pricedown::windows::RegistrationScope;
using pricedown::windows::ServerEntries;
using pricedown::windows::WriteText;

namespace {

std::wstring IdText(const CLSID& id) {
  std::array<wchar_t, 40> text{};
  const int length = StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return std::wstring(text.data(), static_cast<std::size_t>(length > 0 ? length - 1 : 0));
}

HKEY RootOf(RegistrationScope scope) {
  return scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring UnderClasses(const std::wstring& key) { return L"Software\\Classes\\" + key; }

// Below the recorder's own class: what the ProgID named for callers, and what that root itself
// said.
std::wstring BehindKey(const RecordedClass& recorded) {
  return L"CLSID\\" + IdText(recorded.id) + L"\\Behind";
}
std::wstring BeforeKey(const RecordedClass& recorded) {
  return L"CLSID\\" + IdText(recorded.id) + L"\\Before";
}
std::wstring ProgIdClassKey(const RecordedClass& recorded) {
  return std::wstring(recorded.progId) + L"\\CLSID";
}

bool IsOurs(const RecordedClass& recorded, const std::wstring& id) {
  return lstrcmpiW(id.c_str(), IdText(recorded.id).c_str()) == 0;
}

// What the ProgID names without the recorder; empty when that has no server for this library's
// programs.
std::wstring NamedClass(const RecordedClass& recorded, RegistrationScope scope) {
  const bool machine = scope == RegistrationScope::Machine;
  const HKEY root = machine ? HKEY_LOCAL_MACHINE : HKEY_CLASSES_ROOT;
  const auto key = [machine](const std::wstring& name) {
    return machine ? UnderClasses(name) : name;
  };
  std::wstring named = ReadText(root, key(ProgIdClassKey(recorded)));
  if (IsOurs(recorded, named)) named = ReadText(root, key(BehindKey(recorded)));
  // ProgIDs are shared by 32 and 64 bits, classes are not: the suite may be of the other kind.
  const std::wstring server = L"CLSID\\" + named + L"\\";
  if (ReadText(root, key(server + L"InprocServer32")).empty() &&
      ReadText(root, key(server + L"LocalServer32")).empty()) {
    return {};
  }
  return named;
}

// The classes under ProgIDs of their own; those of the suite are redirected apart.
ServerEntries Entries() {
  ServerEntries entries;
  for (const RecordedClass& recorded : kRecordedClasses) {
    if (recorded.kind != RecordedClass::Kind::Suite) continue;
    const std::wstring progId = recorded.progId;
    const std::wstring name = L"SuiteRecorder" + progId.substr(progId.find(L'.'));
    entries.classes.push_back({.id = recorded.id, .name = name, .progId = name});
  }
  return entries;
}

void Redirect(const RecordedClass& recorded, RegistrationScope scope, const std::wstring& behind) {
  const HKEY root = RootOf(scope);
  const std::wstring key = UnderClasses(ProgIdClassKey(recorded));
  const std::wstring before = ReadText(root, key);
  if (IsOurs(recorded, before)) return;
  WriteText(root, UnderClasses(BehindKey(recorded)), L"", behind);
  WriteText(root, UnderClasses(BeforeKey(recorded)), L"", before);
  // Made in the caller's own apartment, as the class behind it is then by its own model.
  WriteText(root, UnderClasses(L"CLSID\\" + IdText(recorded.id) + L"\\InprocServer32"),
            L"ThreadingModel", L"Both");
  WriteText(root, key, L"", IdText(recorded.id));
}

void Restore(const RecordedClass& recorded, RegistrationScope scope) {
  const HKEY root = RootOf(scope);
  const std::wstring key = UnderClasses(ProgIdClassKey(recorded));
  if (!IsOurs(recorded, ReadText(root, key))) return;
  // Redirected by the recorder of the other bitness, which alone knows what was there.
  if (ReadText(root, UnderClasses(BehindKey(recorded))).empty()) return;
  const std::wstring before = ReadText(root, UnderClasses(BeforeKey(recorded)));
  if (!before.empty()) {
    WriteText(root, key, L"", before);
    return;
  }
  pricedown::windows::FirstRemovalFailure failure;
  failure.Note(pricedown::windows::RemoveTree(root, key));
  failure.Rethrow();
  pricedown::windows::RemoveIfEmpty(root, UnderClasses(recorded.progId));
}

}  // namespace

std::wstring ClassBehind(const RecordedClass& recorded) {
  return ReadText(HKEY_CLASSES_ROOT, BehindKey(recorded));
}

void RegisterRecorder(RegistrationScope scope, HINSTANCE module) {
  std::array<std::wstring, std::size(kRecordedClasses)> behind;
  bool found = false;
  for (std::size_t i = 0; i < behind.size(); ++i) {
    if (kRecordedClasses[i].kind != RecordedClass::Kind::Suite) continue;
    behind[i] = NamedClass(kRecordedClasses[i], scope);
    found = found || !behind[i].empty();
  }
  if (!found) {
    throw pricedown::AutomationError(HRESULT_FROM_WIN32(ERROR_NOT_FOUND),
                                     u"没有登记套件，无可记录。");
  }
  pricedown::windows::Register(Entries(), scope, pricedown::windows::ModulePath(module));
  try {
    for (std::size_t i = 0; i < behind.size(); ++i) {
      if (!behind[i].empty()) Redirect(kRecordedClasses[i], scope, behind[i]);
    }
  } catch (...) {
    UnregisterRecorder(scope);
    throw;
  }
}

void UnregisterRecorder(RegistrationScope scope) {
  for (const RecordedClass& recorded : kRecordedClasses) {
    if (recorded.kind == RecordedClass::Kind::Suite) Restore(recorded, scope);
  }
  pricedown::windows::Unregister(Entries(), scope);
}

}  // namespace workbench
