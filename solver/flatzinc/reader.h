#pragma once

#include <string_view>

#include "framework/base/export.h"
#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// Reads a whole FlatZinc text: predicates, parameters, variables, constraints, the solve item.
// Throws Error with the place of what is wrong and what was expected there. Linear in the size of
// the text, in time and in memory.
KIV_EXPORT Model ReadModel(std::string_view text);

}  // namespace kiv::flatzinc
