// Settings texts: any text is read without harm, and a built one restores its values.
#include "env/settings_text.h"

#include "tests/fuzz/fuzz_input.h"

using namespace pricedown;
using namespace pricedown::fuzz;

namespace {

bool Holds(const std::u16string& text, const std::u16string& part) {
  return text.find(part) != std::u16string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::u16string separator = ConsumeText(input);
  const std::u16string name = ConsumeText(input);
  const std::u16string value = ConsumeText(input);
  const std::u16string other = ConsumeText(input);
  const std::u16string text = RestAsText(input);

  SettingsEntry(text, name, separator);
  SettingsEntry(text, name, {});

  const std::u16string built = BuildSettings({{name, value}, {u"其他", other}}, separator);
  const bool readable = !separator.empty() && !Holds(name, separator) && !Holds(value, separator) &&
                        !Holds(name, u"=") && !Holds(separator, u"=") && !Holds(value, u"=");
  // A separator that spans two parts is read differently.
  const bool apart = separator.size() == 1;
  if (readable && apart) {
    Require(SettingsEntry(built, name, separator) == value, "an entry gives its value back");
  }
  return 0;
}
