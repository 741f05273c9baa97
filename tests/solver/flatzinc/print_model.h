#pragma once

#include <string>

#include "solver/flatzinc/model.h"

namespace kiv::test {

// A value as FlatZinc writes it, with one blank where blanks may stand between annotations and none
// elsewhere. A variable is its name, a parameter its value.
std::string Print(flatzinc::Expression value, const flatzinc::Model& model);

// The variables, arrays of variables, constraints and the solve item of a model, a line each.
std::string Print(const flatzinc::Model& model);

}  // namespace kiv::test
