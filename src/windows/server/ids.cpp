// The definitions of the ids that the type library's header declares.
// The ids themselves are in its source.
#include <initguid.h>

#include "windows/server/idl/ZEPPriceDownPrepare.h"
