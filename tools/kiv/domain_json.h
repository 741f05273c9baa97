#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "framework/abstract_types/any.h"

namespace kiv {

using Json = nlohmann::ordered_json;

// The text form of a domain.
std::string TextOf(const KivOmbiAny& domain);

// A domain as an object: "kind", "state" ("nil", "any" or "values"), "text" and, where there are
// values, "lower", "upper" and "cardinality" of integers and "values" unless they are too many.
Json DescribeDomain(const std::string& kind, const KivOmbiAny& domain);

// `json` on one line; text that is no UTF-8 is replaced.
std::string JsonLine(const Json& json);

}  // namespace kiv
