#pragma once

#include <cstdint>
#include <string>

#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// Whether a value or a variable is of this type. An empty set is one of any elements.
bool IsOfType(Expression value, BaseType type, const Model& model);

// "an integer variable", for messages.
std::string Describe(Expression value, const Model& model);
// "an integer".
std::string Describe(BaseType type);
// "1 element", "2 elements".
std::string CountElements(std::uint32_t count);

}  // namespace kiv::flatzinc
