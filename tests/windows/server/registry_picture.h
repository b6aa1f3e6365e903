// The registered classes as lines, to see what an action adds or leaves.
#pragma once

#include <windows.h>

#include <set>
#include <string>
#include <vector>

namespace pricedown::testing {

// Every key directly below Software\Classes, its CLSID, Interface and TypeLib, as a line; of those
// whose name holds one of `marks` also everything below: "KEY" for each key and
// "KEY: NAME = TEXT" for each value, in UTF-8. Keys are relative to Software\Classes.
std::set<std::string> RegisteredClasses(HKEY root, const std::vector<std::wstring>& marks);

// The lines of `after` that `before` lacks.
std::set<std::string> Added(const std::set<std::string>& before,
                            const std::set<std::string>& after);

}  // namespace pricedown::testing
