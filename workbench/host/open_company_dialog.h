// 打开公司: a file or a connection string, one of the recent ones, and a password that nobody
// keeps.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace workbench {

// Asks over `owner`, with `proposed` filled in without its passwords. The path or the whole
// connection string; nothing when the user cancels.
std::optional<std::wstring> AskForCompany(HINSTANCE module, HWND owner,
                                          const std::wstring& proposed);

}  // namespace workbench
