// The company files that are measured on.
#pragma once

#include <string>

namespace bench {

// The path of a company of that size in `folder`, created the first time and kept there.
std::string MakeCompany(const std::string& folder, int items, int classes);

// The same for the sample company.
std::string MakeSampleCompany(const std::string& folder);

// The path of a new, modifiable copy; `purpose` is part of its name. Requires: this process has
// opened neither.
std::string CopyCompany(const std::string& path, const std::string& purpose);

}  // namespace bench
