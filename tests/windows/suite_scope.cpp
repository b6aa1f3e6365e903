// Connects FakeSuite.dll to the test's factory through COM.
#include "tests/windows/suite_scope.h"

#include <array>

#include "platform/convert.h"
#include "platform/local_object.h"
#include "tests/windows/system_call.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

// One member, Create(progId).
class Creator : public LocalObject<Creator> {
 public:
  explicit Creator(ObjectFactory& factory) : factory_(factory) {}

  static std::span<const Member<Creator>> Members() {
    static const std::array members{
        Member<Creator>{u"Create", MemberKind::Method,
                        [](Creator& creator, Access, std::span<Value> arguments) {
                          return Value(creator.factory_.Create(ToText(arguments[0])));
                        },
                        1, 1}};
    return members;
  }

 private:
  ObjectFactory& factory_;
};

void SetCreator(IDispatch* creator) {
  // Loaded once and never unloaded, like its class objects.
  static const auto set =
      FunctionOf<void(STDMETHODCALLTYPE*)(IDispatch*)>(L"FakeSuite.dll", "SetCreator");
  set(creator);
}

}  // namespace

SuiteScope::SuiteScope(ObjectFactory& factory) {
  SetCreator(windows::ToDispatch(std::make_shared<Creator>(factory)).get());
}

SuiteScope::~SuiteScope() { SetCreator(nullptr); }

}  // namespace pricedown::testing
