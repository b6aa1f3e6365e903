// Calls of a recorded object: forwarded, then written down.
#include <windows.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "platform/text.h"
#include "windows/com/wide_text.h"
#include "workbench/recording/com/call_json.h"
#include "workbench/recording/com/forwarded_arguments.h"
#include "workbench/recording/com/recorded_object.h"
#include "workbench/recording/com/recorder.h"

namespace workbench {

using pricedown::windows::ComPtr;

namespace {

// Names of results of results would grow without end.
constexpr std::size_t kLongestName = 100;

std::string Utf8Of(const wchar_t* text) {
  return text == nullptr ? std::string() : pricedown::ToUtf8(pricedown::windows::FromWide(text));
}

const char* KindOf(WORD flags) {
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) return "putref";
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return "put";
  return "call";
}

}  // namespace

STDMETHODIMP RecordedObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                           LCID locale, DISPID* ids) noexcept {
  const auto self = ComPtr<RecordedObject>::Share(this);
  CallClock clock;
  const HRESULT code = real_->GetIDsOfNames(reserved, names, count, locale, ids);
  clock.Stop();
  if (names == nullptr || ids == nullptr || count == 0) return code;
  if (SUCCEEDED(code)) {
    WithoutFailing([&] { RememberName(ids[0], Utf8Of(names[0])); });
    return code;
  }
  const ThreadState kept;
  WithoutFailing([&] {
    Json line = clock.Line("name");
    Describe(line);
    line["member"] = Utf8Of(names[0]);
    line["failure"] = FailureOf(code, nullptr, kept.Info());
    Recorder::Instance().Write(line);
  });
  return code;
}

STDMETHODIMP RecordedObject::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                    DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* record,
                                    UINT* badArgument) noexcept {
  const auto self = ComPtr<RecordedObject>::Share(this);
  std::optional<Json> arguments;
  std::string member;
  std::string name;
  WithoutFailing([&] {
    member = MemberName(id);
    name = name_.size() < kLongestName ? name_ + "." + member : member;
    if (parameters != nullptr) arguments = ArgumentsOf(*parameters);
  });
  std::optional<ForwardedArguments> forwarded;
  WithoutFailing([&] { forwarded.emplace(parameters); });

  CallClock clock;
  const HRESULT code =
      real_->Invoke(id, reserved, locale, flags, forwarded ? forwarded->get() : parameters, result,
                    record, badArgument);
  clock.Stop();

  const ThreadState kept;
  if (forwarded) forwarded->Restore(name);
  if (result != nullptr && SUCCEEDED(code)) RecordObjects(*result, name);
  WithoutFailing([&] {
    Json line = clock.Line(KindOf(flags));
    Describe(line);
    line["member"] = member;
    line["dispid"] = id;
    if (arguments) {
      AddAnswers(*arguments, *parameters);
      line["arguments"] = std::move(*arguments);
    }
    if (FAILED(code)) {
      line["failure"] = FailureOf(code, record, kept.Info());
    } else {
      if (result != nullptr) line["result"] = ContentOf(*result);
      const long rows = result != nullptr ? RowsIn(*result) : 0;
      if (rows > 0) line["rows"] = rows;
      CountRows(member, rows);
    }
    Recorder::Instance().Write(line);
  });
  return code;
}

}  // namespace workbench
