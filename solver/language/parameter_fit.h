#pragma once

#include <optional>
#include <string>

#include "framework/base/export.h"
#include "solver/language/parameter_value.h"
#include "solver/language/scope.h"

namespace kiv {

// What a parameter is declared as.
struct ParameterType {
  enum class Kind { kInteger, kTruth, kSet };
  Kind kind = Kind::kInteger;
  ArrayShape shape;        // of an array; the dimensions that are open are empty
  std::vector<bool> open;  // by dimension: as large as the value
};

// What a value means for a parameter, or why it does not fit: "is a list of 3; expected 5 elements"
// with `place`, such as "the value of 'w'", before it.
struct ParameterFit {
  std::optional<Scope::Meaning> meaning;
  std::string error;
};

KIV_EXPORT ParameterFit FitParameter(const ParameterValue& value, const ParameterType& type,
                                     const std::string& place);

}  // namespace kiv
