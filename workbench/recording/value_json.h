// Values as JSON: how arguments and results are written in a recording.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/value.h"

namespace workbench {

// Keeps its members in the order in which they were added.
using Json = nlohmann::ordered_json;

// The number of an object in a recording: 0 is "nothing", kForeignObject one that was not recorded.
using ObjectNumber = std::int32_t;
inline constexpr ObjectNumber kForeignObject = -1;

// Texts, truths, nulls, 32-bit integers and doubles are those of JSON; all else is an object with
// one member that names the kind. References are followed. A null block, which stands for what no
// kind exists for, is {"other": true}. Passwords are hidden, see passwords.h. `numberOf` is never
// asked for a null object.
Json ToJson(const pricedown::Value& value,
            const std::function<ObjectNumber(const pricedown::ObjectPtr&)>& numberOf);

// The inverse; `objectOf` is never asked for 0. Throws AutomationError (InvalidArgument) for JSON
// that ToJson does not make.
pricedown::Value FromJson(const Json& json,
                          const std::function<pricedown::ObjectPtr(ObjectNumber)>& objectOf);

// One line, as valid UTF-8.
std::string LineOf(const Json& json);

}  // namespace workbench
