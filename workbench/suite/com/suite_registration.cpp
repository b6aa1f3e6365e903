// Which classes are registered, and the check for an installed suite.
#include "workbench/suite/com/suite_registration.h"

#include <ole2.h>

#include <iterator>
#include <string>

#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/module_path.h"
#include "windows/com/wide_text.h"
#include "workbench/suite/com/class_ids.h"
#include "workbench/suite/suite_factory.h"

namespace workbench {
namespace {

using pricedown::windows::RegistrationScope;
using pricedown::windows::ServerEntries;

constexpr std::u16string_view kSystemClass = u"ADODB.Recordset";

ServerEntries SuiteEntries() {
  ServerEntries entries;
  const auto classes = SuiteClasses();
  for (std::size_t i = 0; i < std::size(kSuiteClassIds) && i < classes.size(); ++i) {
    if (classes[i].progId == kSystemClass) continue;
    const std::wstring name = pricedown::windows::ToWide(classes[i].progId);
    entries.classes.push_back({.id = kSuiteClassIds[i], .name = name, .progId = name});
  }
  return entries;
}

void RefuseInstalledSuite(const ServerEntries& entries) {
  for (const auto& entry : entries.classes) {
    CLSID id{};
    if (FAILED(CLSIDFromProgID(entry.progId.c_str(), &id)) || id == entry.id) continue;
    throw pricedown::AutomationError(
        HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS),
        pricedown::Concatenate(
            {u"已由另一个程序登记: ", pricedown::windows::FromWide(entry.progId)}));
  }
}

}  // namespace

void RegisterSuite(RegistrationScope scope, HINSTANCE module) {
  const ServerEntries entries = SuiteEntries();
  RefuseInstalledSuite(entries);
  pricedown::windows::Register(entries, scope, pricedown::windows::ModulePath(module));
}

void UnregisterSuite(RegistrationScope scope) {
  pricedown::windows::Unregister(SuiteEntries(), scope);
}

}  // namespace workbench
