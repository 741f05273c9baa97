#pragma once

#include <map>
#include <optional>
#include <string>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/parameter_value.h"
#include "solver/language/source_text.h"

namespace kiv {

// Values for parameters in JSON. A parameter whose value is null is not given one.
//
// Nothing, and what is wrong in `diagnostics`, when the text is not that: errors of syntax with
// their place, others with the name of the parameter. Any bytes are admitted.

// `{ "n": 8, "w": [1, 2], "a": [[1, 2], [3, 4]], "b": true }`.
KIV_EXPORT std::optional<std::map<std::string, ParameterValue>> ReadData(const SourceText& source,
                                                                         Diagnostics& diagnostics);

// One value, `8` or `[1, 2]`, of the parameter `name`.
KIV_EXPORT std::optional<ParameterValue> ReadValue(const SourceText& source,
                                                   const std::string& name,
                                                   Diagnostics& diagnostics);

}  // namespace kiv
