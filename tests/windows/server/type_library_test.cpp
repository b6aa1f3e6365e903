// Tests that type library, member tables and objects agree.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "tests/support/utf8.h"
#include "tests/windows/server/library.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/price_down_members.h"
#include "windows/server/update_price_object.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::DispatchMember;

// The library as clients find it: inside the DLL's file.
ComPtr<ITypeLib> Embedded() {
  ComPtr<ITypeLib> library;
  LoadTypeLibEx(L"ZEPPriceDownPrepare.dll", REGKIND_NONE, library.put());
  return library;
}

// "kind id name(parameter, [optional])" of one function.
std::string Described(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(index, &function))) return "?";
  BSTR names[16] = {};
  UINT count = 0;
  info.GetNames(function->memid, names, 16, &count);
  // A put's value has no name.
  std::string text = std::to_string(function->invkind) + " " + std::to_string(function->memid) +
                     " " + Utf8(windows::FromBstr(names[0])) + "(";
  for (SHORT i = 0; i < function->cParams; ++i) {
    const bool optional =
        (function->lprgelemdescParam[i].paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    text += (i > 0 ? ", " : "") + std::string(optional ? "optional" : "needed");
  }
  text += ")";
  for (BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text;
}

std::string Described(const DispatchMember& member) {
  std::string text =
      std::to_string(member.kind) + " " + std::to_string(member.id) + " " + Utf8(member.name) + "(";
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    text +=
        (i > 0 ? ", " : "") + std::string(member.parameters[i].optional ? "optional" : "needed");
  }
  return text + ")";
}

// The functions of a dual interface without those of IUnknown and IDispatch.
std::vector<std::string> FunctionsOf(REFIID id) {
  ComPtr<ITypeInfo> info;
  if (FAILED(Embedded()->GetTypeInfoOfGuid(id, info.put()))) return {"no such interface"};
  TYPEATTR* attributes = nullptr;
  if (FAILED(info->GetTypeAttr(&attributes))) return {"no attributes"};
  std::vector<std::string> functions;
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    std::string text = Described(*info.get(), i);
    if (text.find(" 1610") == std::string::npos) functions.push_back(std::move(text));
  }
  info->ReleaseTypeAttr(attributes);
  return functions;
}

template <typename Rows>
std::vector<std::string> Table(Rows rows) {
  std::vector<std::string> members;
  for (const auto& row : rows) members.push_back(Described(row.member));
  return members;
}

// "name(parameter, parameter)" for each function that has parameters.
std::string ParameterNames(REFIID id, DISPID member) {
  ComPtr<ITypeInfo> info;
  Embedded()->GetTypeInfoOfGuid(id, info.put());
  BSTR names[16] = {};
  UINT count = 0;
  info->GetNames(member, names, 16, &count);
  std::string text;
  for (UINT i = 1; i < count; ++i) text += Utf8(windows::FromBstr(names[i])) + " ";
  for (BSTR name : names) SysFreeString(name);
  return text;
}

TEST(TypeLibrary, HasItsIdAndName) {
  const auto library = Embedded();
  ASSERT_TRUE(library);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, LIBID_ZEPPriceDownPrepare));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  library->ReleaseTLibAttr(attributes);
  Bstr name;
  ASSERT_EQ(library->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(Utf8(name.Text()), "ZEPPriceDownPrepare");
}

TEST(TypeLibrary, ListsTheControlsMembersInTheirOrder) {
  EXPECT_EQ(FunctionsOf(IID__PriceDown),
            (std::vector<std::string>{
                "1 1 NotifyMessage(needed, needed)", "1 2 RefreshToolbar()", "1 3 Show(needed)",
                "4 4 ShowMode(needed)", "1 5 ParentWindow_ToolBarClick(needed, needed)",
                "1 6 SelBlock(needed, optional, optional, optional, optional)", "1 7 PreviewPara()",
                "1 8 PrintPara()", "1 9 ModelCurrent()", "1 10 addRecord()", "1 11 editRecord()",
                "1 12 delRecord()"}));
}

TEST(TypeLibrary, ListsTheStateBesideTheMembers) {
  EXPECT_EQ(FunctionsOf(IID__PriceDownState),
            (std::vector<std::string>{"2 101 Ready()", "2 102 CreationError()", "2 103 Listener()",
                                      "4 103 Listener(needed)", "8 103 Listener(needed)"}));
}

TEST(TypeLibrary, ListsTheEvents) {
  EXPECT_EQ(
      FunctionsOf(DIID__PriceDownEvents),
      (std::vector<std::string>{"1 1 SelectionChanged(needed)", "1 2 ClassChanged(needed, needed)",
                                "1 3 Closing()", "1 4 Failed(needed, needed, needed)"}));
}

