// Files by their size. Nothing is measured while one is made.
#include "bench/companies.h"

#include <filesystem>

#include "workbench/sample/company_file.h"

namespace bench {
namespace {

std::string Make(const std::string& path, const workbench::CompanyFilePlan& plan) {
  if (!std::filesystem::exists(path)) workbench::CreateCompanyFile(path, plan);
  return path;
}

}  // namespace

std::string MakeCompany(const std::string& folder, int items, int classes) {
  workbench::CompanyFilePlan plan;
  plan.large = workbench::LargeCompanyPlan{1, items, classes};
  return Make(folder + "/bench-" + std::to_string(items) + "-" + std::to_string(classes) + ".db",
              plan);
}

std::string MakeSampleCompany(const std::string& folder) {
  return Make(folder + "/bench-sample.db", {});
}

std::string CopyCompany(const std::string& path, const std::string& purpose) {
  const std::string copy = path.substr(0, path.rfind('.')) + "-" + purpose + ".db";
  for (const char* part : {"", "-wal", "-shm"}) std::filesystem::remove(copy + part);
  std::filesystem::copy_file(path, copy);
  return copy;
}

}  // namespace bench
