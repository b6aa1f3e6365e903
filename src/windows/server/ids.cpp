// The definitions of the ids that the type library's header declares.
#include <initguid.h>

#include "windows/server/idl/ZEPPriceDownPrepare.h"