TEST(TypeLibrary, ListsOperationAndPropertyOfUpdatePriceUnderNamesOfTheirOwn) {
  EXPECT_EQ(FunctionsOf(IID__updatePrice),
            (std::vector<std::string>{"1 1 ItemClassType()", "2 2 ItemClassTypeValue()"}));
}

// As a compiler of a Basic-like language resolves a member of a declared object.
std::string Bound(REFIID id, const wchar_t* name, WORD kinds) {
  ComPtr<ITypeInfo> info;
  Embedded()->GetTypeInfoOfGuid(id, info.put());
  ComPtr<ITypeComp> compiler;
  if (FAILED(info->GetTypeComp(compiler.put()))) return "no compiler";
  std::wstring text = name;
  ComPtr<ITypeInfo> found;
  DESCKIND kind = DESCKIND_NONE;
  BINDPTR bound{};
  const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_USER_DEFAULT, text.c_str());
  const HRESULT code = compiler->Bind(text.data(), hash, kinds, found.put(), &kind, &bound);
  if (FAILED(code)) return "refused";
  if (kind != DESCKIND_FUNCDESC) return "nothing";
  const std::string function =
      std::to_string(bound.lpfuncdesc->invkind) + " " + std::to_string(bound.lpfuncdesc->memid);
  found->ReleaseFuncDesc(bound.lpfuncdesc);
  return function;
}

TEST(TypeLibrary, LetsACompilerResolveOperationAndProperty) {
  EXPECT_EQ(Bound(IID__updatePrice, L"itemclasstype", INVOKE_FUNC), "1 1");
  EXPECT_EQ(Bound(IID__updatePrice, L"ItemClassTypeValue", INVOKE_PROPERTYGET), "2 2");
  EXPECT_EQ(Bound(IID__updatePrice, L"ItemClassTypeValue", INVOKE_FUNC | INVOKE_PROPERTYGET),
            "2 2");
}

// A generator of early-bound clients declares each name once for each kind.
TEST(TypeLibrary, UsesNoNameForTwoKindsOfMembers) {
  for (const IID& id : {IID__PriceDown, IID__PriceDownState, IID__updatePrice}) {
    std::map<std::string, bool> isProperty;
    for (const std::string& function : FunctionsOf(id)) {
      const std::string name = function.substr(function.rfind(' ', function.find('(')) + 1);
      const bool property = function[0] != '1';
      const auto [known, added] = isProperty.emplace(name.substr(0, name.find('(')), property);
      EXPECT_TRUE(added || (known->second && property)) << function;
    }
  }
}

TEST(MemberTables, MatchTheTypeLibrary) {
  std::vector<std::string> members = FunctionsOf(IID__PriceDown);
  for (const std::string& function : FunctionsOf(IID__PriceDownState)) members.push_back(function);
  EXPECT_EQ(Table(windows::PriceDownMembers()), members);
  std::vector<std::string> price = FunctionsOf(IID__updatePrice);
  // Late-bound clients read the property under the operation's name, too.
  price.insert(price.begin() + 1, "2 1 ItemClassType()");
  EXPECT_EQ(Table(windows::UpdatePriceMembers()), price);
}

TEST(MemberTables, NameTheirParametersAsTheTypeLibraryDoes) {
  for (const auto& row : windows::PriceDownMembers()) {
    // The value of a put is nameless in a type library.
    if ((row.member.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) continue;
    if (row.member.parameters.empty()) continue;
    std::string names;
    for (const auto& parameter : row.member.parameters) names += Utf8(parameter.name) + " ";
    EXPECT_EQ(names, ParameterNames(IID__PriceDown, row.member.id)) << Utf8(row.member.name);
  }
}

TEST(TypeInformation, ComesFromTheObjectsThemselves) {
  const Library library;
  const auto control = library.NewPriceDown();
  UINT count = 0;
  ASSERT_EQ(control->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, IID__PriceDown));
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(control->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.put()), DISP_E_BADINDEX);
  EXPECT_EQ(library.NewUpdatePrice()->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
}

TEST(TypeInformation, DescribesTheClassWithItsEvents) {
  const Library library;
  const auto provider = library.Create(CLSID_PriceDown).As<IProvideClassInfo2>();
  ASSERT_TRUE(provider);
  EXPECT_TRUE(provider.As<IProvideClassInfo>());
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.put()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, CLSID_PriceDown));
  EXPECT_EQ(attributes->cImplTypes, 3);
  info->ReleaseTypeAttr(attributes);
  INT flags = 0;
  EXPECT_EQ(info->GetImplTypeFlags(2, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
  GUID events{};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_TRUE(IsEqualGUID(events, DIID__PriceDownEvents));
  EXPECT_EQ(provider->GetGUID(0, &events), E_INVALIDARG);
  EXPECT_TRUE(IsEqualGUID(events, GUID{}));
}

}  // namespace
}  // namespace pricedown::testing
