// What the module offers and what it registers.
// The entry points that use it are library.cpp.
#pragma once

#include <ole2.h>

#include <span>

#include "windows/com/class_factory.h"
#include "windows/com/registration.h"

namespace pricedown::windows {

// How containers treat the control: it lives inside its container's window, wants its site before
// anything else, and is laid out anew for each size.
inline constexpr DWORD kControlStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

std::span<const PublicClass> PublicClasses();

ServerEntries RegistryEntries();

}  // namespace pricedown::windows
