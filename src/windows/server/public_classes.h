// The classes that the module offers, and their registry entries.
#pragma once

#include <ole2.h>

#include <span>

#include "windows/com/class_factory.h"
#include "windows/com/registration.h"

namespace pricedown::windows {

std::span<const PublicClass> PublicClasses();

ServerEntries RegistryEntries();

}  // namespace pricedown::windows
