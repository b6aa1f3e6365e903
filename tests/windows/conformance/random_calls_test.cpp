// Thousands of random calls of every member with arguments of every type: none may crash, return
// anything but the codes of IDispatch, or leak. Members without parameters that wait for a user are
// called with arguments only.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "tests/windows/conformance/process_resources.h"
#include "tests/windows/conformance/random_argument.h"
#include "tests/windows/dialog_closer.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;
using windows::Variant;

constexpr std::mt19937::result_type kSeed = 20080301;
constexpr int kCalls = 6000;
// What the fakes' lists and the system's caches may retain of thousands of calls; one leaked text
// of two characters in ten calls would exceed it.
constexpr long kTolerance = 16 * 1024;
// Newer heaps of Wine (10.0) allocate small blocks in groups, at any time; a leak grows in each
// round.
constexpr int kRounds = 5;

// Has every member; returns names of tools that wait for no user, numbers or nothing.
class AnyObject : public AutomationObject {
 public:
  MemberId Find(std::u16string_view) override { return 1; }
  Value Invoke(MemberId, Access, std::span<Value>) override {
    static const std::array<Value, 6> answers{
        Value(u"iRefresh"), Value(std::int32_t{3}), Value(), Value(u"mnuViewStatusBar"),
        Value(true),        Value(u"iExit")};
    return answers[calls_++ % answers.size()];
  }

 private:
  std::size_t calls_ = 0;
};

bool IsAllowed(HRESULT code) {
  static constexpr std::array kAllowed{
      S_OK,
      DISP_E_EXCEPTION,
      DISP_E_MEMBERNOTFOUND,
      DISP_E_BADPARAMCOUNT,
      DISP_E_PARAMNOTFOUND,
      DISP_E_PARAMNOTOPTIONAL,
      DISP_E_TYPEMISMATCH,
      DISP_E_OVERFLOW,
      DISP_E_BADVARTYPE,
      static_cast<HRESULT>(0x800A005B)};  // Nothing instead of an object
  return std::find(kAllowed.begin(), kAllowed.end(), code) != kAllowed.end();
}

class RandomCalls : public ::testing::Test {
 protected:
  RandomCalls() { host.Open(); }
  ~RandomCalls() override { EXPECT_EQ(closer.Closed(), 0); }

  // Returns how many of the calls reached a member and succeeded.
  int CallDispatch(int calls, std::uint32_t members, IDispatch* target) {
    int done = 0;
    for (int call = 0; call < calls; ++call) {
      const auto id = static_cast<DISPID>(random_() % (members + 2));
      done += Invoke(target, id) == S_OK ? 1 : 0;
      host.world.log.Clear();
    }
    return done;
  }

  HRESULT Invoke(IDispatch* target, DISPID id) {
    static constexpr std::array<WORD, 8> kFlags{DISPATCH_METHOD,
                                                DISPATCH_METHOD,
                                                DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                                DISPATCH_PROPERTYGET,
                                                DISPATCH_PROPERTYPUT,
                                                DISPATCH_PROPERTYPUTREF,
                                                0,
                                                0xFFFF};
    const UINT count = ArgumentCount(target, id);
    std::deque<RandomArgument> made;
    std::vector<VARIANT> arguments;
    for (UINT i = 0; i < count; ++i) {
      arguments.push_back(made.emplace_back(random_, object.get()).Sent());
    }
    const WORD flags = kFlags[random_() % kFlags.size()];
    std::vector<DISPID> names = Names(count, flags);
    DISPPARAMS parameters{arguments.data(), names.data(), count, static_cast<UINT>(names.size())};
    Variant result;
    EXCEPINFO record{};
    UINT badArgument = 0;
    const bool wantsResult = random_() % 2 == 0;
    const HRESULT code = target->Invoke(id, IID{}, LOCALE_USER_DEFAULT, flags, &parameters,
                                        wantsResult ? result.put() : nullptr, &record,
                                        random_() % 4 == 0 ? nullptr : &badArgument);
    ExpectProper(code, record, result.get());
    return code;
  }

  // Half of the calls have the member's number of arguments. Members that wait for a user (preview,
  // printing, the commands of classes) get at least one.
  UINT ArgumentCount(const IDispatch* target, DISPID id) {
    static constexpr std::array<UINT, 14> kCounts{0, 2, 0, 1, 1, 2, 3, 0, 0, 0, 0, 0, 0, 0};
    const bool control = target == host.control.get();
    const bool waits = control && id >= 7 && id != 9;
    if (waits) return 1 + random_() % 6;
    if (random_() % 2 == 0) return random_() % 7;
    return control ? kCounts[static_cast<std::size_t>(id)] : 0;
  }

