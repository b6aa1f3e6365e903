// The ladder from exceptions to failures.
#include "platform/failure.h"

#include <exception>
#include <new>

#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {
namespace {

// Short enough to need no memory of their own.
constexpr std::u16string_view kNoMemory = u"内存不足";

void Set(Failure& failure, ErrorNumber code, std::u16string_view description) {
  failure.code = static_cast<std::int32_t>(code);
  failure.description = description;
}

void Describe(Failure& failure) {
  try {
    throw;
  } catch (const AutomationError& error) {
    if (error.Number() < 0) failure.code = error.Number();
    failure.description = error.Description();
    failure.source = error.Source();
  } catch (const std::bad_alloc&) {
    Set(failure, ErrorNumber::OutOfMemory, kNoMemory);
  } catch (const std::exception& error) {
    Set(failure, ErrorNumber::Unspecified, kUnexpectedError);
    failure.source = FromUtf8(error.what());
  } catch (...) {
    Set(failure, ErrorNumber::Unexpected, kUnexpectedError);
  }
}

}  // namespace

Failure CurrentFailure() noexcept {
  Failure failure;
  failure.code = static_cast<std::int32_t>(ErrorNumber::Unspecified);
  try {
    Describe(failure);
  } catch (...) {
    // No memory for the texts.
    failure.description = kNoMemory;
  }
  return failure;
}

}  // namespace pricedown
