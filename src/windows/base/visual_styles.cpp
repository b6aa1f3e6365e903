// Shares the activation context and registers the control classes that the windows use.
#include "windows/base/visual_styles.h"

#include <commctrl.h>

#include <string>

#include "windows/base/shared_values.h"
#include "windows/com/module_path.h"

namespace pricedown::windows {
namespace {

// Null when the module has no such manifest.
std::shared_ptr<void> MakeContext(HINSTANCE module) {
  const std::wstring path = ModulePath(module);
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  description.lpSource = path.c_str();
  description.lpResourceName = MAKEINTRESOURCEW(2);
  description.hModule = module;
  const HANDLE context = CreateActCtxW(&description);
  if (context == INVALID_HANDLE_VALUE) return nullptr;
  return {context, [](HANDLE made) { ReleaseActCtx(made); }};
}

// Making one reads files.
std::shared_ptr<void> ContextOf(HINSTANCE module) {
  static SharedValues<HINSTANCE, void> contexts;
  return contexts.Get(module, [module] { return MakeContext(module); });
}

}  // namespace

VisualStyles::VisualStyles(HINSTANCE module) : context_(ContextOf(module)) {
  const Scope scope(*this);
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC =
      ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS;
  InitCommonControlsEx(&classes);
}

VisualStyles::Scope::Scope(const VisualStyles& styles) {
  if (styles.context_ != nullptr) {
    active_ = ActivateActCtx(styles.context_.get(), &cookie_) != FALSE;
  }
}

VisualStyles::Scope::~Scope() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace pricedown::windows
