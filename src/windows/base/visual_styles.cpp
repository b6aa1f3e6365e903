// Creates the activation context and registers the control classes that the windows use.
#include "windows/base/visual_styles.h"

#include <commctrl.h>

namespace pricedown::windows {

VisualStyles::VisualStyles(HINSTANCE module) : context_(INVALID_HANDLE_VALUE) {
  wchar_t path[MAX_PATH] = {};
  if (const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
      length > 0 && length < MAX_PATH) {
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    description.lpSource = path;
    description.lpResourceName = MAKEINTRESOURCEW(2);
    description.hModule = module;
    context_ = CreateActCtxW(&description);
  }
  const Scope scope(*this);
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC =
      ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS;
  InitCommonControlsEx(&classes);
}

VisualStyles::~VisualStyles() {
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

VisualStyles::Scope::Scope(const VisualStyles& styles) {
  if (styles.context_ != INVALID_HANDLE_VALUE) {
    active_ = ActivateActCtx(styles.context_, &cookie_) != FALSE;
  }
}

VisualStyles::Scope::~Scope() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace pricedown::windows
