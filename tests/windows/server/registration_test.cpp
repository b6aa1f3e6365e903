// Tests of what the DLL writes to the registry and removes again.
#include <gtest/gtest.h>

#include "tests/support/utf8.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/library.h"
#include "tests/windows/server/registry_picture.h"
#include "windows/com/registry_key.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

constexpr const char* kControlId = "{5CBA2460-9A04-438A-A278-EFFBFAE8A2F3}";
constexpr const char* kPriceId = "{6DA8E470-C295-43DA-B4AC-B78C0EB48C1F}";
constexpr const char* kLibraryId = "{EA4EA8E5-68DD-49CE-B47C-81D766861F1C}";
constexpr const char* kPlatform = sizeof(void*) == 8 ? "win64" : "win32";

std::string LibraryPath() {
  wchar_t path[MAX_PATH];
  const DWORD length =
      GetModuleFileNameW(GetModuleHandleW(L"ZEPPriceDownPrepare.dll"), path, MAX_PATH);
  return Utf8(windows::FromWide({path, length}));
}

bool HasTypeLibrary(const std::set<std::string>& lines, const std::string& path) {
  return lines.contains("TypeLib\\" + std::string(kLibraryId) + "\\1.0\\0\\" + kPlatform +
                        ":  = " + path);
}

void ExpectEntries(const std::set<std::string>& added) {
  const std::string path = LibraryPath();
  const auto has = [&](const std::string& line) { return added.contains(line); };
  const std::string control = std::string("CLSID\\") + kControlId;
  const std::string price = std::string("CLSID\\") + kPriceId;
  EXPECT_TRUE(has(control + "\\InprocServer32:  = " + path));
  EXPECT_TRUE(has(control + "\\InprocServer32: ThreadingModel = Apartment"));
  EXPECT_TRUE(has(control + "\\ProgID:  = ZEPPriceDownPrepare.PriceDown.1"));
  EXPECT_TRUE(has(control + "\\VersionIndependentProgID:  = ZEPPriceDownPrepare.PriceDown"));
  EXPECT_TRUE(has(control + "\\TypeLib:  = " + kLibraryId));
  EXPECT_TRUE(has(control + "\\Version:  = 1.0"));
  EXPECT_TRUE(has(control + "\\Control"));
  EXPECT_TRUE(has(control + "\\MiscStatus\\1:  = 131473"));
  EXPECT_TRUE(has(control + "\\ToolboxBitmap32:  = " + path + ", 101"));
  EXPECT_TRUE(has(price + "\\InprocServer32:  = " + path));
  EXPECT_FALSE(has(price + "\\Control"));
  EXPECT_TRUE(has(std::string("ZEPPriceDownPrepare.PriceDown\\CLSID:  = ") + kControlId));
  EXPECT_TRUE(has("ZEPPriceDownPrepare.PriceDown\\CurVer:  = ZEPPriceDownPrepare.PriceDown.1"));
  EXPECT_TRUE(has(std::string("ZEPPriceDownPrepare.updatePrice.1\\CLSID:  = ") + kPriceId));
  EXPECT_TRUE(has("Interface\\{E02CFE1B-1B92-436F-8212-FDCCC4432A17}:  = _PriceDown"));
  // The system's proxies: one for dual interfaces, one for those that are dispatched alone.
  EXPECT_TRUE(
      has("Interface\\{6C59F88D-372A-493A-B6D0-3660F2266A03}\\ProxyStubClsid32:  = "
          "{00020424-0000-0000-C000-000000000046}"));
  EXPECT_TRUE(
      has("Interface\\{48F75CB7-8FB6-4E6B-8803-47D37E6ADD77}\\ProxyStubClsid32:  = "
          "{00020420-0000-0000-C000-000000000046}"));
  EXPECT_TRUE(HasTypeLibrary(added, path));
  EXPECT_TRUE(has("TypeLib\\" + std::string(kLibraryId) +
                  "\\1.0\\HELPDIR:  = " + path.substr(0, path.rfind('\\'))));
}

class Registration : public ::testing::Test {
 protected:
  void TearDown() override {
    library.Install(false, L"user");
    library.UnregisterServer();
  }

  static std::set<std::string> Machine() { return Below(HKEY_LOCAL_MACHINE); }
  static std::set<std::string> User() { return Below(HKEY_CURRENT_USER); }

 private:
  static std::set<std::string> Below(HKEY root) {
    return RegisteredClasses(root, {L"ZEPPriceDown", L"5CBA2460", L"6DA8E470", L"EA4EA8E5",
                                    L"E02CFE1B", L"00F03FE3", L"6C59F88D", L"48F75CB7"});
  }