  // Most calls have no named arguments, and most names are positions.
  std::vector<DISPID> Names(UINT count, WORD flags) {
    static constexpr std::array<DISPID, 10> kNames{0,  1,  2,  3,         4, DISPID_PROPERTYPUT,
                                                   63, 64, -1, 0x7FFFFFFF};
    std::vector<DISPID> names;
    if (flags == DISPATCH_PROPERTYPUT && count > 0 && random_() % 4 != 0) {
      names.push_back(DISPID_PROPERTYPUT);
    }
    while (names.size() <= count && random_() % 4 == 0) {
      names.push_back(kNames[random_() % kNames.size()]);
    }
    return names;
  }

  void ExpectProper(HRESULT code, EXCEPINFO& record, const VARIANT& result) {
    if (code == DISP_E_EXCEPTION) {
      EXPECT_TRUE(FAILED(record.scode));
      EXPECT_TRUE(record.pfnDeferredFillIn == nullptr);
    } else {
      EXPECT_EQ(record.bstrDescription, nullptr);
    }
    EXPECT_TRUE(SUCCEEDED(code) || result.vt == VT_EMPTY);
    EXPECT_TRUE(IsAllowed(code)) << Hexadecimal(code);
    SysFreeString(record.bstrSource);
    SysFreeString(record.bstrDescription);
    SysFreeString(record.bstrHelpFile);
    SetErrorInfo(0, nullptr);
  }

  // The members of the interface with parameters of variants, objects and arrays.
  void CallEarly(int calls) {
    const auto early = host.As<_PriceDown>();
    for (int call = 0; call < calls; ++call) {
      const RandomArgument a(random_, object.get());
      const RandomArgument b(random_, object.get());
      IDispatch* target = random_() % 3 == 0 ? nullptr : object.get();
      early->SelBlock(target, a.Sent(), b.Sent(), b.Sent(), a.Sent());
      VARIANT_BOOL use = static_cast<VARIANT_BOOL>(random_());
      early->ParentWindow_ToolBarClick(random_() % 5 == 0 ? nullptr : &target,
                                       random_() % 2 == 0 ? nullptr : &use);
      SAFEARRAY* none = nullptr;
      early->NotifyMessage(a.Sent().vt == VT_BSTR ? a.Sent().bstrVal : nullptr,
                           random_() % 2 == 0 ? nullptr : &none);
      early->put_ShowMode(static_cast<short>(random_()));
      EXPECT_TRUE(target == nullptr || target == object.get());
      SetErrorInfo(0, nullptr);
      host.world.log.Clear();
    }
  }

  static void ExpectNoLeak(const std::function<void()>& calls) {
    const ProcessResources before = ResourcesNow();
    ProcessResources after = before;
    long growth = kTolerance + 1;
    for (int round = 0; round < kRounds && growth > kTolerance; ++round) {
      const long memory = after.memory;
      calls();
      after = ResourcesNow();
      growth = after.memory - memory;
    }
    EXPECT_LE(growth, kTolerance);
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.gdiObjects, before.gdiObjects);
    EXPECT_LE(after.userObjects, before.userObjects);
  }

  const DialogCloser closer;
  ControlHost host;
  std::shared_ptr<AnyObject> any = std::make_shared<AnyObject>();
  ComPtr<IDispatch> object = windows::ToDispatch(any);
  std::mt19937 random_{kSeed};
};

TEST_F(RandomCalls, OfTheControlLeaveNothingBehind) {
  CallDispatch(kCalls / 3, 12, host.control.get());
  ExpectNoLeak([this] { EXPECT_GT(CallDispatch(kCalls, 12, host.control.get()), kCalls / 20); });
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  host.Close();
  host.Release();
  // The wrapper's own reference and the test's.
  EXPECT_EQ(object->AddRef(), 2U);
  EXPECT_EQ(object->Release(), 1U);
}

TEST_F(RandomCalls, OfTheInterfaceLeaveNothingBehind) {
  CallEarly(kCalls / 4);
  ExpectNoLeak([this] { CallEarly(kCalls / 4); });
  host.Close();
  host.Release();
  EXPECT_EQ(object->AddRef(), 2U);
  EXPECT_EQ(object->Release(), 1U);
}

TEST_F(RandomCalls, OfUpdatePriceLeaveNothingBehind) {
  const auto price = host.library.NewUpdatePrice();
  CallDispatch(kCalls / 3, 1, price.get());
  ExpectNoLeak([&] { EXPECT_GT(CallDispatch(kCalls, 1, price.get()), kCalls / 20); });
  EXPECT_EQ(object->AddRef(), 2U);
  EXPECT_EQ(object->Release(), 1U);
}

}  // namespace
}  // namespace pricedown::testing
