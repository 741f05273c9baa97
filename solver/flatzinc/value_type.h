#pragma once

#include <string>

#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// Whether a value or a variable is of this type. An empty set is one of any elements.
bool IsOfType(Expression value, BaseType type, const Model& model);

// "an integer variable", for messages.
std::string Describe(Expression value, const Model& model);
// "an integer".
std::string Describe(BaseType type);

}  // namespace kiv::flatzinc
