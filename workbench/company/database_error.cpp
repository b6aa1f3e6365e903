// The exception keeps the message as the server wrote it and as UTF-8.
#include "workbench/company/database_error.h"

#include "workbench/company/utf.h"

namespace workbench {

DatabaseError::DatabaseError(std::u16string_view message, int nativeNumber)
    : std::runtime_error(Utf8FromUtf16(message)), message_(message), nativeNumber_(nativeNumber) {}

}  // namespace workbench