 protected:
  const Library library;
};

TEST_F(Registration, ForTheMachineLeavesNothingBehind) {
  const auto machine = Machine();
  const auto user = User();
  ASSERT_EQ(library.RegisterServer(), S_OK);
  ExpectEntries(Added(machine, Machine()));
  EXPECT_EQ(Added(user, User()), std::set<std::string>());
  ASSERT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_EQ(Machine(), machine);
}

TEST_F(Registration, ForTheUserLeavesNothingBehind) {
  const auto machine = Machine();
  const auto user = User();
  ASSERT_EQ(library.Install(true, L"User"), S_OK);
  ExpectEntries(Added(user, User()));
  EXPECT_EQ(Added(machine, Machine()), std::set<std::string>());
  ASSERT_EQ(library.Install(false, L"user"), S_OK);
  EXPECT_EQ(User(), user);
}

// The key is shared with other programs.
TEST_F(Registration, KeepsAValueThatAnotherProgramHasInASharedKey) {
  constexpr const wchar_t* kShared = L"Software\\Classes\\Interface";
  constexpr const wchar_t* kOther = L"Another program";
  ASSERT_EQ(library.Install(true, L"user"), S_OK);
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kShared, kOther, REG_SZ, L"1", 4), ERROR_SUCCESS);
  ASSERT_EQ(library.Install(false, L"user"), S_OK);
  EXPECT_EQ(RegDeleteKeyValueW(HKEY_CURRENT_USER, kShared, kOther), ERROR_SUCCESS);
  RegDeleteKeyW(HKEY_CURRENT_USER, kShared);
}

TEST_F(Registration, OfBothKindsIsUndoneByOneUnregistration) {
  const auto machine = Machine();
  const auto user = User();
  ASSERT_EQ(library.RegisterServer(), S_OK);
  ASSERT_EQ(library.Install(true, L"user"), S_OK);
  ASSERT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_EQ(Machine(), machine);
  EXPECT_EQ(User(), user);
}

TEST_F(Registration, MayBeRepeatedAndUndoneTwice) {
  const auto machine = Machine();
  EXPECT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_EQ(library.RegisterServer(), S_OK);
  const auto registered = Machine();
  EXPECT_EQ(library.RegisterServer(), S_OK);
  EXPECT_EQ(Machine(), registered);
  EXPECT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_EQ(Machine(), machine);
}

TEST_F(Registration, IsForTheMachineWithoutAnArgument) {
  const auto machine = Machine();
  EXPECT_EQ(library.Install(true, nullptr), S_OK);
  EXPECT_NE(Machine(), machine);
  EXPECT_EQ(library.Install(false, L""), S_OK);
  EXPECT_EQ(Machine(), machine);
}

TEST_F(Registration, KnowsNoOtherArgument) {
  const auto machine = Machine();
  EXPECT_EQ(library.Install(true, L"everybody"), E_INVALIDARG);
  EXPECT_EQ(Machine(), machine);
}

TEST_F(Registration, LeavesAProgIdThatAnotherClassOwns) {
  const std::wstring name = L"ZEPPriceDownPrepare.updatePrice";
  ASSERT_EQ(library.RegisterServer(), S_OK);
  windows::WriteText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + name + L"\\CLSID", L"",
                     L"{00000000-0000-0000-0000-000000000001}");
  ASSERT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_TRUE(Machine().contains(Utf8(windows::FromWide(name))));
  EXPECT_FALSE(Machine().contains("ZEPPriceDownPrepare.updatePrice.1"));
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + name).c_str());
}

// The other word size shares the type library's key and the ProgIDs.
TEST_F(Registration, LeavesTheOtherWordSizesTypeLibrary) {
  const std::wstring other = L"TypeLib\\{EA4EA8E5-68DD-49CE-B47C-81D766861F1C}\\1.0\\0\\other";
  ASSERT_EQ(library.RegisterServer(), S_OK);
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + other).c_str(), 0,
                            nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(key);
  ASSERT_EQ(library.UnregisterServer(), S_OK);
  EXPECT_TRUE(Machine().contains(Utf8(windows::FromWide(other))));
  EXPECT_FALSE(HasTypeLibrary(Machine(), LibraryPath()));
  RegDeleteTreeW(HKEY_LOCAL_MACHINE,
                 L"Software\\Classes\\TypeLib\\{EA4EA8E5-68DD-49CE-B47C-81D766861F1C}");
}

}  // namespace
}  // namespace pricedown::testing
