#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace kiv::test {

// What is wrong with `value` under a JSON Schema; empty when it is valid. Knows the keywords that
// the schemas of this repository use, and throws std::invalid_argument for any other, so that no
// rule goes unchecked: type, enum, const, minimum, required, properties, additionalProperties,
// items, oneOf, and $ref into $defs.
std::string FindSchemaError(const nlohmann::json& value, const nlohmann::json& schema);

}  // namespace kiv::test
