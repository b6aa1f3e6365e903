// The list in the registry: newest first, each location once.
#include "workbench/host/recent_companies.h"

#include <windows.h>

#include <algorithm>

#include "platform/text.h"
#include "windows/com/wide_text.h"
#include "workbench/company/location.h"

namespace workbench {
namespace {

constexpr const wchar_t* kKey = L"Software\\PriceDownWorkbench";
constexpr const wchar_t* kValue = L"RecentCompanies";
constexpr std::size_t kMaximum = 8;

std::wstring WithoutPasswords(const std::wstring& location) {
  const std::string kept =
      RememberedLocation(pricedown::ToUtf8(pricedown::windows::FromWide(location)));
  return pricedown::windows::ToWide(pricedown::FromUtf8(kept));
}

std::vector<std::wstring> Stored() {
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_MULTI_SZ, nullptr, nullptr,
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::wstring texts(bytes / sizeof(wchar_t) + 2, L'\0');
  bytes = static_cast<DWORD>(texts.size() * sizeof(wchar_t));
  if (RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_MULTI_SZ, nullptr, texts.data(),
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<std::wstring> companies;
  for (const wchar_t* text = texts.c_str(); *text != L'\0'; text += companies.back().size() + 1) {
    companies.emplace_back(text);
  }
  return companies;
}

void Store(const std::vector<std::wstring>& companies) {
  std::wstring texts;
  for (const std::wstring& company : companies) texts.append(company).push_back(L'\0');
  texts.push_back(L'\0');
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_MULTI_SZ, texts.data(),
                  static_cast<DWORD>(texts.size() * sizeof(wchar_t)));
}

}  // namespace

std::vector<std::wstring> RecentCompanies() {
  const std::vector<std::wstring> stored = Stored();
  std::vector<std::wstring> companies;
  for (const std::wstring& location : stored) {
    std::wstring kept = WithoutPasswords(location);
    const bool isNew = std::find(companies.begin(), companies.end(), kept) == companies.end();
    if (isNew && !kept.empty()) companies.push_back(std::move(kept));
  }
  if (companies != stored) Store(companies);
  return companies;
}

void AddRecentCompany(const std::wstring& location) {
  const std::wstring kept = WithoutPasswords(location);
  if (kept.empty()) return;
  std::vector<std::wstring> companies = RecentCompanies();
  std::erase(companies, kept);
  companies.insert(companies.begin(), kept);
  companies.resize(std::min(companies.size(), kMaximum));
  Store(companies);
}

}  // namespace workbench
