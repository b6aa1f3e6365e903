// 打开公司: a file or a connection string, one of the recent ones, and a password, which is not
// stored.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace workbench {

// Shows the dialog over `owner`, with `proposed` filled in without its passwords. Returns the path
// or the whole connection string; nothing when cancelled.
std::optional<std::wstring> AskForCompany(HINSTANCE module, HWND owner,
                                          const std::wstring& proposed);

}  // namespace workbench
